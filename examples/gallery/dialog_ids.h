// The dialogs of the gallery and their controls.
#pragma once

#define DIALOG_CONNECTION 100
#define PAGE_VIEW 101
#define PAGE_FILES 102
#define PAGE_WELCOME 103
#define PAGE_SOURCE 104
#define PAGE_COMPLETING 105

#define FIELD_SERVER 110
#define FIELD_PORT 111
#define FIELD_HEADING 112
#define FIELD_EVENTS 113
