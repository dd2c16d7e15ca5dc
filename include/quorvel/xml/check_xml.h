// Strict validation of the syntax of XML texts and files; CMarkup is lenient.
//
// A text is well-formed if it follows Extensible Markup Language 1.0 and Namespaces in XML 1.0;
// expat decides. Names follow the fourth edition (expat also accepts U+00AA, U+00B5 and U+00BA as
// letters), and a document that declares version 1.1 is read as 1.0, unless an option changes that.
// Only the first fault is reported, since what follows it cannot be checked. Validity against a DTD
// is not checked, and no external entity or document type definition is ever loaded; an entity that
// one of these could declare is accepted. Internal entities are expanded, within expat's limit (100
// times the size of the document, once that exceeds 8 MB). Time and memory are linear in the text,
// at any depth of nesting. Any thread.
#pragma once

#include <quorvel/framework/string.h>

// What is wrong, and where. A line ends with CR, LF or CR LF.
struct CXMLFault {
    CString strMessage; // in English, without a full stop, as in "mismatched tag"
    int nLine = 0;      // from 1; 0: the text could not be checked, see below
    int nColumn = 0;    // from 1, in characters: a surrogate pair is one
    int nOffset = 0;    // from 0, in UTF-16 units of the text, without a file's byte order mark
    // The line around the fault, at most 40 units on each side. In it a tab is a blank, and what
    // cannot be shown (controls, lone surrogates) is U+FFFD.
    CString strSnippet;
    int nCaret = 0; // from 0, the position of nOffset in strSnippet; may be its length
};

// Options; other bits are ignored. Each costs the memory of a second text.
constexpr DWORD CHECK_XML_FIFTH_EDITION = 1; // names of the fifth edition of XML 1.0
// Reads a document that declares version 1.1 by XML 1.1: names as in the fifth edition; control
// characters from 1 on as references ("&#1;") and, except tab and line ends, only as these; U+0085
// and U+2028 are line ends. Namespaces stay those of 1.0, where no prefix can be undeclared.
constexpr DWORD CHECK_XML_VERSION_1_1 = 2;
// Both options refuse such a name if the text of an entity writes one of its characters as a
// reference, and cannot check a text with more than 32074 different name characters.

// TRUE for a well-formed document, with an empty fault; FALSE with the fault filled in. When memory
// cannot be allocated, the fault has line 0.
//
// The encoding that the declaration names is ignored. The length is in UTF-16 units. A null text or
// a negative length counts as the empty text, which is a fault. So is a zero character or a byte
// order mark in the text.
QUORVEL_API BOOL AfxCheckXML(const WCHAR* text, int length, CXMLFault& fault, DWORD options = 0);
QUORVEL_API BOOL AfxCheckXML(const CString& text, CXMLFault& fault, DWORD options = 0);

// The same for a file, in every encoding that AfxLoadXMLFile reads. Differences: a file without
// declaration and byte order mark is read as UTF-8; blanks may surround the "=" before the
// encoding's name; bytes that are invalid in the encoding are a fault at their position (except in
// UTF-7 and ISO-2022, where the platform accepts all); and a declaration that contradicts the byte
// order mark or the width of the characters is a fault at its beginning.
//
// A file that cannot be checked gives a fault with line 0, whose message (a catalogue text) gives
// the reason: it cannot be read, is larger than 2147483646 bytes, is in UTF-32, or names an unknown
// encoding.
QUORVEL_API BOOL AfxCheckXMLFile(const WCHAR* fileName, CXMLFault& fault, DWORD options = 0);
