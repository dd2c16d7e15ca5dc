// Reads any bytes as a file: its detected encoding, whether it loads, and whether a document is the
// same after it was saved and loaded again.
#include "fuzz_input.h"
#include "support/temporary_folder.h"

#include <quorvel/xml/xml_file.h>

static void CheckDetection(const std::vector<BYTE>& bytes) {
    CString encoding;
    BOOL bigEndian;
    int charSize, bomLength;
    const int known = AfxDetermineXMLFileEncoding(bytes.data(), static_cast<DWORD>(bytes.size()),
                                                  encoding, bigEndian, charSize, bomLength);
    Require((known != 0) == (charSize != 0));
    Require(known != 0 || (encoding.IsEmpty() && !bigEndian && bomLength == 0));
    Require(bomLength >= 0 && static_cast<std::size_t>(bomLength) <= bytes.size());
}

// For UTF-16 the stored declaration may include text after its end. Then only a part of it is found
// again.
static bool EndsOnce(const CString& declaration) {
    return declaration.Find(_T("?>")) == declaration.GetLength() - 2;
}

FUZZ_TARGET(input) {
    static const TemporaryFolder s_folder;
    CheckDetection(input.Block());
    s_folder.Write(_T("file.xml"), input.Bytes());
    const CString path = s_folder.Path(_T("file.xml"));
    CMarkup markup, again;
    CString error;
    const bool loaded = AfxLoadXMLFile(path, markup, error) != 0;
    Require(loaded == error.IsEmpty() && loaded == markup.IsWellFormed());
    if (!loaded || !AfxSaveXMLFile(markup, path, error) || !EndsOnce(markup.GetXMLDeclaration()))
        return;
    Require(AfxLoadXMLFile(path, again, error) != 0 && again.GetDoc() == markup.GetDoc());
}
