// Handles and files: one table of calls for both systems.
#include "platform/win32.h"

#include "support/cases.h"
#include "support/last_error.h"
#include "support/temporary_folder.h"
#include "support/text.h"

#include <cstring>
#include <tuple>

namespace {

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

    DWORD OpenError(const WCHAR* name, DWORD rights, DWORD disposition, DWORD share) {
        return ErrorOf(
            [&] { return File(folder.Path(name), rights, disposition, share).IsOpen(); });
    }

    TemporaryFolder folder;
};

TEST_F(FileConformance, OpeningGivesTheResultAndErrorOfEachDisposition) {
    // With error 0 or 183 it opens.
    const std::tuple<const char*, const WCHAR*, DWORD, DWORD, DWORD, LONGLONG> rows[] = {
        {"create a new file", _T("new"), kWrite, CREATE_NEW, 0, 0},
        {"create new over a file", _T("file"), kWrite, CREATE_NEW, 80, 10},
        {"create new over a folder", _T("folder"), kWrite, CREATE_NEW, 80, 0},
        {"create always, new", _T("new"), kWrite, CREATE_ALWAYS, 0, 0},
        {"create always to read", _T("file"), kRead, CREATE_ALWAYS, 183, 0},
        {"open by an odd path", _T("folder//..\\file"), kRead, OPEN_EXISTING, 0, 10},
        {"open a missing file", _T("new"), kRead, OPEN_EXISTING, 2, 0},
        {"open in a missing folder", _T("none/new"), kRead, OPEN_EXISTING, 3, 0},
        {"create in a missing folder", _T("none/new"), kWrite, CREATE_ALWAYS, 3, 0},
        {"open below a file", _T("file/new"), kRead, OPEN_EXISTING, 3, 0},
        {"open always, new", _T("new"), kBoth, OPEN_ALWAYS, 0, 0},
        {"open always, a file", _T("file"), kBoth, OPEN_ALWAYS, 183, 10},
        {"truncate a file", _T("file"), kWrite, TRUNCATE_EXISTING, 0, 0},
        {"truncate a missing file", _T("new"), kWrite, TRUNCATE_EXISTING, 2, 0},
        {"no disposition", _T("file"), kRead, 0, 87, 10},
        {"an unknown disposition", _T("file"), kRead, 6, 87, 10},
        {"a folder to read", _T("folder"), kRead, OPEN_EXISTING, 5, 0},
        {"a folder to write", _T("folder"), kWrite, OPEN_ALWAYS, 5, 0},
        {"a read-only file to read", _T("readonly"), kRead, OPEN_EXISTING, 0, 5},
        {"no rights", _T("file"), 0, OPEN_EXISTING, 0, 10},
    };
    for (const auto& [label, name, rights, disposition, error, size] : rows) {
        SCOPED_TRACE(label);
        SetLastError(kUnset);
        File file(folder.Path(name), rights, disposition);
        EXPECT_EQ(error, GetLastError());
        ASSERT_EQ(error == 0 || error == 183, file.IsOpen());
        if (file.IsOpen()) {
            EXPECT_EQ(size, file.Size());
            EXPECT_EQ(DWORD{FILE_TYPE_DISK}, GetFileType(file.Get()));
        } else if (size > 0) {
            EXPECT_EQ(size, File(folder.Path(name), kRead, OPEN_EXISTING).Size());
        }
        file.Close();
        DeleteFileW(folder.Path(_T("new")));
        folder.Write(_T("file"), "0123456789");
    }
}

TEST_F(FileConformance, NamesThatCannotNameAFileAreRefused) {
    for (const WCHAR* name : {static_cast<const WCHAR*>(nullptr), _T(""), _T("Q:\\none\\file")}) {
        SCOPED_TRACE(testing::PrintToString(CString(name)));
        EXPECT_EQ(3u, ErrorOf([=] { return File(name, kWrite, CREATE_ALWAYS).IsOpen(); }));
        EXPECT_EQ(3u, ErrorOf([=] { return DeleteFileW(name); }));
        EXPECT_EQ(3u, ErrorOf([=] { return GetFileAttributesW(name) != INVALID_FILE_ATTRIBUTES; }));
    }
}

TEST_F(FileConformance, NamesOfEveryScriptAreFoundAgain) {
    const WCHAR* const names[] = {_T("Größe"), _T("日本語.xml"), _T("\xd83d\xde00 face"),
                                  _T("a b.c.d")};
    for (const WCHAR* name : names) {
        SCOPED_TRACE(testing::PrintToString(CString(name)));
        EXPECT_TRUE(File(folder.Path(name), kWrite, CREATE_NEW).Write("x"));
        EXPECT_EQ("x", folder.Read(name));
        EXPECT_TRUE(DeleteFileW(folder.Path(name)));
        EXPECT_FALSE(folder.Has(name));
    }
}

TEST_F(FileConformance, ShareModesAdmitWhatBothSidesAllow) {
    constexpr DWORD kNone = 0;
    constexpr DWORD kReaders = FILE_SHARE_READ;
    constexpr DWORD kWriters = FILE_SHARE_WRITE;
    struct Row {
        DWORD firstRights, firstShare, secondRights, secondShare;
        bool opens;
    };
    static const Row kRows[] = {
        {kRead, kNone, kRead, kShareAll, false},     {kRead, kReaders, kRead, kReaders, true},
        {kRead, kReaders, kRead, kNone, false},      {kRead, kReaders, kWrite, kReaders, false},
        {kRead, kWriters, kWrite, kReaders, true},   {kWrite, kReaders, kRead, kReaders, false},
        {kWrite, kReaders, kRead, kWriters, true},   {kBoth, kShareAll, kBoth, kShareAll, true},
        {kRead, kReaders, 0, kNone, true},           {kRead, kReaders, DELETE, kShareAll, false},
        {kRead, kShareAll, DELETE, kShareAll, true},
    };
    for (const Row& row : kRows) {
        SCOPED_TRACE(&row - kRows);
        File first(folder.Path(_T("file")), row.firstRights, OPEN_EXISTING, row.firstShare);
        ASSERT_TRUE(first.IsOpen());
        EXPECT_EQ(row.opens ? 0u : 32u, OpenError(_T("folder/../file"), row.secondRights,
                                                  OPEN_EXISTING, row.secondShare));
    }
    File held(folder.Path(_T("file")), kRead, OPEN_EXISTING, FILE_SHARE_READ);
    EXPECT_EQ(32u, OpenError(_T("file"), kWrite, CREATE_ALWAYS, kShareAll));
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
    EXPECT_TRUE(SetEndOfFile(file.Get()) && FlushFileBuffers(file.Get()));
    EXPECT_EQ(2, file.Size());

    const auto error = [&](LONGLONG distance, DWORD method) {
        EXPECT_EQ(-1, file.Seek(distance, method));
        return GetLastError();
    };
    ExpectCases<DWORD>({CASE(error(-1, FILE_BEGIN), 131), CASE(error(-3, FILE_CURRENT), 131),
                        CASE(error(-3, FILE_END), 131), CASE(error(0, 3), 87)});
    EXPECT_EQ(2, file.Seek(0, FILE_CURRENT));
    EXPECT_EQ(5'000'000'000, file.Seek(5'000'000'000, FILE_BEGIN)) << "beyond 4 GB";
}

TEST_F(FileConformance, AHandleDoesOnlyWhatItsRightsAllow) {
    folder.Write(_T("third"), "");
    File reader(folder.Path(_T("file")), kRead, OPEN_EXISTING);
    File writer(folder.Path(_T("other")), kWrite, OPEN_EXISTING);
    File nothing(folder.Path(_T("third")), 0, OPEN_EXISTING);
    static char s_byte;
    static DWORD s_count;
    static LARGE_INTEGER s_value;
    static const struct {
        char key;
        BOOL (*call)(HANDLE);
    } kOperations[] = {
        {'r', [](HANDLE file) { return ReadFile(file, &s_byte, 1, &s_count, nullptr); }},
        {'w', [](HANDLE file) { return WriteFile(file, &s_byte, 1, &s_count, nullptr); }},
        {'s', [](HANDLE file) { return GetFileSizeEx(file, &s_value); }},
        {'p', [](HANDLE file) { return SetFilePointerEx(file, {}, nullptr, FILE_BEGIN); }},
        {'e', [](HANDLE file) { return SetEndOfFile(file); }},
        {'f', [](HANDLE file) { return FlushFileBuffers(file); }},
        {'c', [](HANDLE file) { return CloseHandle(file); }},
    };
    const struct {
        const char* label;
        HANDLE handle;
        const char* operations; // their keys
        DWORD error;            // 0: they work
    } rows[] = {
        {"read from a reader", reader.Get(), "rsp", 0},
        {"write to a reader", reader.Get(), "wf", 5},
        {"read from a writer", writer.Get(), "r", 5},
        {"write to a writer", writer.Get(), "wspef", 0},
        {"without rights", nothing.Get(), "rwf", 5},
        {"ask without rights", nothing.Get(), "sp", 0},
        {"null", nullptr, "rwspefc", 6},
        {"invalid", INVALID_HANDLE_VALUE, "rwspef", 6},
        {"invented", reinterpret_cast<HANDLE>(UINT_PTR{0x7654320}), "rwspefc", 6},
    };
    for (const auto& row : rows)
        for (const auto& operation : kOperations)
            if (std::strchr(row.operations, operation.key) != nullptr) {
                EXPECT_EQ(row.error, ErrorOf([&] { return operation.call(row.handle); }))
                    << row.label << ' ' << operation.key;
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
    EXPECT_EQ(6u, ErrorOf([&] {
                  return DuplicateHandle(GetCurrentProcess(), moved, GetCurrentProcess(), &none, 0,
                                         FALSE, DUPLICATE_SAME_ACCESS);
              }));
}

TEST_F(FileConformance, AFileMarkedForItGoesWithItsLastHandle) {
    File file(folder.Path(_T("passing")), kBoth, CREATE_NEW, kShareAll, FILE_FLAG_DELETE_ON_CLOSE);
    ASSERT_TRUE(file.IsOpen());
    EXPECT_EQ(32u, OpenError(_T("passing"), kRead, OPEN_EXISTING, FILE_SHARE_READ));
    EXPECT_TRUE(folder.Has(_T("passing")));
    file.Close();
    EXPECT_FALSE(folder.Has(_T("passing")));
}

TEST_F(FileConformance, NamesAreDeletedMovedAndMadeWithTheErrorsOfEachCase) {
    File held(folder.Path(_T("folder/inside")), kRead, OPEN_EXISTING, FILE_SHARE_READ);
    const auto path = [this](const WCHAR* name) { return folder.Path(name); };
    const auto remove = [&](const WCHAR* name) {
        return ErrorOf([&] { return DeleteFileW(path(name)); });
    };
    const auto move = [&](const WCHAR* from, const WCHAR* to, DWORD flags = 0) {
        return ErrorOf([&] { return MoveFileExW(path(from), path(to), flags); });
    };
    const auto make = [&](const WCHAR* name) {
        return ErrorOf([&] { return CreateDirectoryW(path(name), nullptr); });
    };
    const auto clear = [&](const WCHAR* name) {
        return ErrorOf([&] { return RemoveDirectoryW(path(name)); });
    };
    const WCHAR* const inside = _T("folder/inside"); // held open
    constexpr DWORD kReplace = MOVEFILE_REPLACE_EXISTING;
    ExpectCases<DWORD>({CASE(remove(_T("none")), 2),
                        CASE(remove(_T("empty")), 5),
                        CASE(remove(_T("readonly")), 5),
                        CASE(remove(inside), 32),
                        CASE(move(_T("none"), _T("new")), 2),
                        CASE(move(_T("file"), _T("none/new")), 3),
                        CASE(move(_T("file"), _T("other")), 183),
                        CASE(move(_T("file"), _T("empty"), kReplace), 5),
                        CASE(move(_T("file"), inside, kReplace), 5),
                        CASE(move(inside, _T("new")), 32),
                        CASE(move(_T("file"), _T("file")), 0),
                        CASE(move(_T("file"), _T("moved")), 0),
                        CASE(move(_T("moved"), _T("other"), kReplace), 0),
                        CASE(move(_T("readonly"), _T("fixed")), 0),
                        CASE(move(_T("fixed"), _T("readonly")), 0),
                        CASE(make(_T("folder")), 183),
                        CASE(make(_T("other")), 183),
                        CASE(make(_T("none/new")), 3),
                        CASE(make(_T("made")), 0),
                        CASE(move(_T("made"), _T("empty/made")), 0),
                        CASE(clear(_T("empty")), 145),
                        CASE(clear(_T("empty/made")), 0),
                        CASE(clear(_T("none")), 2),
                        CASE(clear(_T("other")), 267)});
    EXPECT_EQ("0123456789", folder.Read(_T("other")));
    EXPECT_EQ("fixed", folder.Read(_T("readonly")));
}

TEST_F(FileConformance, AttributesTellFoldersAndReadOnlyFiles) {
    const auto attributes = [this](const WCHAR* name) {
        const DWORD all = GetFileAttributesW(folder.Path(name));
        return all == INVALID_FILE_ATTRIBUTES
                   ? all
                   : all & (FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_DIRECTORY);
    };
    ExpectCases<DWORD>({CASE(attributes(_T("file")), 0),
                        CASE(attributes(_T("readonly")), FILE_ATTRIBUTE_READONLY),
                        CASE(attributes(_T("folder")), FILE_ATTRIBUTE_DIRECTORY),
                        CASE(attributes(_T("folder\\")), FILE_ATTRIBUTE_DIRECTORY),
                        CASE(attributes(_T("none")), INVALID_FILE_ATTRIBUTES)});
    EXPECT_EQ(GetLastError(), 2u);
}

TEST_F(FileConformance, FullNamesLoseDotsAndRepeatedSeparators) {
    WCHAR current[MAX_PATH];
    const DWORD length = GetCurrentDirectoryW(0, nullptr);
    EXPECT_EQ(length - 1, GetCurrentDirectoryW(length, current));
    // What follows the current folder, with "/" for the separator, a bar and the last part.
    const auto full = [&](const WCHAR* name) {
        WCHAR buffer[MAX_PATH];
        WCHAR* last = buffer;
        const DWORD count = GetFullPathNameW(name, MAX_PATH, buffer, &last);
        CString path(buffer, static_cast<int>(count));
        EXPECT_EQ(path.Left(static_cast<int>(length) - 1), current);
        EXPECT_EQ(count + 1, GetFullPathNameW(name, count, buffer, nullptr));
        path = path.Mid(static_cast<int>(length) - 1) + _T("|") + CString(last);
        path.Replace('\\', '/');
        return path;
    };
    ExpectCases<CString, const WCHAR*>({
        CASE(full(_T("name")), _T("/name|name")),
        CASE(full(_T("a\\b/c")), _T("/a/b/c|c")),
        CASE(full(_T("a//.\\b")), _T("/a/b|b")),
        CASE(full(_T("a/../b")), _T("/b|b")),
        CASE(full(_T("a/")), _T("/a/|")),
        CASE(full(_T("a/..b/...c")), _T("/a/..b/...c|...c")),
    });
    EXPECT_EQ(0u, GetFullPathNameW(_T(""), 0, nullptr, nullptr));
}

TEST_F(FileConformance, TemporaryFilesGetAFreeNameInTheirFolder) {
    WCHAR name[MAX_PATH];
    const DWORD length = GetTempPathW(MAX_PATH, name);
    EXPECT_TRUE(name[length - 1] == '/' || name[length - 1] == '\\');
    EXPECT_EQ(length + 1, GetTempPathW(length, name));

    ASSERT_NE(0u, GetTempFileNameW(folder.Path(), _T("prefix"), 0, name));
    const CString first(name);
    EXPECT_EQ(folder.Path(_T("pre")), first.Left(folder.Path().GetLength() + 4));
    EXPECT_EQ(CString(_T(".tmp")), first.Right(4));
    EXPECT_TRUE(File(name, kRead, OPEN_EXISTING).IsOpen());
    ASSERT_NE(0u, GetTempFileNameW(folder.Path(), _T("pre"), 0, name));
    EXPECT_NE(first, CString(name));

    EXPECT_EQ(0x1abcu, GetTempFileNameW(folder.Path(), _T("a"), 0x1abc, name));
    EXPECT_EQ(0, CString(name).Right(9).CompareNoCase(_T("a1ABC.tmp")));
    EXPECT_EQ(INVALID_FILE_ATTRIBUTES, GetFileAttributesW(name));
    EXPECT_EQ(267u,
              ErrorOf([&] { return GetTempFileNameW(folder.Path(_T("none")), _T("a"), 0, name); }));
}

} // namespace
