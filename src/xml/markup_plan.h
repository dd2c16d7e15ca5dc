// The plan of an edit, complete before anything changes.
#pragma once

#include <quorvel/xml/markup.h>

// Replaces `replaced` characters at `start` by `text`.
struct CMarkup::Splice {
    int start = 0;
    int replaced = 0;
    CString text;

    int Shift() const { return text.GetLength() - replaced; }
};

// A new element. The positions of its tags are those after the splice. The text before its "<"
// belongs to the parent.
struct CMarkup::NewElem {
    Splice splice;
    ElemPos element{};
    int iAfter = 0;              // its previous sibling; 0 if it has none
    bool parentWasEmpty = false; // the "/" of the parent becomes its content and end tag
    int parentNameLength = 0;    // the length of the parent's name in that case

    void Move(int shift) {
        splice.start += shift;
        element.nTagOpen += shift;
        element.nTagClose += shift;
        element.nEndTagOpen += shift;
        element.nEndTagClose += shift;
    }
};
