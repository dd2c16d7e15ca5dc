// CShortcutProblem: what is wrong in stored keyboard shortcuts, row by row.
#pragma once

#include <quorvel/framework/string.h>

struct CShortcutProblem {
    enum Kind {
        unknownCommand,   // the scheme has no such command
        duplicateCommand, // an earlier row names it too
        duplicateKey,     // an earlier row gives the key to another command
        invalidCommand,   // no number of a command
        invalidKey,       // text or numbers are no key, or contradict each other
        newerFormat,      // of all rows: a later version has written them
        otherContent,     // of all rows: no keyboard shortcuts
        damaged           // of all rows: not well-formed
    };
    Kind nKind = damaged;
    int nRow = 0;       // from 1; 0 for all rows
    CString strMessage; // a sentence in the user's language
};
