// What an edit of a document is made of, worked out before anything changes.
#pragma once

#include <quorvel/xml/markup.h>

// Replaces `replaced` characters at `start` by the text.
struct CMarkup::Splice {
    int start = 0;
    int replaced = 0;
    CString text;

    int Shift() const { return text.GetLength() - replaced; }
};

// A new element. Its tags lie where the splice puts them; the text before its "<" belongs to the
// parent.
struct CMarkup::NewElem {
    Splice splice;
    ElemPos element{};
    int iAfter = 0;              // the sibling to link it after, 0 for none
    bool parentWasEmpty = false; // the parent's "/" becomes its content and end tag,
    int parentNameLength = 0;    // with a name this long

    void Move(int shift) {
        splice.start += shift;
        element.nTagOpen += shift;
        element.nTagClose += shift;
        element.nEndTagOpen += shift;
        element.nEndTagClose += shift;
    }
};
