#include "xml/piecewise_text.h"

#include "platform/win32.h"
#include "support/temporary_folder.h"
#include "support/test.h"

namespace {

using std::string;

CString Converted(UINT codePage, const string& bytes) {
    CString text;
    const int size = static_cast<int>(bytes.size());
    text.ReleaseBuffer(
        MultiByteToWideChar(codePage, 0, bytes.data(), size, text.GetBuffer(size), size));
    return text;
}

// The text when only the first bytes were read so far. The expected length may be too large.
// may be expected than there are.
CString Read(const TemporaryFolder& folder, UINT codePage, const string& bytes, std::size_t head,
             int missing) {
    folder.Write(_T("rest"), bytes.substr(head));
    CFile file(folder.Path(_T("rest")), CFile::modeRead | CFile::shareDenyNone);
    return quorvel::ReadTextInPieces(file, std::string_view(bytes).substr(0, head),
                                     static_cast<int>(bytes.size() - head) + missing, codePage);
}

} // namespace

TEST(PiecewiseText, IsTheSameWhereverItIsCut) {
    const std::tuple<UINT, string> rows[] = {
        {CP_UTF8, "a\xc3\xa9\xe2\x82\xac\xf0\x9f\x98\x80z"},
        {CP_UTF8, "\xe2\x82\xf0\x9f\x98\xe2\xc3z\xed\xa0\x80\x80\x80\x80\x80zzz"}, // ill-formed
        {CP_UTF8, "a\xf3z\xe2yx\xf3wv\xf3\xf3uvwxyz"},
        {1252, "a\x80\xe9z"},
    };
    const TemporaryFolder folder;
    for (const auto& [codePage, bytes] : rows)
        for (std::size_t head = 0; head <= bytes.size(); ++head)
            for (const int missing : {0, 5})
                EXPECT_EQ(Read(folder, codePage, bytes, head, missing), Converted(codePage, bytes))
                    << codePage << ' ' << head;
    for (const char* sequence : {"\xc3\xa9", "\xe2\x82\xac", "\xf0\x9f\x98\x80"}) {
        string bytes;
        while (bytes.size() < 200000) // several pieces; their borders split all sequences
            bytes += sequence;
        for (std::size_t head = 1; head < 9; ++head)
            EXPECT_TRUE(Read(folder, CP_UTF8, bytes, head, 0) == Converted(CP_UTF8, bytes)) << head;
    }
}
