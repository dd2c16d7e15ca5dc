// Handles and files: one table of calls for both systems.
#include "platform/win32.h"

#include "support/temporary_folder.h"
#include "support/text.h"

#include <gtest/gtest.h>

#include <functional>
#include <vector>

namespace {

constexpr DWORD kUnset = 0xdead;
constexpr DWORD kRead = GENERIC_READ;
constexpr DWORD kWrite = GENERIC_WRITE;
constexpr DWORD kBoth = GENERIC_READ | GENERIC_WRITE;
constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

class File {
public:
    File(const WCHAR* name, DWORD rights, DWORD disposition, DWORD share = 0, DWORD flags = 0)
        : m_handle(CreateFileW(name, rights, share, nullptr, disposition, flags, nullptr)) {}
    File(const File&) = delete;
    ~File() { Close(); }

    HANDLE Get() const { return m_handle; }
    bool IsOpen() const { return m_handle != INVALID_HANDLE_VALUE; }
    void Close() {
        if (IsOpen()) {
            EXPECT_TRUE(CloseHandle(m_handle));
        }
        m_handle = INVALID_HANDLE_VALUE;
    }
    BOOL Write(const std::string& bytes) {
        return WriteFile(m_handle, bytes.data(), static_cast<DWORD>(bytes.size()), &m_count,
                         nullptr);
    }
    std::string Read(DWORD count) {
        std::string bytes(count, '?');
        if (!ReadFile(m_handle, bytes.data(), count, &m_count, nullptr))
            return "failed";
        return bytes.substr(0, m_count);
    }
    LONGLONG Seek(LONGLONG distance, DWORD method) {
        LARGE_INTEGER move;
        move.QuadPart = distance;
        LARGE_INTEGER position;
        position.QuadPart = -1;
        SetLastError(0);
        return SetFilePointerEx(m_handle, move, &position, method) ? position.QuadPart : -1;
    }
    LONGLONG Size() {
        LARGE_INTEGER size;
        return GetFileSizeEx(m_handle, &size) ? size.QuadPart : -1;
    }
    DWORD Count() const { return m_count; }

private:
    HANDLE m_handle;
    DWORD m_count = 0;
};

// The world of every row below, made anew for each.
class FileConformance : public testing::Test {
protected:
    void SetUp() override {
        folder.Write(_T("file"), "0123456789");
        folder.Write(_T("other"), "other");
        folder.Write(_T("readonly"), "fixed");
        folder.SetReadOnly(_T("readonly"), true);
        ASSERT_TRUE(CreateDirectoryW(folder.Path(_T("folder")), nullptr));
        folder.Write(_T("folder/inside"), "");
        ASSERT_TRUE(CreateDirectoryW(folder.Path(_T("empty")), nullptr));
    }
    void TearDown() override { folder.SetReadOnly(_T("readonly"), false); }

    TemporaryFolder folder;
};

TEST_F(FileConformance, OpeningGivesTheResultAndErrorOfEachDisposition) {
    struct Row {
        const char* label;
        const WCHAR* name;
        DWORD rights;
        DWORD disposition;
        bool opens;
        DWORD error;
        LONGLONG size;
    };
    static const Row kRows[] = {
        {"create a new file", _T("new"), kWrite, CREATE_NEW, true, 0, 0},
        {"create new over a file", _T("file"), kWrite, CREATE_NEW, false, 80, 10},
        {"create new over a folder", _T("folder"), kWrite, CREATE_NEW, false, 80, 0},
        {"create always, new", _T("new"), kWrite, CREATE_ALWAYS, true, 0, 0},
        {"create always over a file", _T("file"), kWrite, CREATE_ALWAYS, true, 183, 0},
        {"create always to read", _T("file"), kRead, CREATE_ALWAYS, true, 183, 0},
        {"open a file", _T("file"), kRead, OPEN_EXISTING, true, 0, 10},
        {"open by a name with a separator too many", _T("folder//..\\file"), kRead, OPEN_EXISTING,
         true, 0, 10},
        {"open a missing file", _T("new"), kRead, OPEN_EXISTING, false, 2, 0},
        {"open in a missing folder", _T("none/new"), kRead, OPEN_EXISTING, false, 3, 0},
        {"create in a missing folder", _T("none/new"), kWrite, CREATE_ALWAYS, false, 3, 0},
        {"open below a file", _T("file/new"), kRead, OPEN_EXISTING, false, 3, 0},
        {"open always, new", _T("new"), kBoth, OPEN_ALWAYS, true, 0, 0},
        {"open always, a file", _T("file"), kBoth, OPEN_ALWAYS, true, 183, 10},
        {"truncate a file", _T("file"), kWrite, TRUNCATE_EXISTING, true, 0, 0},
        {"truncate a missing file", _T("new"), kWrite, TRUNCATE_EXISTING, false, 2, 0},
        {"no disposition", _T("file"), kRead, 0, false, 87, 10},
        {"an unknown disposition", _T("file"), kRead, 6, false, 87, 10},
        {"a folder to read", _T("folder"), kRead, OPEN_EXISTING, false, 5, 0},
        {"a folder to write", _T("folder"), kWrite, OPEN_ALWAYS, false, 5, 0},
        {"a read-only file to read", _T("readonly"), kRead, OPEN_EXISTING, true, 0, 5},
        {"no rights", _T("file"), 0, OPEN_EXISTING, true, 0, 10},
    };
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.label);
        SetLastError(kUnset);
        File file(folder.Path(row.name), row.rights, row.disposition);
        EXPECT_EQ(row.error, GetLastError());
        ASSERT_EQ(row.opens, file.IsOpen());
        if (row.opens) {
            EXPECT_EQ(row.size, file.Size());
            EXPECT_EQ(DWORD{FILE_TYPE_DISK}, GetFileType(file.Get()));
        }
        file.Close();
        if (!row.opens && row.size > 0) {
            EXPECT_EQ(row.size, File(folder.Path(row.name), kRead, OPEN_EXISTING).Size());
        }
        DeleteFileW(folder.Path(_T("new")));
        folder.Write(_T("file"), "0123456789");
    }
}

TEST_F(FileConformance, NamesThatCannotNameAFileAreRefused) {
    struct Row {
        const char* label;
        const WCHAR* name;
        DWORD error;
    };
    const Row rows[] = {
        {"null", nullptr, 3},
        {"empty", _T(""), 3},
        {"a drive that is not there", _T("Q:\\none\\file"), 3},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.label);
        SetLastError(kUnset);
        EXPECT_FALSE(File(row.name, kWrite, CREATE_ALWAYS).IsOpen());
        EXPECT_EQ(row.error, GetLastError());
        SetLastError(kUnset);
        EXPECT_FALSE(DeleteFileW(row.name));
        EXPECT_EQ(row.error, GetLastError());
        SetLastError(kUnset);
        EXPECT_EQ(INVALID_FILE_ATTRIBUTES, GetFileAttributesW(row.name));
        EXPECT_EQ(row.error, GetLastError());
    }
}

TEST_F(FileConformance, NamesOfEveryScriptAreFoundAgain) {
    const WCHAR* const names[] = {_T("Größe"), _T("日本語.xml"), _T("\xd83d\xde00 face"),
                                  _T("a b.c.d")};
    for (const WCHAR* name : names) {
        SCOPED_TRACE(CStringA(name).GetString());
        {
            File file(folder.Path(name), kWrite, CREATE_NEW);
            EXPECT_TRUE(file.Write("x"));
        }
        EXPECT_TRUE(folder.Has(name));
        EXPECT_EQ("x", folder.Read(name));
        EXPECT_TRUE(DeleteFileW(folder.Path(name)));
        EXPECT_FALSE(folder.Has(name));
    }
}

TEST_F(FileConformance, ShareModesAdmitWhatBothSidesAllow) {
    constexpr DWORD kNone = 0;
    constexpr DWORD kShareRead = FILE_SHARE_READ;
    constexpr DWORD kShareWrite = FILE_SHARE_WRITE;
    struct Row {
        DWORD firstRights, firstShare, secondRights, secondShare;
        bool opens;
    };
    static const Row kRows[] = {
        {kRead, kNone, kRead, kShareAll, false},
        {kRead, kShareRead, kRead, kShareRead, true},
        {kRead, kShareRead, kRead, kNone, false},
        {kRead, kShareRead, kWrite, kShareRead, false},
        {kRead, kShareWrite, kWrite, kShareRead, true},
        {kWrite, kShareRead, kRead, kShareRead, false},
        {kWrite, kShareRead, kRead, kShareWrite, true},
        {kBoth, kShareAll, kBoth, kShareAll, true},
        {kRead, kShareRead, 0, kNone, true},
        {kRead, kShareRead, DELETE, kShareAll, false},
        {kRead, kShareAll, DELETE, kShareAll, true},
    };
    for (const Row& row : kRows) {
        SCOPED_TRACE(&row - kRows);
        File first(folder.Path(_T("file")), row.firstRights, OPEN_EXISTING, row.firstShare);
        ASSERT_TRUE(first.IsOpen());
        SetLastError(kUnset);
        File second(folder.Path(_T("folder/../file")), row.secondRights, OPEN_EXISTING,
                    row.secondShare);
        EXPECT_EQ(row.opens, second.IsOpen());
        EXPECT_EQ(row.opens ? 0u : 32u, GetLastError());
    }
    File held(folder.Path(_T("file")), kRead, OPEN_EXISTING, FILE_SHARE_READ);
    SetLastError(kUnset);
    EXPECT_FALSE(File(folder.Path(_T("file")), kWrite, CREATE_ALWAYS, kShareAll).IsOpen());
    EXPECT_EQ(32u, GetLastError());
    EXPECT_EQ(10, held.Size()) << "a refused file must not have been cut";
}

TEST_F(FileConformance, ReadingWritingAndSeekingMoveOnePosition) {
    File file(folder.Path(_T("file")), kBoth, OPEN_EXISTING);
    EXPECT_EQ("0123", file.Read(4));
    EXPECT_TRUE(file.Write("xy"));
    EXPECT_EQ(6, file.Seek(0, FILE_CURRENT));
    EXPECT_EQ("6789", file.Read(100));
    EXPECT_EQ("", file.Read(1)) << "at the end: success with nothing read";
    EXPECT_EQ(8, file.Seek(-2, FILE_END));
    EXPECT_EQ(12, file.Seek(12, FILE_BEGIN));
    EXPECT_EQ(10, file.Size());
    EXPECT_EQ("", file.Read(1)) << "beyond the end";
    EXPECT_TRUE(SetEndOfFile(file.Get()));
    EXPECT_EQ(12, file.Size());
    EXPECT_EQ(2, file.Seek(2, FILE_BEGIN));
    EXPECT_TRUE(file.Write(""));
    EXPECT_EQ(0u, file.Count());
    EXPECT_TRUE(SetEndOfFile(file.Get()));
    EXPECT_EQ(2, file.Size());
    EXPECT_TRUE(FlushFileBuffers(file.Get()));

    struct Row {
        const char* label;
        LONGLONG distance;
        DWORD method;
        DWORD error;
    };
    static const Row kRefused[] = {
        {"before the start", -1, FILE_BEGIN, 131},
        {"before the start from here", -3, FILE_CURRENT, 131},
        {"before the start from the end", -3, FILE_END, 131},
        {"no such method", 0, 3, 87},
    };
    for (const Row& row : kRefused) {
        SCOPED_TRACE(row.label);
        EXPECT_EQ(-1, file.Seek(row.distance, row.method));
        EXPECT_EQ(row.error, GetLastError());
        EXPECT_EQ(2, file.Seek(0, FILE_CURRENT));
    }
    const LONGLONG distant = 5'000'000'000;
    EXPECT_EQ(distant, file.Seek(distant, FILE_BEGIN)) << "beyond 4 GB";
}

TEST_F(FileConformance, AHandleDoesOnlyWhatItsRightsAllow) {
    folder.Write(_T("third"), "");
    File reader(folder.Path(_T("file")), kRead, OPEN_EXISTING);
    File writer(folder.Path(_T("other")), kWrite, OPEN_EXISTING);
    File nothing(folder.Path(_T("third")), 0, OPEN_EXISTING);
    enum Operation { kReading, kWriting, kSize, kSeeking, kEnd, kFlush, kClose };
    const auto perform = [](Operation operation, HANDLE handle) -> BOOL {
        char buffer[1] = {};
        DWORD count = 77;
        LARGE_INTEGER value = {};
        switch (operation) {
        case kReading:
            return ReadFile(handle, buffer, 1, &count, nullptr);
        case kWriting:
            return WriteFile(handle, buffer, 1, &count, nullptr);
        case kSize:
            return GetFileSizeEx(handle, &value);
        case kSeeking:
            return SetFilePointerEx(handle, value, nullptr, FILE_BEGIN);
        case kEnd:
            return SetEndOfFile(handle);
        case kFlush:
            return FlushFileBuffers(handle);
        case kClose:
            return CloseHandle(handle);
        }
        return FALSE;
    };
    const HANDLE invented = reinterpret_cast<HANDLE>(UINT_PTR{0x7654320});
    struct Row {
        const char* label;
        HANDLE handle;
        std::vector<Operation> operations;
        DWORD error; // 0: it works
    };
    const Row rows[] = {
        {"read from a reader", reader.Get(), {kReading, kSize, kSeeking}, 0},
        {"write to a reader", reader.Get(), {kWriting, kFlush}, 5},
        {"read from a writer", writer.Get(), {kReading}, 5},
        {"write to a writer", writer.Get(), {kWriting, kSize, kSeeking, kEnd, kFlush}, 0},
        {"without rights", nothing.Get(), {kReading, kWriting, kFlush}, 5},
        {"ask without rights", nothing.Get(), {kSize, kSeeking}, 0},
        {"null", nullptr, {kReading, kWriting, kSize, kSeeking, kEnd, kFlush, kClose}, 6},
        {"invalid", INVALID_HANDLE_VALUE, {kReading, kWriting, kSize, kSeeking, kEnd, kFlush}, 6},
        {"invented", invented, {kReading, kWriting, kSize, kSeeking, kEnd, kFlush, kClose}, 6},
    };
    for (const Row& row : rows)
        for (const Operation operation : row.operations) {
            SCOPED_TRACE(row.label);
            SCOPED_TRACE(operation);
            SetLastError(kUnset);
            EXPECT_EQ(row.error, perform(operation, row.handle) ? 0 : GetLastError());
        }
}

TEST_F(FileConformance, ADuplicateSharesThePositionAndKeepsTheFileOpen) {
    File file(folder.Path(_T("file")), kRead, OPEN_EXISTING);
    HANDLE duplicate = nullptr;
    ASSERT_TRUE(DuplicateHandle(GetCurrentProcess(), file.Get(), GetCurrentProcess(), &duplicate, 0,
                                FALSE, DUPLICATE_SAME_ACCESS));
    EXPECT_NE(duplicate, file.Get());
    EXPECT_EQ("0123", file.Read(4));
    file.Close();
    char next[2] = {};
    DWORD count = 0;
    EXPECT_TRUE(ReadFile(duplicate, next, 2, &count, nullptr));
    EXPECT_EQ("45", std::string(next, count));
    EXPECT_FALSE(DeleteFileW(folder.Path(_T("file")))) << "still open";

    HANDLE moved = nullptr;
    ASSERT_TRUE(DuplicateHandle(GetCurrentProcess(), duplicate, GetCurrentProcess(), &moved, 0,
                                FALSE, DUPLICATE_SAME_ACCESS | DUPLICATE_CLOSE_SOURCE));
    EXPECT_TRUE(CloseHandle(moved));
    EXPECT_TRUE(DeleteFileW(folder.Path(_T("file"))));
    HANDLE none = nullptr;
    SetLastError(kUnset);
    EXPECT_FALSE(DuplicateHandle(GetCurrentProcess(), moved, GetCurrentProcess(), &none, 0, FALSE,
                                 DUPLICATE_SAME_ACCESS));
    EXPECT_EQ(6u, GetLastError());
}

TEST_F(FileConformance, AFileMarkedForItGoesWithItsLastHandle) {
    File file(folder.Path(_T("passing")), kBoth, CREATE_NEW, kShareAll, FILE_FLAG_DELETE_ON_CLOSE);
    ASSERT_TRUE(file.IsOpen());
    SetLastError(kUnset);
    EXPECT_FALSE(File(folder.Path(_T("passing")), kRead, OPEN_EXISTING, FILE_SHARE_READ).IsOpen());
    EXPECT_EQ(32u, GetLastError());
    EXPECT_TRUE(folder.Has(_T("passing")));
    file.Close();
    EXPECT_FALSE(folder.Has(_T("passing")));
}

TEST_F(FileConformance, NamesAreDeletedMovedAndMadeWithTheErrorsOfEachCase) {
    File held(folder.Path(_T("folder/inside")), kRead, OPEN_EXISTING, FILE_SHARE_READ);
    const auto path = [this](const WCHAR* name) { return folder.Path(name); };
    const auto remove = [&](const WCHAR* name) { return DeleteFileW(path(name)); };
    const auto move = [&](const WCHAR* from, const WCHAR* to, DWORD flags) {
        return MoveFileExW(path(from), path(to), flags);
    };
    const auto make = [&](const WCHAR* name) { return CreateDirectoryW(path(name), nullptr); };
    const auto clear = [&](const WCHAR* name) { return RemoveDirectoryW(path(name)); };
    constexpr DWORD kReplace = MOVEFILE_REPLACE_EXISTING;
    struct Row {
        const char* label;
        std::function<BOOL()> call;
        DWORD error; // 0: it works
    };
    const Row rows[] = {
        {"delete a missing file", [&] { return remove(_T("none")); }, 2},
        {"delete in a missing folder", [&] { return remove(_T("none/none")); }, 3},
        {"delete a folder", [&] { return remove(_T("empty")); }, 5},
        {"delete a read-only file", [&] { return remove(_T("readonly")); }, 5},
        {"delete a file held open", [&] { return remove(_T("folder/inside")); }, 32},
        {"move a missing file", [&] { return move(_T("none"), _T("new"), 0); }, 2},
        {"move into a missing folder", [&] { return move(_T("file"), _T("none/new"), 0); }, 3},
        {"move over a file", [&] { return move(_T("file"), _T("other"), 0); }, 183},
        {"move over a folder", [&] { return move(_T("file"), _T("empty"), kReplace); }, 5},
        {"move over a file held open",
         [&] { return move(_T("file"), _T("folder/inside"), kReplace); }, 5},
        {"move a file held open", [&] { return move(_T("folder/inside"), _T("new"), 0); }, 32},
        {"move a file to itself", [&] { return move(_T("file"), _T("file"), 0); }, 0},
        {"move a file", [&] { return move(_T("file"), _T("moved"), 0); }, 0},
        {"replace a file", [&] { return move(_T("moved"), _T("other"), kReplace); }, 0},
        {"move a read-only file", [&] { return move(_T("readonly"), _T("fixed"), 0); }, 0},
        {"and back", [&] { return move(_T("fixed"), _T("readonly"), 0); }, 0},
        {"make a folder that is there", [&] { return make(_T("folder")); }, 183},
        {"make a folder over a file", [&] { return make(_T("other")); }, 183},
        {"make a folder in a missing one", [&] { return make(_T("none/new")); }, 3},
        {"make a folder", [&] { return make(_T("made")); }, 0},
        {"move a folder", [&] { return move(_T("made"), _T("empty/made"), 0); }, 0},
        {"remove a folder that holds one", [&] { return clear(_T("empty")); }, 145},
        {"remove a folder", [&] { return clear(_T("empty/made")); }, 0},
        {"remove a missing folder", [&] { return clear(_T("none")); }, 2},
        {"remove in a missing folder", [&] { return clear(_T("none/none")); }, 3},
        {"remove a file as a folder", [&] { return clear(_T("other")); }, 267},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.label);
        SetLastError(kUnset);
        EXPECT_EQ(row.error, row.call() ? 0 : GetLastError());
    }
    EXPECT_EQ("0123456789", folder.Read(_T("other")));
    EXPECT_EQ("fixed", folder.Read(_T("readonly")));
}

TEST_F(FileConformance, AttributesTellFoldersAndReadOnlyFiles) {
    struct Row {
        const WCHAR* name;
        DWORD attributes;
    };
    static const Row kRows[] = {
        {_T("file"), 0},
        {_T("readonly"), FILE_ATTRIBUTE_READONLY},
        {_T("folder"), FILE_ATTRIBUTE_DIRECTORY},
        {_T("folder\\"), FILE_ATTRIBUTE_DIRECTORY},
    };
    for (const Row& row : kRows) {
        constexpr DWORD kMask = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_DIRECTORY;
        EXPECT_EQ(row.attributes, GetFileAttributesW(folder.Path(row.name)) & kMask)
            << CStringA(row.name).GetString();
    }
    SetLastError(kUnset);
    EXPECT_EQ(INVALID_FILE_ATTRIBUTES, GetFileAttributesW(folder.Path(_T("none"))));
    EXPECT_EQ(2u, GetLastError());
}

TEST_F(FileConformance, FullNamesLoseDotsAndRepeatedSeparators) {
    CString current;
    const DWORD length = GetCurrentDirectoryW(0, nullptr);
    ASSERT_GT(length, 1u);
    EXPECT_EQ(length - 1,
              GetCurrentDirectoryW(length, current.GetBuffer(static_cast<int>(length))));
    current.ReleaseBuffer();
    struct Row {
        const WCHAR* name;
        const WCHAR* expected; // behind the current folder, with "/" for the separator
        const WCHAR* filePart;
    };
    static const Row kRows[] = {
        {_T("name"), _T("/name"), _T("name")}, {_T("a\\b/c"), _T("/a/b/c"), _T("c")},
        {_T("a//.\\b"), _T("/a/b"), _T("b")},  {_T("a/../b"), _T("/b"), _T("b")},
        {_T("a/"), _T("/a/"), nullptr},        {_T("a/..b/...c"), _T("/a/..b/...c"), _T("...c")},
    };
    for (const Row& row : kRows) {
        SCOPED_TRACE(CStringA(row.name).GetString());
        WCHAR buffer[MAX_PATH];
        WCHAR* filePart = buffer;
        const DWORD result = GetFullPathNameW(row.name, MAX_PATH, buffer, &filePart);
        CString expected = current + row.expected;
        EXPECT_EQ(static_cast<DWORD>(expected.GetLength()), result);
        CString actual(buffer);
        actual.Replace('\\', '/');
        expected.Replace('\\', '/');
        EXPECT_EQ(expected, actual);
        EXPECT_EQ(CString(row.filePart), CString(filePart));
        EXPECT_EQ(result + 1, GetFullPathNameW(row.name, result, buffer, nullptr));
    }
    EXPECT_EQ(0u, GetFullPathNameW(_T(""), 0, nullptr, nullptr));
}

TEST_F(FileConformance, TemporaryFilesGetAFreeNameInTheirFolder) {
    WCHAR temporary[MAX_PATH];
    const DWORD length = GetTempPathW(MAX_PATH, temporary);
    ASSERT_GT(length, 1u);
    EXPECT_TRUE(temporary[length - 1] == '/' || temporary[length - 1] == '\\');
    EXPECT_EQ(length + 1, GetTempPathW(length, temporary));

    WCHAR name[MAX_PATH];
    const UINT first = GetTempFileNameW(folder.Path(), _T("prefix"), 0, name);
    ASSERT_NE(0u, first);
    const CString firstName(name);
    EXPECT_EQ(folder.Path(_T("pre")), firstName.Left(folder.Path().GetLength() + 4));
    EXPECT_EQ(CString(_T(".tmp")), firstName.Right(4));
    EXPECT_TRUE(File(name, kRead, OPEN_EXISTING).IsOpen());
    ASSERT_NE(0u, GetTempFileNameW(folder.Path(), _T("pre"), 0, name));
    EXPECT_NE(firstName, CString(name));

    EXPECT_EQ(0x1abcu, GetTempFileNameW(folder.Path(), _T("a"), 0x1abc, name));
    CString digits(name);
    EXPECT_EQ(0, digits.Right(9).CompareNoCase(_T("a1ABC.tmp")));
    EXPECT_EQ(INVALID_FILE_ATTRIBUTES, GetFileAttributesW(name));

    SetLastError(kUnset);
    EXPECT_EQ(0u, GetTempFileNameW(folder.Path(_T("none")), _T("a"), 0, name));
    EXPECT_EQ(267u, GetLastError());
}

} // namespace
