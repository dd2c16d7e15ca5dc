// Checks any bytes as a UTF-16 text and as a file. A fault must have a position in the text and a
// snippet that contains its caret.
#include <quorvel/xml/check_xml.h>

#include "fuzz_input.h"
#include "support/temporary_folder.h"

namespace {

void CheckFault(BOOL wellFormed, const CXMLFault& fault) {
    Require(wellFormed == fault.strMessage.IsEmpty());
    if (fault.nLine == 0)
        return;
    Require(fault.nColumn >= 1 && fault.nOffset >= 0 && fault.nLine <= fault.nOffset + 1);
    Require(fault.strSnippet.GetLength() <= 80);
    Require(fault.nCaret >= 0 && fault.nCaret <= fault.strSnippet.GetLength());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const TemporaryFolder s_folder;
    if (size > 1 << 16)
        return 0;
    CXMLFault fault;
    const std::vector<WCHAR> text = FuzzInput(data, size).Units();
    const std::size_t length = text.size() - 1;
    const BOOL wellFormed = AfxCheckXML(text.data(), static_cast<int>(length), fault);
    CheckFault(wellFormed, fault);
    Require(fault.nOffset <= static_cast<int>(length));
    CheckFault(AfxCheckXML(text.data(), static_cast<int>(length), fault,
                           CHECK_XML_FIFTH_EDITION | CHECK_XML_VERSION_1_1),
               fault);
    Require(fault.nOffset <= static_cast<int>(length));

    s_folder.Write(_T("file.xml"), FuzzInput(data, size).Bytes());
    CheckFault(AfxCheckXMLFile(s_folder.Path(_T("file.xml")), fault), fault);
    return 0;
}
