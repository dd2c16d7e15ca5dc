// Checks any bytes as a UTF-16 text and as a file. A fault must have a position in the text and a
// snippet that contains its caret.
#include <quorvel/xml/check_xml.h>

#include "fuzz_input.h"
#include "support/temporary_folder.h"

static void CheckFault(BOOL wellFormed, const CXMLFault& fault, int length) {
    Require(wellFormed == fault.strMessage.IsEmpty());
    Require(fault.nOffset >= 0 && fault.nOffset <= length);
    Require(fault.nLine == 0 || (fault.nColumn >= 1 && fault.nLine <= fault.nOffset + 1));
    Require(fault.strSnippet.GetLength() <= 80);
    Require(fault.nCaret >= 0 && fault.nCaret <= fault.strSnippet.GetLength());
}

FUZZ_TARGET(input) {
    static const TemporaryFolder s_folder;
    CXMLFault fault;
    const std::vector<WCHAR> text = input.Units();
    const int length = static_cast<int>(text.size()) - 1;
    for (const DWORD options : {DWORD{0}, DWORD{CHECK_XML_FIFTH_EDITION | CHECK_XML_VERSION_1_1}})
        CheckFault(AfxCheckXML(text.data(), length, fault, options), fault, length);
    s_folder.Write(_T("file.xml"), input.Bytes());
    CheckFault(AfxCheckXMLFile(s_folder.Path(_T("file.xml")), fault), fault, INT_MAX);
}
