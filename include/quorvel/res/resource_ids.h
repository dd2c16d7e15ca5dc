// The ids of the dialogs, menus, controls and commands.
//
// Resource scripts and sources include this header. A host uses the ids to show a menu of the
// library, to find a control of a dialog that it derives from, and to place the two buttons in a
// template of its own. A language library has the same dialogs and menus with the same ids. Ids are
// a published contract: they are never renumbered or reused.
#pragma once

// The progress box.
#define QUORVEL_DIALOG_PROGRESS 24000
#define QUORVEL_PROGRESS_STATUS 24001
#define QUORVEL_PROGRESS_BAR 24002

// The columns of a list: the dialog, and the menu of the header. The menu has an item for each
// column: FIRST plus the column's number.
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

// The dialog that captures the next key.
#define QUORVEL_DIALOG_CAPTURE_SHORTCUT_KEY 21590

// The dialog that assigns a key to a command.
#define QUORVEL_DIALOG_ASSIGN_SHORTCUT 24100
#define QUORVEL_ASSIGN_COMMAND 24101
#define QUORVEL_ASSIGN_KEY 24102
#define QUORVEL_ASSIGN_REPORT 24103
#define QUORVEL_ASSIGN_CLEAR 24104

// The hyperlink: its hand cursor, its menu, and the dialog that edits it.
#define QUORVEL_CURSOR_HAND 23121
#define QUORVEL_MENU_HYPERLINK 24021
#define QUORVEL_COMMAND_LINK_OPEN 50000
#define QUORVEL_COMMAND_LINK_EDIT 50001
#define QUORVEL_COMMAND_LINK_COPY 50003
#define QUORVEL_DIALOG_EDIT_HYPERLINK 24007
#define QUORVEL_LINK_DISPLAY_TEXT 23122
#define QUORVEL_LINK_ADDRESS 23123

// Two buttons that each dialog may have; the dialog base classes subclass them if they exist.
#define QUORVEL_DIALOG_BUTTON_1 23010
#define QUORVEL_DIALOG_BUTTON_2 23011

// The check for updates: its dialog, its progress panes, its settings and its reminder; and the
// check for a new version.
#define QUORVEL_DIALOG_UPDATES 24014
#define QUORVEL_DIALOG_UPDATES_CHECKING 24015
#define QUORVEL_DIALOG_UPDATES_DOWNLOADING 24016
#define QUORVEL_DIALOG_UPDATES_SETTINGS 24017
#define QUORVEL_DIALOG_UPDATES_REMINDER 24018
#define QUORVEL_DIALOG_NEW_VERSION 21550
#define QUORVEL_UPDATES_LIST_LABEL 24200
#define QUORVEL_UPDATES_LIST 24201
#define QUORVEL_UPDATES_CHECK 24202
#define QUORVEL_UPDATES_OPEN_SETTINGS 24203
#define QUORVEL_UPDATES_RESET 24204
#define QUORVEL_UPDATES_TITLE_LABEL 24205
#define QUORVEL_UPDATES_TITLE 24206
#define QUORVEL_UPDATES_DATE_LABEL 24207
#define QUORVEL_UPDATES_DATE 24208
#define QUORVEL_UPDATES_DESCRIPTION_LABEL 24209
#define QUORVEL_UPDATES_DESCRIPTION 24210
#define QUORVEL_UPDATES_LINK_LABEL 24211
#define QUORVEL_UPDATES_LINK 24212
#define QUORVEL_UPDATES_PUBLISHED 24213
#define QUORVEL_UPDATES_LAST_CHECKED 24214
#define QUORVEL_UPDATES_PROGRESS_TEXT 24215
#define QUORVEL_UPDATES_PROGRESS_FIGURES 24216
#define QUORVEL_UPDATES_PROGRESS_BAR 24217
#define QUORVEL_UPDATES_URL 24220
#define QUORVEL_UPDATES_REMIND 24221
#define QUORVEL_UPDATES_DAYS 24222
#define QUORVEL_UPDATES_DAYS_SPIN 24223
#define QUORVEL_UPDATES_REMINDER_STATUS 24225
#define QUORVEL_UPDATES_DISMISS 24226
