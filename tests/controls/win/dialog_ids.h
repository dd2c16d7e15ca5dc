// The dialogs of these tests and their controls.
#pragma once

#define DIALOG_NAME 100
#define DIALOG_OTHER 101
#define PAGE_FIRST 102
#define PAGE_SECOND 103
#define PAGE_THIRD 104
#define PAGE_UNTITLED 105
#define DIALOG_LISTS 106
#define PAGE_LISTS 107

#define FIELD_NAME 110
#define FIELD_NOTE 111
#define FIELD_LABEL 112
#define FIELD_LIST 113
#define FIELD_SECOND_LIST 114
#define FIELD_THIRD_LIST 115
