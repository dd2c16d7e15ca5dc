#include <quorvel/framework/file.h>
#include <quorvel/util/text/md5.h>

#include "support/temporary_folder.h"
#include "support/test.h"

using namespace quorvel::win32;

namespace {

const BYTE* Bytes(const std::string& text) {
    return reinterpret_cast<const BYTE*>(text.data());
}

// The published vectors, and lengths around the one where the padding needs a second block.
const struct {
    const char* label;
    std::string message;
    const char* checksum;
} kVectors[] = {
    {"empty", "", "d41d8cd98f00b204e9800998ecf8427e"},
    {"a", "a", "0cc175b9c0f1b6a831c399e269772661"},
    {"digits", "12345678901234567890123456789012345678901234567890123456789012345678901234567890",
     "57edf4a22be3c955ac49da2e2107b67a"},
    {"55 bytes", std::string(55, 'a'), "ef1772b6dff9a122358552954ad0df65"},
    {"56 bytes", std::string(56, 'a'), "3b0c8ac703f828b04c6c197006d17218"},
    {"64 bytes", std::string(64, 'a'), "014842d480b571495a4a0363793f7367"},
    {"one million", std::string(1000000, 'a'), "7707d6ae4e027c70eea2a935c2296f21"},
};

} // namespace

TEST(Md5, PublishedVectors) {
    for (const auto& [label, message, checksum] : kVectors)
        for (const BOOL upperCase : {FALSE, TRUE}) {
            CStringA text, expected(checksum);
            EXPECT_TRUE(AfxGenerateMD5Checksum(
                Bytes(message), static_cast<unsigned>(message.size()), text, upperCase));
            EXPECT_EQ(text, upperCase ? expected.MakeUpper() : expected) << label;
        }
}

TEST(Md5, UpdatesOfAnySizeGiveTheDigestOfTheWhole) {
    const std::string& message = kVectors[std::size(kVectors) - 1].message;
    for (const unsigned piece : {1u, 7u, 63u, 64u, 65u, 1000u}) {
        MD5_CTX context;
        AfxMD5Init(&context);
        for (std::size_t done = 0; done < message.size(); done += piece) {
            const auto rest = static_cast<unsigned>(message.size() - done);
            AfxMD5Update(&context, Bytes(message) + done, std::min(piece, rest));
        }
        BYTE digest[16];
        AfxMD5Final(digest, &context);
        CStringA text;
        AfxFormatMD5Checksum(digest, text, FALSE);
        EXPECT_EQ(text, "7707d6ae4e027c70eea2a935c2296f21") << piece;
    }
}

TEST(Md5, NullPointersAreRefused) {
    BYTE digest[16] = {7};
    CStringA text("#");
    EXPECT_FALSE(AfxGenerateMD5Digest(nullptr, 0, digest));
    EXPECT_FALSE(AfxFormatMD5Checksum(nullptr, text, FALSE));
    EXPECT_FALSE(AfxGenerateFileMD5Checksum(nullptr, text));
    AfxMD5Update(nullptr, digest, 1);
    AfxMD5Final(digest, nullptr);
    EXPECT_EQ(text, "#");
    EXPECT_EQ(digest[0], 7);
}

TEST(Md5, FilesAreReadFromTheirPositionToTheirEnd) {
    const TemporaryFolder folder;
    const CString path = folder.Path(_T("file"));
    folder.Write(_T("file"), std::string(1000000, 'a'));
    CStringA text;
    EXPECT_TRUE(AfxGenerateFileMD5Checksum(path, text));
    EXPECT_EQ(text, "7707d6ae4e027c70eea2a935c2296f21");
    EXPECT_FALSE(AfxGenerateFileMD5Checksum(folder.Path(_T("missing")), text));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_FILE_NOT_FOUND));
    EXPECT_EQ(text, "7707d6ae4e027c70eea2a935c2296f21");

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
