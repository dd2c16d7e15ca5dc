#include <quorvel/framework/file.h>
#include <quorvel/util/text/md5.h>

#include "support/temporary_folder.h"
#include "support/test.h"

using namespace quorvel::win32;

static const BYTE* Bytes(const std::string& text) {
    return reinterpret_cast<const BYTE*>(text.data());
}
const std::string kMillion(1000000, 'a');
const char* const kMillionsChecksum = "7707d6ae4e027c70eea2a935c2296f21";

TEST(Md5, PublishedVectorsAndEveryPadding) {
    const std::tuple<std::string, const char*> rows[] = {
        {"", "d41d8cd98f00b204e9800998ecf8427e"},
        {"a", "0cc175b9c0f1b6a831c399e269772661"},
        {std::string(55, 'a'), "ef1772b6dff9a122358552954ad0df65"},
        {std::string(56, 'a'), "3b0c8ac703f828b04c6c197006d17218"},
        {std::string(64, 'a'), "014842d480b571495a4a0363793f7367"},
        {kMillion, kMillionsChecksum},
    };
    for (const auto& [message, checksum] : rows)
        for (const BOOL upperCase : {FALSE, TRUE}) {
            CStringA text, expected(checksum);
            EXPECT_TRUE(AfxGenerateMD5Checksum(
                Bytes(message), static_cast<unsigned>(message.size()), text, upperCase));
            EXPECT_EQ(text, upperCase ? expected.MakeUpper() : expected) << message.size();
        }
}

TEST(Md5, UpdatesOfAnySizeGiveTheDigestOfTheWhole) {
    for (const unsigned piece : {1u, 7u, 63u, 64u, 65u, 1000u}) {
        MD5_CTX context;
        AfxMD5Init(&context);
        for (unsigned done = 0; done < 1000000; done += piece)
            AfxMD5Update(&context, Bytes(kMillion) + done, std::min(piece, 1000000 - done));
        BYTE digest[16];
        AfxMD5Final(digest, &context);
        CStringA text;
        AfxFormatMD5Checksum(digest, text, FALSE);
        EXPECT_EQ(text, kMillionsChecksum) << piece;
    }
}

TEST(Md5, FilesAreReadFromTheirPositionToTheirEnd) {
    const TemporaryFolder folder;
    const CString path = folder.Path(_T("file")), missing = folder.Path(_T("missing"));
    folder.Write(_T("file"), kMillion);
    CStringA text;
    EXPECT_TRUE(AfxGenerateFileMD5Checksum(path, text));
    EXPECT_EQ(ErrorOf([&] { return AfxGenerateFileMD5Checksum(missing, text); }),
              DWORD{ERROR_FILE_NOT_FOUND});
    EXPECT_FALSE(AfxGenerateFileMD5Checksum(nullptr, text));
    EXPECT_EQ(text, kMillionsChecksum);

    folder.Write(_T("file"), "skipped abc");
    const HANDLE file =
        CreateFileW(path, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    LARGE_INTEGER distance;
    distance.QuadPart = 8;
    EXPECT_TRUE(SetFilePointerEx(file, distance, nullptr, FILE_BEGIN));
    EXPECT_TRUE(AfxGenerateFileMD5Checksum(file, text));
    EXPECT_EQ(text, "900150983cd24fb0d6963f7d28e17f72");
    EXPECT_TRUE(CloseHandle(file));
    EXPECT_FALSE(AfxGenerateFileMD5Checksum(file, text)); // the read fails
    EXPECT_EQ(text, "");
}
