#include <quorvel/framework/file.h>

#include "support/exceptions.h"
#include "support/text.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

namespace {

// A file name of this test alone, without a file, in the working folder.
class File : public testing::Test {
protected:
    File() {
        m_name = CString(testing::UnitTest::GetInstance()->current_test_info()->name());
        m_name += _T(".tmp");
        Remove();
    }
    ~File() override { Remove(); }

    std::string Contents() {
        CFile file(m_name, CFile::modeRead | CFile::shareDenyNone);
        std::string contents(static_cast<std::size_t>(file.GetLength()), '\0');
        EXPECT_EQ(file.Read(contents.data(), static_cast<UINT>(contents.size())), contents.size());
        return contents;
    }

    CString m_name;

private:
    void Remove() {
        try {
            CFile::Remove(m_name);
        } catch (CFileException* exception) {
            exception->Delete();
        }
    }
};

template <class Operation>
int FileCause(Operation operation) {
    return CauseOf<CFileException>(operation);
}

} // namespace

TEST_F(File, OpenModesMakeKeepOrEmptyTheFile) {
    const struct {
        const char* label;
        bool present;
        UINT flags;
        int cause;
        const char* contents;
    } rows[] = {
        {"open a missing file", false, CFile::modeReadWrite, CFileException::fileNotFound, ""},
        {"create", false, CFile::modeCreate | CFile::modeWrite, CFileException::none, ""},
        {"create or keep, missing", false,
         CFile::modeCreate | CFile::modeNoTruncate | CFile::modeWrite, CFileException::none, ""},
        {"open", true, CFile::modeRead, CFileException::none, "old"},
        {"create over a file", true, CFile::modeCreate | CFile::modeWrite, CFileException::none,
         ""},
        {"create or keep a file", true,
         CFile::modeCreate | CFile::modeNoTruncate | CFile::modeReadWrite, CFileException::none,
         "old"},
        {"no such access mode", true, 0x0003, CFileException::genericException, "old"},
        {"no such share mode", true, 0x0070, CFileException::genericException, "old"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        if (row.present)
            CFile(m_name, CFile::modeCreate | CFile::modeWrite).Write("old", 3);
        CFile file;
        CFileException error;
        EXPECT_EQ(file.Open(m_name, row.flags, &error), row.cause == CFileException::none);
        EXPECT_EQ(error.m_cause, row.cause);
        EXPECT_EQ(file.m_hFile == CFile::hFileNull, row.cause != CFileException::none);
        file.Close();
        if (row.cause != CFileException::fileNotFound) {
            EXPECT_EQ(Contents(), row.contents);
            CFile::Remove(m_name);
        } else {
            EXPECT_EQ(error.m_lOsError, static_cast<LONG>(ERROR_FILE_NOT_FOUND));
            EXPECT_EQ(error.m_strFileName, m_name);
        }
    }
}

TEST_F(File, ShareModesHoldOffOtherOpeners) {
    const struct {
        const char* label;
        UINT first;
        UINT second;
        bool opens;
    } rows[] = {
        {"exclusive", CFile::modeRead, CFile::modeRead | CFile::shareDenyNone, false},
        {"deny write, reader", CFile::modeRead | CFile::shareDenyWrite,
         CFile::modeRead | CFile::shareDenyNone, true},
        {"deny write, writer", CFile::modeRead | CFile::shareDenyWrite,
         CFile::modeWrite | CFile::shareDenyNone, false},
        {"deny read, writer", CFile::modeRead | CFile::shareDenyRead,
         CFile::modeWrite | CFile::shareDenyNone, true},
        {"deny none", CFile::modeReadWrite | CFile::shareDenyNone,
         CFile::modeReadWrite | CFile::shareDenyNone, true},
    };
    CFile(m_name, CFile::modeCreate | CFile::modeWrite);
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        const CFile first(m_name, row.first);
        CFileException error;
        CFile second;
        EXPECT_EQ(second.Open(m_name, row.second, &error), row.opens);
        EXPECT_EQ(error.m_cause,
                  row.opens ? CFileException::none : CFileException::sharingViolation);
    }
}

TEST_F(File, ReadsWritesAndSeeks) {
    CFile file(m_name, CFile::modeCreate | CFile::modeReadWrite | CFile::shareDenyNone);
    file.Write("0123456789", 10);
    EXPECT_EQ(file.Seek(-3, CFile::end), 7u);
    char bytes[8] = {};
    EXPECT_EQ(file.Read(bytes, sizeof bytes), 3u);
    EXPECT_STREQ(bytes, "789");
    EXPECT_EQ(file.Read(bytes, sizeof bytes), 0u);

    file.SetLength(4);
    EXPECT_EQ(file.GetPosition(), 4u);
    file.Seek(2, CFile::current);
    file.Write("x", 1);
    file.Flush();
    EXPECT_EQ(Contents(), std::string("0123\0\0x", 7));

    // Positions are 64 bits wide; nothing is written there.
    EXPECT_EQ(file.Seek(0x123456789LL, CFile::begin), 0x123456789u);
    EXPECT_EQ(file.GetPosition(), 0x123456789u);
    EXPECT_EQ(FileCause([&] { file.Seek(-1, CFile::begin); }), CFileException::badSeek);
    EXPECT_EQ(file.GetPosition(), 0x123456789u);

    const std::unique_ptr<CFile> twin(file.Duplicate());
    twin->SeekToBegin();
    EXPECT_EQ(file.GetPosition(), 0u); // shared
    file.Close();
    EXPECT_EQ(twin->Read(bytes, 4), 4u);
    EXPECT_EQ(twin->GetFileName(), m_name);
}

TEST_F(File, FailuresAreThrownWithTheirCause) {
    CFile closed;
    CFile(m_name, CFile::modeCreate | CFile::modeWrite);
    CFile readOnly(m_name, CFile::modeRead);
    char buffer = 0;
    const CString missing(_T("missing.tmp"));
    const struct {
        const char* label;
        int expected;
        int actual;
    } rows[] = {
        {"read when closed", CFileException::invalidFile,
         FileCause([&] { closed.Read(&buffer, 1); })},
        {"length when closed", CFileException::invalidFile, FileCause([&] { closed.GetLength(); })},
        {"close twice", CFileException::none, FileCause([&] { closed.Close(); })},
        {"write to a reader", CFileException::accessDenied,
         FileCause([&] { readOnly.Write(&buffer, 1); })},
        {"construct", CFileException::fileNotFound,
         FileCause([&] { CFile(missing, CFile::modeRead); })},
        {"no name", CFileException::badPath, FileCause([&] { CFile(nullptr, CFile::modeRead); })},
        {"folder that is not there", CFileException::badPath,
         FileCause([&] { CFile(_T("no/such/file"), CFile::modeCreate | CFile::modeWrite); })},
        {"remove", CFileException::fileNotFound, FileCause([&] { CFile::Remove(missing); })},
        {"rename", CFileException::fileNotFound,
         FileCause([&] { CFile::Rename(missing, _T("other.tmp")); })},
        {"rename over a file", CFileException::accessDenied, FileCause([&] {
             readOnly.Close();
             CFile(_T("other.tmp"), CFile::modeCreate | CFile::modeWrite);
             CFile::Rename(_T("other.tmp"), m_name);
         })},
    };
    for (const auto& row : rows)
        EXPECT_EQ(row.actual, row.expected) << row.label;
    CFile::Remove(_T("other.tmp"));
}

TEST_F(File, KnowsItsFullPathAndName) {
    CFile file(m_name, CFile::modeCreate | CFile::modeWrite);
    EXPECT_GT(file.GetFilePath().GetLength(), m_name.GetLength());
    EXPECT_EQ(file.GetFilePath().Right(m_name.GetLength()), m_name);
    EXPECT_EQ(file.GetFileName(), m_name);
    file.Close();
    EXPECT_EQ(file.GetFilePath(), _T(""));
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
    EXPECT_EQ(FileCause([&] { file.Seek(-2, CFile::end); }), CFileException::badSeek);
    EXPECT_EQ(FileCause([&] { file.Seek(1, 7); }), CFileException::badSeek);
    EXPECT_EQ(file.Seek(1LL << 40, CFile::begin), 1ULL << 40);
    EXPECT_EQ(file.Read(bytes, 1), 0u);
    EXPECT_THROW(file.SetLength(~0ULL), CMemoryException*);
    EXPECT_EQ(file.GetLength(), 1u);
    BYTE* const detached = file.Detach();
    EXPECT_EQ(*detached, 'a');
    std::free(detached);
}

TEST(MemFile, AttachedBytesWithoutGrowthAreTheFile) {
    BYTE bytes[4] = {1, 2, 3, 4};
    CMemFile file(bytes, sizeof bytes);
    EXPECT_EQ(file.GetLength(), 4u);
    file.Seek(2, CFile::begin);
    EXPECT_THROW(file.Write("xyz", 3), CMemoryException*);
    EXPECT_EQ(bytes[2], 3);
    file.Write("xy", 2);
    EXPECT_EQ(bytes[3], 'y');
    EXPECT_EQ(file.Detach(), bytes);
}

TEST(MemFile, AttachedBytesWithGrowthAreItsRoom) {
    CMemFile file;
    file.Attach(static_cast<BYTE*>(std::malloc(2)), 2, 16);
    EXPECT_EQ(file.GetLength(), 0u);
    file.Write("abc", 3);
    BYTE* const bytes = file.Detach();
    EXPECT_EQ(std::memcmp(bytes, "abc", 3), 0);
    std::free(bytes);
}
