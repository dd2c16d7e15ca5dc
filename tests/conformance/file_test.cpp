// Handles and files: one table of calls for both systems.
#include "platform/win32.h"

#include "support/temporary_folder.h"
#include "support/test.h"

namespace {

constexpr DWORD kRead = GENERIC_READ;
constexpr DWORD kWrite = GENERIC_WRITE;
constexpr DWORD kBoth = GENERIC_READ | GENERIC_WRITE;
constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

class File {
public:
    File(const WCHAR* name, DWORD rights, DWORD disposition, DWORD share = 0, DWORD flags = 0)
        : m_handle(CreateFileW(name, rights, share, nullptr, disposition, flags, nullptr)) {}
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
        DWORD count;
        return WriteFile(m_handle, bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr);
    }
    LONGLONG Size() {
        LARGE_INTEGER size;
        return GetFileSizeEx(m_handle, &size) ? size.QuadPart : -1;
    }

private:
    HANDLE m_handle;
};

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
    // Error 0 or 183 means that the file opens; size -1 that it does not.
    const std::tuple<const char*, const WCHAR*, DWORD, DWORD, DWORD, LONGLONG> rows[] = {
        {"create new over a file", _T("file"), kWrite, CREATE_NEW, 80, -1},
        {"create always to read", _T("file"), kRead, CREATE_ALWAYS, 183, 0},
        {"open by an odd path", _T("folder//..\\file"), kRead, OPEN_EXISTING, 0, 10},
        {"open below a file", _T("file/new"), kRead, OPEN_EXISTING, 3, -1},
        {"open always, a file", _T("file"), kBoth, OPEN_ALWAYS, 183, 10},
        {"truncate a file", _T("file"), kWrite, TRUNCATE_EXISTING, 0, 0},
        {"no disposition", _T("file"), kRead, 0, 87, -1},
        {"a folder to read", _T("folder"), kRead, OPEN_EXISTING, 5, -1},
    };
    for (const auto& [label, name, rights, disposition, error, size] : rows) {
        SCOPED_TRACE(label);
        File file(folder.Path(name), rights, disposition);
        EXPECT_EQ(error, GetLastError());
        EXPECT_EQ(size, file.Size());
        file.Close();
        folder.Write(_T("file"), "0123456789");
    }
}

TEST_F(FileConformance, ANewFileIsReadOnlyWhereThatIsAskedFor) {
    const auto write = [&](const WCHAR* name, DWORD disposition) {
        EXPECT_TRUE(
            File(folder.Path(name), kWrite, disposition, 0, FILE_ATTRIBUTE_READONLY).Write("x"));
        return (GetFileAttributesW(folder.Path(name)) & FILE_ATTRIBUTE_READONLY) != 0;
    };
    for (const DWORD disposition : {CREATE_NEW, CREATE_ALWAYS, OPEN_ALWAYS}) {
        EXPECT_TRUE(write(_T("new"), disposition)) << disposition;
        folder.SetReadOnly(_T("new"), false);
        EXPECT_TRUE(DeleteFileW(folder.Path(_T("new"))));
    }
    EXPECT_FALSE(write(_T("file"), OPEN_ALWAYS)) << "not one that exists";
    EXPECT_EQ(write(_T("file"), CREATE_ALWAYS), kOnLinux)
        << "unless it is made anew; Wine leaves the attributes of a file that it cuts";
}

TEST_F(FileConformance, ShareModesAdmitWhatBothSidesAllow) {
    constexpr DWORD kReaders = FILE_SHARE_READ;
    const auto open = [&](DWORD rights, DWORD disposition, DWORD share) {
        return ErrorOf([&] {
            return File(folder.Path(_T("folder/../file")), rights, disposition, share).IsOpen();
        });
    };
    const std::tuple<DWORD, DWORD, DWORD, DWORD, bool> rows[] = {
        {kRead, 0, kRead, kShareAll, false},
        {kRead, kReaders, kRead, kReaders, true},
        {kRead, kReaders, kRead, 0, false},
        {kRead, kReaders, kWrite, kReaders, false},
        {kRead, FILE_SHARE_WRITE, kWrite, kReaders, true},
        {kWrite, kReaders, kRead, kReaders, false},
        {kRead, kReaders, 0, 0, true},
        {kRead, kReaders, DELETE, kShareAll, false},
    };
    for (const auto& [rights, share, secondRights, secondShare, opens] : rows) {
        const File first(folder.Path(_T("file")), rights, OPEN_EXISTING, share);
        ASSERT_TRUE(first.IsOpen());
        EXPECT_EQ(opens ? 0u : 32u, open(secondRights, OPEN_EXISTING, secondShare))
            << rights << ' ' << share << ' ' << secondRights << ' ' << secondShare;
    }
    File held(folder.Path(_T("file")), kRead, OPEN_EXISTING, FILE_SHARE_READ);
    EXPECT_EQ(32u, open(kWrite, CREATE_ALWAYS, kShareAll));
    EXPECT_EQ(10, held.Size()) << "a refused file must not have been cut";
}

TEST_F(FileConformance, AHandleDoesOnlyWhatItsRightsAllow) {
    File reader(folder.Path(_T("file")), kRead, OPEN_EXISTING);
    File writer(folder.Path(_T("other")), kWrite, OPEN_EXISTING);
    const HANDLE invented = reinterpret_cast<HANDLE>(UINT_PTR{0x7654320});
    const auto seek = [&](LONGLONG distance, DWORD method) {
        LARGE_INTEGER move;
        move.QuadPart = distance;
        return SetFilePointerEx(reader.Get(), move, nullptr, method);
    };
    char byte;
    DWORD count;
    ExpectCases<DWORD>(
        {CASE(ErrorOf([&] { return ReadFile(writer.Get(), &byte, 1, &count, nullptr); }), 5),
         CASE(ErrorOf([&] { return reader.Write(""); }), 5),
         CASE(ErrorOf([&] { return WriteFile(invented, "", 0, &count, nullptr); }), 6),
         CASE(ErrorOf([&] { return CloseHandle(invented); }), 6),
         CASE(ErrorOf([&] { return seek(-11, FILE_END); }), 131),
         CASE(ErrorOf([&] { return seek(0, 3); }), 87)});
}

TEST_F(FileConformance, NamesAreDeletedAndMovedWithTheErrorsOfEachCase) {
    File held(folder.Path(_T("folder/inside")), kRead, OPEN_EXISTING, FILE_SHARE_READ);
    const auto remove = [&](const WCHAR* name) {
        return ErrorOf([&] { return DeleteFileW(folder.Path(name)); });
    };
    const auto move = [&](const WCHAR* from, const WCHAR* to, DWORD flags = 0) {
        return ErrorOf([&] { return MoveFileExW(folder.Path(from), folder.Path(to), flags); });
    };
    const WCHAR* const inside = _T("folder/inside"); // kept open
    constexpr DWORD kReplace = MOVEFILE_REPLACE_EXISTING;
    ExpectCases<DWORD>({CASE(remove(_T("none")), 2), CASE(remove(_T("readonly")), 5),
                        CASE(remove(inside), 32), CASE(move(_T("file"), _T("none/new")), 3),
                        CASE(move(_T("file"), _T("other")), 183),
                        CASE(move(_T("file"), _T("empty"), kReplace), 5),
                        CASE(move(_T("file"), inside, kReplace), 5),
                        CASE(move(inside, _T("new")), 32), CASE(move(_T("file"), _T("moved")), 0),
                        CASE(move(_T("moved"), _T("other"), kReplace), 0)});
    EXPECT_EQ("0123456789", folder.Read(_T("other")));
}

} // namespace
