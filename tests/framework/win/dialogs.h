// Ids of the test's resources; the resource compiler includes this too.
#pragma once

#define DIALOG_FIELDS 101
#define DIALOG_FIRST_PAGE 103
#define DIALOG_SECOND_PAGE 104
#define DIALOG_MISSING 199

#define FIELD_TEXT 1001
#define FIELD_NUMBER 1002
#define FIELD_RADIO 1010
#define FIELD_LIST 1020
#define FIELD_CHOICE 1030
#define FIELD_COMBO 1031
#define FIELD_BUTTON 1040

#define COMMAND_ENABLED 3001
#define ACCELERATORS_KEYS 401
