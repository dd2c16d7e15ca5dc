// Escaping for XML: entity references and CDATA sections.
//
// Any thread. A null text gives an empty text.
#pragma once

#include <quorvel/framework/string.h>

// Non-zero when the text contains one of & < > ' " ; 0 for null.
QUORVEL_API BOOL AfxDoesTextContainXMLEscapeCharacters(const WCHAR* text);
// Replaces the five characters by &amp; &lt; &gt; &apos; and &quot;, ampersands first.
QUORVEL_API CString AfxAddXMLEntityReferences(const WCHAR* text);
// The reverse, ampersands last.
QUORVEL_API CString AfxStripXMLEntityReferences(const WCHAR* text);
// <![CDATA[text]]>. Every "]]>" in the text becomes "]]&gt;", so that the section cannot end early.
// Null gives an empty text, not an empty section.
QUORVEL_API CString AfxAddCDATATags(const WCHAR* text);
// The content of the first CDATA section; without one, the text unchanged. "]]&gt;" stays.
QUORVEL_API CString AfxStripCDATATags(const WCHAR* text);
// As AfxAddXMLEntityReferences and AfxAddCDATATags, but only if the text needs it.
QUORVEL_API CString AfxAutoAddXMLEntityReferences(const WCHAR* text);
QUORVEL_API CString AfxAutoAddCDATATags(const WCHAR* text);
