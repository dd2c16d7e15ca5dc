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

// Capturing the next key that is pressed.
#define DIALOG_TEXT_CAPTURE_TITLE "Taste erfassen"
#define DIALOG_TEXT_CAPTURE_PROMPT "Drücken Sie die Taste für die Tastenkombination."

// Assigning a key to a command.
#define DIALOG_TEXT_ASSIGN_TITLE "Taste zuweisen"
#define DIALOG_TEXT_ASSIGN_COMMAND "Befehl:"
#define DIALOG_TEXT_ASSIGN_KEY "Neue &Taste drücken:"
#define DIALOG_TEXT_ASSIGN_REPORT "&Hinweise:"
#define DIALOG_TEXT_ASSIGN_ASSIGN "Zu&weisen"
#define DIALOG_TEXT_ASSIGN_CLEAR "&Entfernen"

// Editing a hyperlink.
#define DIALOG_TEXT_HYPERLINK_TITLE "Hyperlink bearbeiten"
#define DIALOG_TEXT_HYPERLINK_DISPLAY_TEXT "An&zeigetext:"
#define DIALOG_TEXT_HYPERLINK_ADDRESS "&Adresse:"
#define DIALOG_TEXT_HYPERLINK_OPEN "Ö&ffnen"
#define DIALOG_TEXT_HYPERLINK_EDIT "&Bearbeiten..."
#define DIALOG_TEXT_HYPERLINK_COPY "&Verknüpfung kopieren"

// The check for updates.
#define DIALOG_TEXT_UPDATES_TITLE "Nach Updates suchen"
#define DIALOG_TEXT_UPDATES_LIST "&Neueste Updates:"
#define DIALOG_TEXT_UPDATES_CHECK "&Suchen"
#define DIALOG_TEXT_UPDATES_SETTINGS "&Einstellungen..."
#define DIALOG_TEXT_UPDATES_RESET "&Zurücksetzen"
#define DIALOG_TEXT_UPDATES_ENTRY_TITLE "Titel:"
#define DIALOG_TEXT_UPDATES_ENTRY_DATE "Datum:"
#define DIALOG_TEXT_UPDATES_ENTRY_DESCRIPTION "&Beschreibung:"
#define DIALOG_TEXT_UPDATES_ENTRY_LINK "&Verweis:"
#define DIALOG_TEXT_UPDATES_CLOSE "Schließen"

// The settings of that check.
#define DIALOG_TEXT_UPDATES_SETTINGS_TITLE "Einstellungen der Updatesuche"
#define DIALOG_TEXT_UPDATES_URL "&URL der Updatedatei:"
#define DIALOG_TEXT_UPDATES_REMIND "&An die Suche nach Updates erinnern nach:"
#define DIALOG_TEXT_UPDATES_DAYS "Tagen (1-90)"

// The reminder of that check.
#define DIALOG_TEXT_UPDATES_REMINDER_TITLE "Erinnerung an die Updatesuche"
#define DIALOG_TEXT_UPDATES_REMINDER_QUESTION "Möchten Sie jetzt nach Updates suchen?"
#define DIALOG_TEXT_UPDATES_YES "&Ja"
#define DIALOG_TEXT_UPDATES_NO "&Nein"
#define DIALOG_TEXT_UPDATES_DISMISS "&Verwerfen"

// The check for a new version.
#define DIALOG_TEXT_NEW_VERSION_TITLE "Nach Updates suchen"
#define DIALOG_TEXT_NEW_VERSION_WAIT "Nach Updates wird gesucht. Bitte warten..."
