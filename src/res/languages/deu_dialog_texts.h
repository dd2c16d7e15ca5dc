// The texts of the dialogs and menus, in German.
// clang-format off
#define DIALOG_TEXT_OK "OK"
#define DIALOG_TEXT_CANCEL "Abbrechen"

// The columns of a list.
#define DIALOG_TEXT_COLUMNS_TITLE "Spalten"
#define DIALOG_TEXT_COLUMNS_ADVICE "Wählen Sie die Spalten aus, die angezeigt werden sollen.  Mit „Nach oben“ und „Nach unten“ ordnen Sie die Spalten, wie Sie möchten."
#define DIALOG_TEXT_COLUMNS_MOVE_UP "Nach &oben"
#define DIALOG_TEXT_COLUMNS_MOVE_DOWN "Nach &unten"
#define DIALOG_TEXT_COLUMNS_RESET "&Zurücksetzen"
#define DIALOG_TEXT_COLUMNS_WIDTH "Breite der &gewählten Spalte:"
#define DIALOG_TEXT_COLUMNS_COMMAND "&Spalten..."

// The next key that is pressed.
#define DIALOG_TEXT_CAPTURE_TITLE "Taste erfassen"
#define DIALOG_TEXT_CAPTURE_PROMPT "Drücken Sie die Taste für die Tastenkombination."

// A key for a command.
#define DIALOG_TEXT_ASSIGN_TITLE "Taste zuweisen"
#define DIALOG_TEXT_ASSIGN_COMMAND "Befehl:"
#define DIALOG_TEXT_ASSIGN_KEY "Neue &Taste drücken:"
#define DIALOG_TEXT_ASSIGN_REPORT "&Hinweise:"
#define DIALOG_TEXT_ASSIGN_ASSIGN "Zu&weisen"
#define DIALOG_TEXT_ASSIGN_CLEAR "&Entfernen"

// A hyperlink.
#define DIALOG_TEXT_HYPERLINK_TITLE "Hyperlink bearbeiten"
#define DIALOG_TEXT_HYPERLINK_DISPLAY_TEXT "An&zeigetext:"
#define DIALOG_TEXT_HYPERLINK_ADDRESS "&Adresse:"
#define DIALOG_TEXT_HYPERLINK_OPEN "Ö&ffnen"
#define DIALOG_TEXT_HYPERLINK_EDIT "&Bearbeiten..."
#define DIALOG_TEXT_HYPERLINK_COPY "&Verknüpfung kopieren"
