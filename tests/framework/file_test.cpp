#include <quorvel/framework/file.h>

#include "support/exceptions.h"
#include "support/temporary_folder.h"
#include "support/test.h"

namespace {

using enum CFile::OpenFlags;
typedef CFileException E;
constexpr UINT kCreate = modeCreate | modeWrite;

class File : public testing::Test {
protected:
    const TemporaryFolder m_folder;
    const CString m_name = m_folder.Path(_T("file"));
};

} // namespace

TEST_F(File, OpenModesMakeKeepOrEmptyTheFile) {
    const std::tuple<const char*, const WCHAR*, UINT, int, const char*> rows[] = {
        {"open", _T("file"), modeRead, E::none, "old"},
        {"create over a file", _T("file"), kCreate, E::none, ""},
        {"keep a file", _T("file"), modeCreate | modeNoTruncate | modeReadWrite, E::none, "old"},
        {"no such share mode", _T("file"), 0x0070, E::genericException, "old"},
        {"create", _T("new"), kCreate, E::none, ""},
        {"open a missing file", _T("missing"), modeReadWrite, E::fileNotFound, ""},
    };
    CFileException error;
    for (const auto& [label, name, flags, cause, contents] : rows) {
        m_folder.Write(_T("file"), "old");
        CFile file;
        error.m_cause = E::none;
        EXPECT_EQ(file.Open(m_folder.Path(name), flags, &error), cause == E::none) << label;
        EXPECT_EQ(error.m_cause, cause) << label;
        EXPECT_EQ(file.m_hFile == CFile::hFileNull, cause != E::none) << label;
        file.Close();
        EXPECT_EQ(m_folder.Read(name), contents) << label;
    }
    EXPECT_EQ(error.m_lOsError, static_cast<LONG>(ERROR_FILE_NOT_FOUND));
    EXPECT_EQ(error.m_strFileName, m_folder.Path(_T("missing")));
}

TEST_F(File, ReadsWritesAndSeeks) {
    CFile file(m_name, modeCreate | modeReadWrite | shareDenyNone);
    file.Write("0123456789", 10);
    EXPECT_EQ(file.Seek(-3, CFile::end), 7u);
    char bytes[8] = {};
    EXPECT_EQ(file.Read(bytes, sizeof bytes), 3u);
    EXPECT_STREQ(bytes, "789");
    EXPECT_EQ(file.Read(bytes, 1), 0u) << "at the end";
    EXPECT_EQ(file.Seek(5'000'000'000, CFile::begin), 5'000'000'000u) << "beyond 4 GB";

    file.SetLength(4);
    file.Seek(2, CFile::current);
    file.Write("x", 1);
    file.Flush();
    EXPECT_EQ(m_folder.Read(_T("file")), std::string("0123\0\0x", 7));

    EXPECT_EQ(CauseOf<E>([&] { file.Seek(-1, CFile::begin); }), E::badSeek);

    const std::unique_ptr<CFile> twin(file.Duplicate());
    twin->SeekToBegin();
    EXPECT_EQ(file.GetPosition(), 0u); // the position is shared
    file.Close();
    EXPECT_EQ(twin->Read(bytes, 4), 4u);

    char buffer = 0;
    CFile closed, reader(m_name, modeRead | shareDenyNone);
    EXPECT_EQ(CauseOf<E>([&] { closed.Read(&buffer, 1); }), E::invalidFile);
    EXPECT_EQ(CauseOf<E>([&] { reader.Write(&buffer, 1); }), E::accessDenied);
    EXPECT_EQ(CauseOf<E>([&] { CFile(nullptr, modeRead); }), E::badPath);
    EXPECT_EQ(CauseOf<E>([&] { CFile::Remove(m_folder.Path(_T("none"))); }), E::fileNotFound);
}
