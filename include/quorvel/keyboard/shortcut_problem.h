// CShortcutProblem: a problem in stored keyboard shortcuts, by row. Copyable.
#pragma once

#include <quorvel/framework/string.h>

struct CShortcutProblem {
    enum Kind {           // why a row, or everything, was refused
        unknownCommand,   // the command is not in the scheme
        duplicateCommand, // earlier rows have the command for all its shortcuts
        duplicateKey,     // an earlier row has the key
        invalidCommand,   // not the number of a command
        invalidKey,       // invalid text or numbers, or they contradict each other
        newerFormat,      // all rows: written by a later version
        otherContent,     // all rows: not keyboard shortcuts
        damaged           // all rows: not well-formed
    };
    Kind nKind = damaged; // what is wrong
    int nRow = 0;         // from 1; 0 for all rows
    CString strMessage;   // a sentence in the user's language
};
