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
