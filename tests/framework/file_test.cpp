#include <quorvel/framework/mem_file.h>

#include "support/exceptions.h"
#include "support/test.h"

#include <cstdlib>
#include <cstring>

namespace {

using enum CFile::OpenFlags;
typedef CFileException E;
constexpr UINT kCreate = modeCreate | modeWrite;

// A file name of this test alone, without a file, in the working folder.
class File : public testing::Test {
protected:
    File() {
        m_name = CString(testing::UnitTest::GetInstance()->current_test_info()->name());
        m_name += _T(".tmp");
        CauseOf<E>([this] { CFile::Remove(m_name); });
    }
    ~File() override {
        CauseOf<E>([this] { CFile::Remove(m_name); });
    }

    std::string Contents() {
        CFile file(m_name, modeRead | shareDenyNone);
        std::string contents(static_cast<std::size_t>(file.GetLength()), '\0');
        EXPECT_EQ(file.Read(contents.data(), static_cast<UINT>(contents.size())), contents.size());
        return contents;
    }

    CString m_name;
};

} // namespace

TEST_F(File, OpenModesMakeKeepOrEmptyTheFile) {
    const std::tuple<const char*, bool, UINT, int, const char*> rows[] = {
        {"open a missing file", false, modeReadWrite, E::fileNotFound, ""},
        {"create", false, kCreate, E::none, ""},
        {"open", true, modeRead, E::none, "old"},
        {"create over a file", true, kCreate, E::none, ""},
        {"keep a file", true, modeCreate | modeNoTruncate | modeReadWrite, E::none, "old"},
        {"no such share mode", true, 0x0070, E::genericException, "old"},
    };
    for (const auto& [label, present, flags, cause, contents] : rows) {
        SCOPED_TRACE(label);
        if (present)
            CFile(m_name, kCreate).Write("old", 3);
        CFile file;
        CFileException error;
        EXPECT_EQ(file.Open(m_name, flags, &error), cause == E::none);
        EXPECT_EQ(error.m_cause, cause);
        EXPECT_EQ(file.m_hFile == CFile::hFileNull, cause != E::none);
        file.Close();
        if (cause != E::fileNotFound) {
            EXPECT_EQ(Contents(), contents);
            CFile::Remove(m_name);
        } else {
            EXPECT_EQ(error.m_lOsError, static_cast<LONG>(ERROR_FILE_NOT_FOUND));
            EXPECT_EQ(error.m_strFileName, m_name);
        }
    }
}

TEST_F(File, ReadsWritesAndSeeks) {
    CFile file(m_name, modeCreate | modeReadWrite | shareDenyNone);
    file.Write("0123456789", 10);
    EXPECT_EQ(file.Seek(-3, CFile::end), 7u);
    char bytes[8] = {};
    EXPECT_EQ(file.Read(bytes, sizeof bytes), 3u);
    EXPECT_STREQ(bytes, "789");

    file.SetLength(4);
    EXPECT_EQ(file.GetPosition(), 4u);
    file.Seek(2, CFile::current);
    file.Write("x", 1);
    file.Flush();
    EXPECT_EQ(Contents(), std::string("0123\0\0x", 7));

    // Positions are 64 bits wide; nothing is written there.
    EXPECT_EQ(file.Seek(0x123456789LL, CFile::begin), 0x123456789u);
    EXPECT_EQ(CauseOf<E>([&] { file.Seek(-1, CFile::begin); }), E::badSeek);

    const std::unique_ptr<CFile> twin(file.Duplicate());
    twin->SeekToBegin();
    EXPECT_EQ(file.GetPosition(), 0u); // shared
    file.Close();
    EXPECT_EQ(twin->Read(bytes, 4), 4u);
    EXPECT_EQ(twin->GetFileName(), m_name);
}

TEST_F(File, FailuresAreThrownWithTheirCause) {
    CFile closed;
    CFile(m_name, kCreate);
    CFile reader(m_name, modeRead);
    char buffer = 0;
    const WCHAR* const missing = _T("missing.tmp");
    const WCHAR* const other = _T("other.tmp");
#define CAUSE(expression, cause) {#expression, CauseOf<E>([&] { expression; }), cause}
    ExpectCases<int>({
        CAUSE(closed.Read(&buffer, 1), E::invalidFile),
        CAUSE(reader.Write(&buffer, 1), E::accessDenied),
        CAUSE(CFile(missing, modeRead), E::fileNotFound),
        CAUSE(CFile(nullptr, modeRead), E::badPath),
        CAUSE(CFile(_T("no/such/file"), kCreate), E::badPath),
        CAUSE(CFile::Remove(missing), E::fileNotFound),
        CAUSE(CFile(other, kCreate), E::none),
        CAUSE((reader.Close(), CFile::Rename(other, m_name)), E::accessDenied),
        CAUSE(CFile::Remove(other), E::none),
    });
}

TEST(MemFile, GrowsAndFillsGapsWithZeros) {
    CMemFile file(4);
    file.Write("ab", 2);
    file.Seek(3, CFile::current);
    EXPECT_EQ(file.GetLength(), 2u);
    file.Write("c", 1);
    EXPECT_EQ(file.GetLength(), 6u);
    file.SetLength(9);
    EXPECT_EQ(file.GetPosition(), 6u);
    file.SeekToBegin();
    char bytes[16];
    std::memset(bytes, '?', sizeof bytes);
    EXPECT_EQ(file.Read(bytes, sizeof bytes), 9u);
    EXPECT_EQ(std::string(bytes, 10), std::string("ab\0\0\0c\0\0\0?", 10));
    file.SetLength(1);
    EXPECT_EQ(file.GetPosition(), 1u);
    EXPECT_EQ(file.Seek(1LL << 40, CFile::begin), 1ULL << 40);
    EXPECT_EQ(file.Read(bytes, 1), 0u);
    EXPECT_THROW(file.SetLength(~0ULL), CMemoryException*);
    EXPECT_EQ(file.GetLength(), 1u);
    BYTE* const detached = file.Detach();
    EXPECT_EQ(*detached, 'a');
    std::free(detached);
}

TEST(MemFile, AttachedBytesAreTheFileOrItsRoom) {
    BYTE bytes[4] = {1, 2, 3, 4};
    CMemFile fixed(bytes, sizeof bytes);
    fixed.Seek(2, CFile::begin);
    EXPECT_THROW(fixed.Write("xyz", 3), CMemoryException*);
    EXPECT_EQ(bytes[2], 3);
    fixed.Write("xy", 2);
    EXPECT_EQ(bytes[3], 'y');

    CMemFile growing;
    growing.Attach(static_cast<BYTE*>(std::malloc(2)), 2, 16);
    EXPECT_EQ(growing.GetLength(), 0u);
    growing.Write("abc", 3);
    BYTE* const detached = growing.Detach();
    EXPECT_EQ(std::memcmp(detached, "abc", 3), 0);
    std::free(detached);
}
