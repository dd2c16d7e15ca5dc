// The ids of the dialogs, menus, controls and commands.
//
// Resource scripts and sources include it. A host uses the ids to show a menu of the library, to
// find a control of a dialog that it derives from, and to place the two buttons in a template of
// its own; a language library has the same dialogs and menus under the same ids. Ids are a
// published contract: they are never renumbered or reused.
#pragma once

// The progress box.
#define QUORVEL_DIALOG_PROGRESS 24000
#define QUORVEL_PROGRESS_STATUS 24001
#define QUORVEL_PROGRESS_BAR 24002

// The columns of a list: its dialog, and the menu of its header. The header's menu has an item for
// each column, FIRST plus the column's number.
#define QUORVEL_DIALOG_COLUMNS 21580
#define QUORVEL_COLUMNS_WIDTH 21581
#define QUORVEL_COLUMNS_LIST 21582
#define QUORVEL_COLUMNS_MOVE_UP 21583
#define QUORVEL_COLUMNS_MOVE_DOWN 21584
#define QUORVEL_COLUMNS_RESET 21585
#define QUORVEL_MENU_COLUMNS 24029
#define QUORVEL_COMMAND_COLUMNS 50007
#define QUORVEL_COMMAND_COLUMN_FIRST 50900
#define QUORVEL_COMMAND_COLUMN_LAST 50950

// The next key that is pressed.
#define QUORVEL_DIALOG_CAPTURE_SHORTCUT_KEY 21590

// A key for a command.
#define QUORVEL_DIALOG_ASSIGN_SHORTCUT 24100
#define QUORVEL_ASSIGN_COMMAND 24101
#define QUORVEL_ASSIGN_KEY 24102
#define QUORVEL_ASSIGN_REPORT 24103
#define QUORVEL_ASSIGN_CLEAR 24104

// A hyperlink: its hand cursor, its menu, and the dialog that edits it.
#define QUORVEL_CURSOR_HAND 23121
#define QUORVEL_MENU_HYPERLINK 24021
#define QUORVEL_COMMAND_LINK_OPEN 50000
#define QUORVEL_COMMAND_LINK_EDIT 50001
#define QUORVEL_COMMAND_LINK_COPY 50003
#define QUORVEL_DIALOG_EDIT_HYPERLINK 24007
#define QUORVEL_LINK_DISPLAY_TEXT 23122
#define QUORVEL_LINK_ADDRESS 23123

// Two buttons that each dialog may have; the dialog bases subclass them where they are present.
#define QUORVEL_DIALOG_BUTTON_1 23010
#define QUORVEL_DIALOG_BUTTON_2 23011
