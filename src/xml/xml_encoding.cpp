#include <quorvel/xml/xml_file.h>

#include <algorithm>

namespace {

// The first bytes that identify a file's encoding. The first matching row decides.
struct Beginning {
    BYTE bytes[4];
    int length;
    const WCHAR* encoding;
    BOOL bigEndian;
    int charSize;
    int bomLength;
    bool moreThanZeros; // bytes 2 and 3 must not both be zero
};

constexpr Beginning kBeginnings[] = {
    {{0xef, 0xbb, 0xbf}, 3, _T("utf-8"), FALSE, 1, 3, false},
    {{0x00, 0x00, 0xfe, 0xff}, 4, _T("utf-32be"), TRUE, 4, 4, false},
    {{0xff, 0xfe, 0x00, 0x00}, 4, _T("utf-32le"), FALSE, 4, 4, false},
    {{0xfe, 0xff}, 2, _T("utf-16be"), TRUE, 2, 2, true},
    {{0xff, 0xfe}, 2, _T("utf-16le"), FALSE, 2, 2, true},
    {{0x00, 0x00, 0x00, '<'}, 4, _T("utf-32be"), TRUE, 4, 0, false},
    {{'<', 0x00, 0x00, 0x00}, 4, _T("utf-32le"), FALSE, 4, 0, false},
    {{0x00, '<', 0x00, '?'}, 4, _T("utf-16be"), TRUE, 2, 0, false},
    {{'<', 0x00, '?', 0x00}, 4, _T("utf-16le"), FALSE, 2, 0, false},
    {{'<', '?', 'x', 'm'}, 4, _T(""), FALSE, 1, 0, false},
    {{0x4c, 0x6f, 0xa7, 0x94}, 4, _T("ebcdic"), FALSE, 1, 0, false},
};

bool Fits(const Beginning& beginning, const BYTE* bytes, DWORD length) {
    const DWORD needed = beginning.length == 3 ? 3 : 4;
    return length >= needed && std::equal(bytes, bytes + beginning.length, beginning.bytes) &&
           (!beginning.moreThanZeros || bytes[2] != 0 || bytes[3] != 0);
}

} // namespace

int AfxDetermineXMLFileEncoding(const BYTE* bytes, DWORD length, CString& encoding, BOOL& bigEndian,
                                int& charSize, int& bomLength) {
    encoding.Empty();
    bigEndian = FALSE;
    charSize = bomLength = 0;
    for (const Beginning& beginning : kBeginnings) {
        if (bytes == nullptr || !Fits(beginning, bytes, length))
            continue;
        encoding = beginning.encoding;
        bigEndian = beginning.bigEndian;
        charSize = beginning.charSize;
        bomLength = beginning.bomLength;
        return TRUE;
    }
    return FALSE;
}
