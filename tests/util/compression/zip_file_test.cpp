// Archives are read back here by the reader that belongs to the writer; two others read those of
// tests/examples/pack_test.py.
#include <quorvel/util/compression/zip_file.h>

#include "support/platform.h"
#include "support/temporary_folder.h"
#include "support/text.h"
#include "util/compression/bytes.h"

#include <gtest/gtest.h>
#include <minizip/unzip.h>

#include <chrono>
#include <cstring>

namespace {

const WCHAR* const kNotFound = _T("The file could not be located.");
const WCHAR* const kInvalidParameter = _T("One or more parameters are invalid.");

struct Entry {
    std::string name;
    std::string bytes;
    friend bool operator==(const Entry&, const Entry&) = default;
};

std::vector<Entry> EntriesOf(const CString& path, unz_file_info* lastInfo = nullptr) {
    std::vector<Entry> entries;
    const unzFile zip = unzOpen(CStringA(path));
    for (int more = zip != nullptr ? unzGoToFirstFile(zip) : -1; more == UNZ_OK;
         more = unzGoToNextFile(zip)) {
        char name[200];
        unz_file_info info;
        EXPECT_EQ(unzGetCurrentFileInfo(zip, &info, name, sizeof name, nullptr, 0, nullptr, 0), 0);
        std::string bytes(info.uncompressed_size, '\0');
        EXPECT_EQ(unzOpenCurrentFile(zip), UNZ_OK);
        EXPECT_EQ(unzReadCurrentFile(zip, bytes.data(), static_cast<unsigned>(bytes.size())),
                  static_cast<int>(bytes.size()));
        EXPECT_EQ(unzCloseCurrentFile(zip), UNZ_OK); // compares the checksum
        entries.push_back({name, bytes});
        if (lastInfo != nullptr)
            *lastInfo = info;
    }
    if (zip != nullptr)
        unzClose(zip);
    return entries;
}

class Zip : public testing::Test {
protected:
    // The error; the text of it is in m_error.
    int Add(void* zip, const WCHAR* source, const WCHAR* name, int level = 6) {
        m_error = _T("unchanged");
        return AfxAddFileToZipFile(zip, source, name, level, m_error);
    }

    TemporaryFolder m_folder;
    const CString m_archive = m_folder.Path(_T("archive.zip"));
    CString m_error;
};

TEST_F(Zip, ErrorsHaveTheirTexts) {
    const WCHAR* const unknown = _T("Unknown error.");
    const CString runtime(std::strerror(0));
    const struct {
        int code;
        const WCHAR* text;
    } rows[] = {
        {0, _T("OK.")},
        {-1, runtime},
        {-102, kInvalidParameter},
        {-103, _T("Invalid zip file.")},
        {-104, _T("Internal error.")},
        {-100, unknown},
        {-101, unknown},
        {-2, unknown},
        {1, unknown},
    };
    for (const auto& row : rows)
        EXPECT_EQ(AfxGetZipErrorText(row.code), row.text) << row.code;
}

TEST_F(Zip, FilesAreAddedAndReadBack) {
    const std::string long_ = SomeText(100000);
    const std::string random = RandomBytes(16384 * 3);
    m_folder.Write(_T("long.txt"), long_);
    m_folder.Write(_T("random"), random);
    m_folder.Write(_T("empty"), "");
    void* zip = AfxOpenZipFile(m_archive, 0);
    ASSERT_NE(zip, nullptr);
    EXPECT_EQ(Add(zip, m_folder.Path(_T("long.txt")), _T("a/b.txt"), 9), 0);
    EXPECT_EQ(Add(zip, m_folder.Path(_T("random")), _T("random"), 0), 0);
    EXPECT_EQ(Add(zip, m_folder.Path(_T("empty")), nullptr, -1), 0);
    EXPECT_EQ(m_error, _T("unchanged"));
    EXPECT_EQ(AfxCloseZipFile(zip), 0);
    std::vector<Entry> expected = {
        {"a/b.txt", long_},
        {"random", random},
        {CStringA(m_folder.Path(_T("empty"))).GetString(), ""},
    };
    EXPECT_EQ(EntriesOf(m_archive), expected);

    zip = AfxOpenZipFile(m_archive, 2); // more of them
    EXPECT_EQ(Add(zip, m_folder.Path(_T("empty")), _T("added")), 0);
    EXPECT_EQ(AfxCloseZipFile(zip), 0);
    expected.push_back({"added", ""});
    EXPECT_EQ(EntriesOf(m_archive), expected);

    EXPECT_TRUE(AfxCompressFileToZipFile(m_folder.Path(_T("long.txt")), m_archive, 1, m_error));
    EXPECT_EQ(EntriesOf(m_archive), (std::vector<Entry>{{"long.txt", long_}})); // anew
}

TEST_F(Zip, NamesAreInTheActiveCodePageAndTimesInUTC) {
    using namespace std::chrono;
    m_folder.Write(_T("größe"), "x");
    const auto before = floor<seconds>(system_clock::now()) - seconds(2);
    ASSERT_TRUE(AfxCompressFileToZipFile(m_folder.Path(_T("größe")), m_archive, 6, m_error));
    const auto after = system_clock::now() + seconds(2);
    unz_file_info info = {};
    EXPECT_EQ(EntriesOf(m_archive, &info),
              (std::vector<Entry>{{CStringA(_T("größe")).GetString(), "x"}}));
    EXPECT_EQ(info.flag & 0x800, kOnLinux ? 0x800u : 0u);
    const tm_unz& date = info.tmu_date;
    const auto time = sys_days(year(static_cast<int>(date.tm_year)) /
                               month(static_cast<unsigned>(date.tm_mon) + 1) /
                               day(static_cast<unsigned>(date.tm_mday))) +
                      hours(date.tm_hour) + minutes(date.tm_min) + seconds(date.tm_sec);
    EXPECT_TRUE(before <= time && time <= after);
    EXPECT_EQ(info.external_fa, 0u);
}

TEST_F(Zip, WhatCannotBeDoneIsTold) {
    m_folder.Write(_T("source"), "abc");
    const CString source = m_folder.Path(_T("source"));
    const CString missing = m_folder.Path(_T("missing"));
    EXPECT_EQ(AfxOpenZipFile(nullptr, 0), nullptr);
    EXPECT_EQ(AfxOpenZipFile(_T(""), 0), nullptr);
    EXPECT_EQ(AfxOpenZipFile(m_folder.Path(_T("none/archive.zip")), 0), nullptr);
    EXPECT_EQ(AfxOpenZipFile(m_folder.Path(), 0), nullptr);
    EXPECT_EQ(AfxCloseZipFile(nullptr), -102);

    EXPECT_EQ(Add(nullptr, nullptr, _T("name")), -102);
    EXPECT_EQ(m_error, kInvalidParameter);
    EXPECT_EQ(Add(nullptr, source, _T("name")), -102);
    EXPECT_EQ(m_error, kInvalidParameter);
    void* const zip = AfxOpenZipFile(m_archive, 0);
    EXPECT_EQ(Add(zip, source, _T("name"), 10), -2);
    EXPECT_EQ(m_error, _T("Unknown error."));
    EXPECT_EQ(Add(zip, missing, _T("name")), -104);
    EXPECT_EQ(m_error, kNotFound);
    EXPECT_EQ(Add(zip, source, _T("later")), 0); // the archive goes on
    EXPECT_EQ(AfxCloseZipFile(zip), 0);
    EXPECT_EQ(EntriesOf(m_archive), (std::vector<Entry>{{"name", ""}, {"later", "abc"}}));
}

TEST_F(Zip, AnArchiveOfOneFileIsRefusedWithTheReason) {
    m_folder.Write(_T("source"), "abc");
    const CString source = m_folder.Path(_T("source"));
    const CString missing = m_folder.Path(_T("missing"));
    const CString folder = m_folder.Path();
    const CString noFolder = m_folder.Path(_T("none/archive.zip"));
    const struct {
        const char* label;
        const WCHAR* source;
        const WCHAR* archive;
        int level;
        const WCHAR* error;
    } rows[] = {
        {"no source", nullptr, m_archive, 6, kInvalidParameter},
        {"no archive", source, nullptr, 6, kInvalidParameter},
        {"missing source", missing, m_archive, 6, kNotFound},
        {"missing folder", source, noFolder, 6, _T("All or part of the path is invalid.")},
        {"empty path", source, _T(""), 6, _T("All or part of the path is invalid.")},
        {"half a character", source, _T("\xd800.zip"), 6,
         _T("All or part of the path is invalid.")},
        {"source is a folder", folder, m_archive, 6, _T("The file could not be accessed.")},
        {"level", source, m_archive, 10, _T("Unknown error.")},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        m_error.Empty();
        EXPECT_FALSE(AfxCompressFileToZipFile(row.source, row.archive, row.level, m_error));
        EXPECT_EQ(m_error, row.error);
    }
}

} // namespace
