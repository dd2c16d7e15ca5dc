// Reads any bytes as a file: its detected encoding, whether it loads, and whether a document is the
// same after it was saved and loaded again.
#include "fuzz_input.h"
#include "support/temporary_folder.h"

#include <quorvel/xml/xml_file.h>

namespace {

void CheckDetection(const std::uint8_t* data, std::size_t size) {
    CString encoding;
    BOOL bigEndian;
    int charSize, bomLength;
    const int known = AfxDetermineXMLFileEncoding(data, static_cast<DWORD>(size), encoding,
                                                  bigEndian, charSize, bomLength);
    Require((known != 0) == (charSize != 0));
    Require(known != 0 || (encoding.IsEmpty() && !bigEndian && bomLength == 0));
    Require(bomLength >= 0 && static_cast<std::size_t>(bomLength) <= size);
}

// For UTF-16 the stored declaration may include text after its end. Then only a part of it is found
// again.
bool EndsOnce(const CString& declaration) {
    return declaration.Find(_T("?>")) == declaration.GetLength() - 2;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const TemporaryFolder s_folder;
    CheckDetection(data, size);
    s_folder.Write(_T("file.xml"), std::string(reinterpret_cast<const char*>(data), size));
    const CString path = s_folder.Path(_T("file.xml"));

    CMarkup markup;
    CString error;
    const bool loaded = AfxLoadXMLFile(path, markup, error) != 0;
    Require(loaded == error.IsEmpty() && loaded == markup.IsWellFormed());
    if (!loaded || !AfxSaveXMLFile(markup, path, error) || !EndsOnce(markup.GetXMLDeclaration()))
        return 0;
    CMarkup again;
    Require(AfxLoadXMLFile(path, again, error) != 0);
    Require(again.GetDoc().GetLength() == markup.GetDoc().GetLength());
    Require(again.GetDoc() == markup.GetDoc());
    return 0;
}
