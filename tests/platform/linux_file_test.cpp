// Files and handles: Linux behaviour beyond the table shared with Windows.
#include "framework/replacement_file.h"
#include "platform/win32.h"

#include "support/temporary_folder.h"
#include "support/test.h"

#include <sys/stat.h>

#include <atomic>
#include <thread>

namespace {

HANDLE Open(const WCHAR* name, DWORD rights, DWORD disposition) {
    return CreateFileW(name, rights, 0, nullptr, disposition, 0, nullptr);
}

unsigned Permissions(const CString& name) {
    return static_cast<unsigned>(std::filesystem::status(name.ToUTF8()).permissions());
}

TEST(LinuxFile, WhatOneUserAloneMayReadIsNeverOpenToOthers) {
    const TemporaryFolder folder;
    WCHAR name[MAX_PATH];
    const mode_t mask = umask(0);
    EXPECT_NE(GetTempFileNameW(folder.Path(_T("")), _T("q"), 0, name), 0u);
    EXPECT_EQ(Permissions(name), 0600u) << "a temporary file";
    const CString secret = folder.Path(_T("secret"));
    folder.Write(_T("secret"), "old");
    EXPECT_EQ(chmod(CStringA(secret), 0640), 0);
    quorvel::ReplacementFile replacement(secret);
    EXPECT_EQ(Permissions(secret + _T(".0.tmp")), 0640u) << "while it is replaced";
    replacement.Write("new", 3);
    replacement.Commit();
    EXPECT_EQ(Permissions(secret), 0640u) << "afterwards";
    umask(mask);
}

TEST(LinuxHandle, IsClosedOnceWhateverTheThreadsAndNeverComesBack) {
    const TemporaryFolder folder;
    folder.Write(_T("file"), "0123456789");
    std::atomic<int> closes{0};
    for (int round = 0; round < 50; ++round) {
        const HANDLE file = Open(folder.Path(_T("file")), GENERIC_READ, OPEN_EXISTING);
        const auto close = [&] {
            char byte;
            DWORD count;
            ReadFile(file, &byte, 1, &count, nullptr);
            closes += CloseHandle(file);
        };
        std::thread other(close);
        close();
        other.join();
        const HANDLE next = Open(folder.Path(_T("file")), GENERIC_READ, OPEN_EXISTING);
        EXPECT_NE(file, next);
        EXPECT_TRUE(!CloseHandle(file) && CloseHandle(next));
    }
    EXPECT_EQ(50, closes);
}

TEST(LinuxFile, RefusesWhatWindowsRefuses) {
    const TemporaryFolder folder;
    folder.Write(_T("file"), "0123456789");
    folder.Write(_T("readonly"), "fixed");
    folder.SetReadOnly(_T("readonly"), true);
    const HANDLE reader = Open(folder.Path(_T("file")), GENERIC_READ, OPEN_EXISTING);
    const auto open = [](const CString& name, DWORD rights, DWORD disposition) {
        return ErrorOf([&] { return Open(name, rights, disposition) != INVALID_HANDLE_VALUE; });
    };
    const CString file = folder.Path(_T("file")), fixed = folder.Path(_T("readonly"));
    const auto replace = [&] { return MoveFileExW(file, fixed, MOVEFILE_REPLACE_EXISTING); };
    EXPECT_EQ(123u, open(folder.Path() + _T("/\xd83d"), GENERIC_WRITE, CREATE_NEW));
    EXPECT_EQ(87u, open(file, GENERIC_READ, TRUNCATE_EXISTING));
    EXPECT_EQ(5u, open(fixed, GENERIC_WRITE, OPEN_EXISTING));
    EXPECT_EQ(5u, ErrorOf([=] { return SetEndOfFile(reader); }));
    EXPECT_EQ(32u, ErrorOf(replace)) << "held open";
    EXPECT_TRUE(CloseHandle(reader));
    EXPECT_EQ(5u, ErrorOf(replace)) << "over a read-only file";
    EXPECT_EQ("0123456789", folder.Read(_T("file")));
}

TEST(LinuxFile, MovesToAnotherFileSystemOnlyWhenCopyingIsAllowed) {
    const TemporaryFolder folder;
    struct stat here, there;
    if (stat(CStringA(folder.Path()), &here) != 0 || stat("/dev/shm", &there) != 0 ||
        here.st_dev == there.st_dev)
        GTEST_SKIP() << "there is one file system only";
    const std::string contents(200'000, 'x');
    folder.Write(_T("file"), contents);
    const CString other =
        CString(_T("/dev/shm/")) + folder.Path().Mid(folder.Path().ReverseFind('/') + 1);
    EXPECT_EQ(17u, ErrorOf([&] { return MoveFileExW(folder.Path(_T("file")), other, 0); }));
    EXPECT_TRUE(MoveFileW(folder.Path(_T("file")), other));
    EXPECT_FALSE(folder.Has(_T("file")));
    EXPECT_TRUE(MoveFileExW(other, folder.Path(_T("back")), MOVEFILE_COPY_ALLOWED));
    EXPECT_EQ(contents, folder.Read(_T("back")));
}

} // namespace
