// Here the reader that belongs to the writer reads the archives; in tests/examples/pack_test.py two
// other readers do.
#include <quorvel/util/compression/zip_file.h>

#include "support/temporary_folder.h"
#include "support/test.h"
#include "util/compression/test_file.h"

#include <minizip/unzip.h>

#include <cstring>

namespace {

typedef std::pair<std::string, std::string> Entry; // its name and bytes

std::vector<Entry> EntriesOf(const CString& path) {
    std::vector<Entry> entries;
    const unzFile zip = unzOpen(CStringA(path));
    for (int more = unzGoToFirstFile(zip); more == UNZ_OK; more = unzGoToNextFile(zip)) {
        char name[200];
        unz_file_info info;
        unzGetCurrentFileInfo(zip, &info, name, sizeof name, nullptr, 0, nullptr, 0);
        std::string bytes(info.uncompressed_size, '\0');
        unzOpenCurrentFile(zip);
        unzReadCurrentFile(zip, bytes.data(), static_cast<unsigned>(bytes.size()));
        EXPECT_EQ(unzCloseCurrentFile(zip), UNZ_OK); // compares the checksum
        entries.emplace_back(name, bytes);
    }
    unzClose(zip);
    return entries;
}

class Zip : public testing::Test {
protected:
    Zip() { m_folder.Write(_T("source"), "abc"); }
    // The error code; its text is in m_error.
    int Add(void* zip, const WCHAR* source, const WCHAR* name, int level = 6) {
        m_error = _T("unchanged");
        return AfxAddFileToZipFile(zip, source, name, level, m_error);
    }

    TemporaryFolder m_folder;
    const CString m_archive = m_folder.Path(_T("archive.zip"));
    const CString m_source = m_folder.Path(_T("source"));
    const CString m_missing = m_folder.Path(_T("missing"));
    CString m_error;
};

TEST_F(Zip, FilesAreAddedAndReadBack) {
    const std::string text = SomeText(100000);
    const std::string random = RandomBytes(16384 * 3);
    m_folder.Write(_T("text"), text);
    m_folder.Write(_T("random"), random);
    void* zip = AfxOpenZipFile(m_archive, 0);
    EXPECT_EQ(Add(zip, m_folder.Path(_T("text")), _T("a/b.txt"), 9), 0);
    EXPECT_EQ(Add(zip, m_folder.Path(_T("random")), nullptr, 0), 0);
    EXPECT_EQ(m_error, _T("unchanged"));
    EXPECT_EQ(AfxCloseZipFile(zip), 0);
    zip = AfxOpenZipFile(m_archive, 2); // adds entries
    EXPECT_EQ(Add(zip, m_source, _T("added"), -1), 0);
    EXPECT_EQ(AfxCloseZipFile(zip), 0);
    const std::string whole = CStringA(m_folder.Path(_T("random"))).GetString();
    EXPECT_EQ(EntriesOf(m_archive),
              (std::vector<Entry>{{"a/b.txt", text}, {whole, random}, {"added", "abc"}}));
}

TEST_F(Zip, ReportsWhatCannotBeDone) {
    const auto openError = [](const WCHAR* path, int append) {
        return ErrorOf([=] { return AfxOpenZipFile(path, append) != nullptr; });
    };
    m_folder.Write(_T("zeros"), std::string(100, '\0'));
    ExpectCases<DWORD>({
        CASE(openError(nullptr, 0), ERROR_INVALID_PARAMETER),
        CASE(openError(m_folder.Path(_T("missing\\a")), 0), ERROR_PATH_NOT_FOUND),
        CASE(openError(m_folder.Path(), 0), ERROR_ACCESS_DENIED),
        CASE(openError(m_missing, 1), ERROR_FILE_NOT_FOUND), // to append to
        CASE(openError(m_source, 2), ERROR_INVALID_DATA),    // the rest to add to
        CASE(openError(m_folder.Path(_T("zeros")), 2), ERROR_INVALID_DATA),
    });
    EXPECT_FALSE(m_folder.Has(_T("missing")));
    EXPECT_EQ(AfxCloseZipFile(nullptr), -102);
    void* const zip = AfxOpenZipFile(m_archive, 0);
    EXPECT_EQ(Add(zip, nullptr, _T("name")), -102);
    EXPECT_EQ(m_error, _T("One or more parameters are invalid."));
    EXPECT_EQ(Add(zip, m_missing, _T("name")), -104);
    EXPECT_EQ(m_error, _T("The file could not be located."));
    EXPECT_EQ(Add(zip, m_source, _T("later")), 0); // the archive stays usable
    EXPECT_EQ(AfxCloseZipFile(zip), 0);
    EXPECT_EQ(EntriesOf(m_archive), (std::vector<Entry>{{"name", ""}, {"later", "abc"}}));
}

TEST_F(Zip, AnArchiveOfOneFileIsRefusedWithTheReason) {
    const auto reason = [this](const WCHAR* source, const WCHAR* archive) {
        m_error.Empty();
        EXPECT_FALSE(AfxCompressFileToZipFile(source, archive, 6, m_error));
        return m_error;
    };
    ExpectCases<CString>({
        CASE(reason(nullptr, m_archive), _T("One or more parameters are invalid.")),
        CASE(reason(m_source, _T("\xd800.zip")), _T("All or part of the path is invalid.")),
        CASE(reason(m_folder.Path(), m_archive), _T("The file could not be accessed.")),
        CASE(reason(m_source, m_source),
             _T("SHARE.EXE was not loaded, or a shared region was locked.")),
    });
    if (kOnLinux) { // only it has a device that is always full. Deliberate: no better reason
        EXPECT_EQ(reason(m_source, _T("/dev/full")), CString(std::strerror(0)));
    }
    EXPECT_EQ(m_folder.Read(_T("source")), "abc");
}

} // namespace
