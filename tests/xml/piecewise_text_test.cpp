#include "xml/piecewise_text.h"

#include "platform/win32.h"
#include "support/temporary_folder.h"
#include "support/test.h"

using std::string;

TEST(PiecewiseText, IsTheSameWhereverItIsCut) {
    const TemporaryFolder folder;
    // The text when only the first bytes were read so far; more may be expected than there are.
    const auto expectText = [&folder](UINT codePage, const string& bytes, std::size_t head,
                                      int missing) {
        folder.Write(_T("rest"), bytes.substr(head));
        CFile file(folder.Path(_T("rest")), CFile::modeRead | CFile::shareDenyNone);
        const int size = static_cast<int>(bytes.size());
        CString whole;
        whole.ReleaseBuffer(
            MultiByteToWideChar(codePage, 0, bytes.data(), size, whole.GetBuffer(size), size));
        EXPECT_TRUE(quorvel::ReadTextInPieces(file, std::string_view(bytes).substr(0, head),
                                              size - static_cast<int>(head) + missing,
                                              codePage) == whole)
            << codePage << ' ' << head;
    };
    const std::tuple<UINT, string> rows[] = {
        {CP_UTF8, "a\xc3\xa9\xe2\x82\xac\xf0\x9f\x98\x80z"},
        {CP_UTF8, "\xe2\x82\xf0\x9f\x98\xe2\xc3z\xed\xa0\x80\x80\x80\x80\x80zzz"}, // ill-formed
        {CP_UTF8, "a\xf3z\xe2yx\xf3wv\xf3\xf3uvwxyz"},
        {1252, "a\x80\xe9z"},
    };
    for (const auto& [codePage, bytes] : rows)
        for (std::size_t head = 0; head <= bytes.size(); ++head)
            for (const int missing : {0, 5})
                expectText(codePage, bytes, head, missing);
    for (const char* sequence : {"\xc3\xa9", "\xe2\x82\xac", "\xf0\x9f\x98\x80"}) {
        string bytes;
        while (bytes.size() < 200000) // several pieces; their borders split all sequences
            bytes += sequence;
        for (std::size_t head = 1; head < 9; ++head)
            expectText(CP_UTF8, bytes, head, 0);
    }
}
