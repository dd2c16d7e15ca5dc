#include <quorvel/xml/open_xml_file.h>

#include <quorvel/framework/file.h>
#include <quorvel/util/text/utf8.h>
#include <quorvel/xml/check_xml.h>
#include <quorvel/xml/xml_file.h>

#include "platform/win32.h"
#include "xml/xml_file_steps.h"

#include <algorithm>
#include <memory>
#include <new>

using namespace quorvel;

namespace {

constexpr UINT kUtf16 = 1200;
constexpr UINT kUtf16BigEndian = 1201;

struct Beginning {
    bool isUndeclared = false; // looks like XML, but says no encoding
    int charSize = 0;
    BOOL isBigEndian = FALSE;
};

Beginning BeginningOf(const WCHAR* fileName) {
    BYTE bytes[16];
    UINT length = 0;
    if (CFile file; file.Open(fileName, CFile::modeRead | CFile::shareDenyNone))
        length = file.Read(bytes, sizeof bytes);
    Beginning beginning;
    CString encoding;
    int markLength = 0;
    const bool isKnown = AfxDetermineXMLFileEncoding(bytes, length, encoding, beginning.isBigEndian,
                                                     beginning.charSize, markLength) != 0;
    beginning.isUndeclared = !isKnown && std::find(bytes, bytes + length, '<') != bytes + length;
    return beginning;
}

bool LoadUndeclared(const WCHAR* fileName, CMarkup& markup, CLengthyOperationHandler* handler) {
    CFile file;
    if (!file.Open(fileName, CFile::modeRead | CFile::shareDenyWrite) ||
        file.GetLength() > 0x7ffffffe)
        return false;
    const auto size = static_cast<UINT>(file.GetLength());
    std::unique_ptr<char[]> bytes(new (std::nothrow) char[size + 1]);
    if (bytes == nullptr)
        AfxThrowMemoryException();
    bytes[file.Read(bytes.get(), size)] = 0;
    Pump(handler);
    CString text;
    if (!AfxUTF8ToWideChar(bytes.get(), text))
        return false;
    bytes.reset();
    Pump(handler);
    return markup.SetDoc(text);
}

void DescribeFault(const WCHAR* fileName, CString& errorText) {
    CXMLFault fault;
    if (!AfxCheckXMLFile(fileName, fault) && fault.nLine > 0)
        errorText.Format(_T("%d:%d: %s"), fault.nLine, fault.nColumn, fault.strMessage.GetString());
}

} // namespace

BOOL AfxOpenXMLFile(const WCHAR* fileName, CMarkup& markup, CString& errorText,
                    CLengthyOperationHandler* handler) {
    errorText.Empty();
    try {
        const Beginning beginning = fileName != nullptr ? BeginningOf(fileName) : Beginning();
        const bool isLoaded = beginning.isUndeclared
                                  ? LoadUndeclared(fileName, markup, handler)
                                  : AfxLoadXMLFile(fileName, markup, errorText, handler) != FALSE;
        if (!isLoaded) {
            if (beginning.isUndeclared) // for the reason
                AfxLoadXMLFile(fileName, markup, errorText, handler);
            Pump(handler);
            DescribeFault(fileName, errorText);
            return FALSE;
        }
        // The loader passes over most declarations of UTF-16.
        if (beginning.charSize == 2)
            markup.SetXMLDeclaration(beginning.isBigEndian
                                         ? _T("<?xml version=\"1.0\" encoding=\"utf-16be\"?>")
                                         : _T("<?xml version=\"1.0\" encoding=\"utf-16\"?>"));
        return TRUE;
    } catch (...) {
        DescribeCurrentException(errorText);
        return FALSE;
    }
}

BOOL AfxCanSaveXMLEncoding(const CMarkup& markup) {
    const unsigned int codePage = markup.GetCodePage();
    return codePage == CP_UTF8 || codePage == kUtf16 || codePage == kUtf16BigEndian;
}
