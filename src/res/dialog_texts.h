// The texts of the dialogs and menus, in English. A resource script includes this list, or the list
// of its language, before the layouts in dialogs.rc. A text contains no double quote.
// tools/check_catalogue.py compares the translations with this list. A test checks that each text
// fits in its control.
// clang-format off
#define DIALOG_TEXT_OK "OK"
#define DIALOG_TEXT_CANCEL "Cancel"

// The columns of a list.
#define DIALOG_TEXT_COLUMNS_TITLE "Columns"
#define DIALOG_TEXT_COLUMNS_ADVICE "Select the columns you would like visible.  Use the Move Up and Move Down buttons to reorder the columns however you like."
#define DIALOG_TEXT_COLUMNS_MOVE_UP "Move &Up"
#define DIALOG_TEXT_COLUMNS_MOVE_DOWN "Move &Down"
#define DIALOG_TEXT_COLUMNS_RESET "&Reset"
#define DIALOG_TEXT_COLUMNS_WIDTH "&Selected column width:"
#define DIALOG_TEXT_COLUMNS_COMMAND "&Columns..."

// Capturing the next key that is pressed.
#define DIALOG_TEXT_CAPTURE_TITLE "Capture Shortcut Key"
#define DIALOG_TEXT_CAPTURE_PROMPT "Press a key to use as the shortcut key."

// Assigning a key to a command.
#define DIALOG_TEXT_ASSIGN_TITLE "Assign Shortcut Key"
#define DIALOG_TEXT_ASSIGN_COMMAND "Command:"
#define DIALOG_TEXT_ASSIGN_KEY "&Press the new key:"
#define DIALOG_TEXT_ASSIGN_REPORT "&Notes:"
#define DIALOG_TEXT_ASSIGN_ASSIGN "&Assign"
#define DIALOG_TEXT_ASSIGN_CLEAR "&Clear"

// Editing a hyperlink.
#define DIALOG_TEXT_HYPERLINK_TITLE "Edit Hyperlink"
#define DIALOG_TEXT_HYPERLINK_DISPLAY_TEXT "&Display text:"
#define DIALOG_TEXT_HYPERLINK_ADDRESS "&Address:"
#define DIALOG_TEXT_HYPERLINK_OPEN "&Open"
#define DIALOG_TEXT_HYPERLINK_EDIT "&Edit..."
#define DIALOG_TEXT_HYPERLINK_COPY "Copy Shor&tcut"

// The check for updates.
#define DIALOG_TEXT_UPDATES_TITLE "Check For Updates"
#define DIALOG_TEXT_UPDATES_LIST "&Latest updates:"
#define DIALOG_TEXT_UPDATES_CHECK "&Check"
#define DIALOG_TEXT_UPDATES_SETTINGS "&Settings..."
#define DIALOG_TEXT_UPDATES_RESET "&Reset"
#define DIALOG_TEXT_UPDATES_ENTRY_TITLE "Title:"
#define DIALOG_TEXT_UPDATES_ENTRY_DATE "Date:"
#define DIALOG_TEXT_UPDATES_ENTRY_DESCRIPTION "&Description:"
#define DIALOG_TEXT_UPDATES_ENTRY_LINK "Lin&k:"
#define DIALOG_TEXT_UPDATES_CLOSE "Close"

// The settings of that check.
#define DIALOG_TEXT_UPDATES_SETTINGS_TITLE "Check For Updates Settings"
#define DIALOG_TEXT_UPDATES_URL "&Updates file URL:"
#define DIALOG_TEXT_UPDATES_REMIND "&Display a reminder to check for updates after:"
#define DIALOG_TEXT_UPDATES_DAYS "days (1-90)"

// The reminder of that check.
#define DIALOG_TEXT_UPDATES_REMINDER_TITLE "Check For Updates Reminder"
#define DIALOG_TEXT_UPDATES_REMINDER_QUESTION "Would you like to check for updates now?"
#define DIALOG_TEXT_UPDATES_YES "&Yes"
#define DIALOG_TEXT_UPDATES_NO "&No"
#define DIALOG_TEXT_UPDATES_DISMISS "&Dismiss"

// The check for a new version.
#define DIALOG_TEXT_NEW_VERSION_TITLE "Check For Updates"
#define DIALOG_TEXT_NEW_VERSION_WAIT "Checking for updates. Please wait..."
