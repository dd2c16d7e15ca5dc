// Strict judgement of XML texts and files, where CMarkup is lenient.
//
// Well-formed is what Extensible Markup Language 1.0 and Namespaces in XML 1.0 say; expat judges.
// Names are those of the fourth edition (expat also takes U+00AA, U+00B5 and U+00BA for letters),
// and a document that declares version 1.1 is judged as one of 1.0, unless an option says
// otherwise. Only the first fault is reported: what follows a fault cannot be judged. Validity is
// not looked at, and no external entity or document type definition is ever loaded; an entity that
// could be declared in one is let pass. Internal entities are expanded, within expat's limit (100
// times the size of the document where that exceeds 8 MB). Time and memory are linear in the text,
// whatever its nesting. Any thread.
#pragma once

#include <quorvel/framework/string.h>

// What is wrong, and where. Lines end with CR, LF or both.
struct CXMLFault {
    CString strMessage; // in English, without a full stop, as in "mismatched tag"
    int nLine = 0;      // from 1; 0: nothing could be judged, see below
    int nColumn = 0;    // from 1, in characters: a surrogate pair is one
    int nOffset = 0; // from 0, in UTF-16 units of the text; a file's byte order mark is none of it
    // The line around the fault, at most 40 units on either side. A tab is a blank in it, and what
    // cannot be shown (controls, lone surrogates) is U+FFFD.
    CString strSnippet;
    int nCaret = 0; // from 0, the unit of strSnippet that nOffset names; its length at the end
};

// Options; other bits are ignored. Each costs the memory of a second text.
constexpr DWORD CHECK_XML_FIFTH_EDITION = 1; // names of the fifth edition of XML 1.0
// A document that declares version 1.1 is judged by XML 1.1: names as in the fifth edition, control
// characters from 1 on as references ("&#1;") and, tab and line ends apart, as these only, U+0085
// and U+2028 as line ends. Namespaces stay those of 1.0, in which no prefix is undeclared.
constexpr DWORD CHECK_XML_VERSION_1_1 = 2;
// The limits of both: such a name is refused in the text of an entity that writes a character of it
// as a reference; a text with more than 32074 different characters of names cannot be judged.

// TRUE for a well-formed document, with the fault empty; FALSE with the fault filled in. Without
// memory to judge, the fault has line 0.
//
// An encoding that the text's declaration names does not matter. The length is in UTF-16 units; a
// null text or a negative length counts as the empty text, which is a fault. A zero character or a
// byte order mark in the text is one too.
QUORVEL_API BOOL AfxCheckXML(const WCHAR* text, int length, CXMLFault& fault, DWORD options = 0);
QUORVEL_API BOOL AfxCheckXML(const CString& text, CXMLFault& fault, DWORD options = 0);

// The same for a file, in every encoding that AfxLoadXMLFile reads. Unlike there, a file without a
// declaration or byte order mark is read as UTF-8, the encoding's name may stand apart from its
// "=", bytes that mean nothing in the encoding are a fault where they stand (but in UTF-7 and
// ISO-2022, where the platform refuses none), and a declaration that contradicts the byte order
// mark or the width of the characters is a fault at its beginning.
//
// A file that cannot be judged is a fault with line 0, whose message (a catalogue text) says why:
// it cannot be read, is larger than 2147483646 bytes, is UTF-32, or names an encoding that is not
// known.
QUORVEL_API BOOL AfxCheckXMLFile(const WCHAR* fileName, CXMLFault& fault, DWORD options = 0);
