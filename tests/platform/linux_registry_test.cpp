#include "platform/linux/registry/registry_place.h"
#include "platform/linux/registry/registry_store.h"

#include "support/environment.h"
#include "support/registry.h"
#include "support/temporary_folder.h"
#include "support/test.h"

#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <thread>

using namespace quorvel;

namespace {

constexpr RegistryKey kUser = {2, 0};
constexpr WCHAR kFile[] = _T("registry.db");

// A folder with a registry file in it.
class Place : public TemporaryFolder {
public:
    std::string File() const { return std::string(CStringA(Path(kFile))); }
    std::string Folder() const { return std::string(CStringA(Path())); }
};

std::u16string Name(int number) {
    const std::string digits = std::to_string(number);
    return u"value " + std::u16string(digits.begin(), digits.end());
}

DWORD Write(RegistryStore& store, std::u16string_view name, const std::string& data,
            const RegistryKey& key = kUser) {
    return store.Write(key, name, REG_BINARY, data);
}

// The data of a value, or its error code as "error 2".
std::string Read(RegistryStore& store, std::u16string_view name, const RegistryKey& key = kUser) {
    std::string data(256, 0);
    RegistryValue value;
    value.buffer = reinterpret_cast<BYTE*>(data.data());
    value.capacity = 256;
    if (const DWORD error = store.Read(key, name, value))
        return "error " + std::to_string(error);
    return data.substr(0, static_cast<std::size_t>(value.size));
}

// Enough values for several pages.
void Fill(RegistryStore& store) {
    for (int i = 0; i < 200; ++i)
        ASSERT_EQ(Write(store, Name(i), std::string(100, 'x')), 0u);
}

void Execute(const std::string& file, const char* sql) {
    sqlite3* database = nullptr;
    const int flags = SQLITE_OPEN_READWRITE;
    ASSERT_EQ(quorvel::sqlite3_open_v2(file.c_str(), &database, flags, nullptr), SQLITE_OK);
    EXPECT_EQ(quorvel::sqlite3_exec(database, sql, nullptr, nullptr, nullptr), SQLITE_OK) << sql;
    quorvel::sqlite3_close(database);
}

RegistryKey Create(RegistryStore& store, const std::u16string& path) {
    RegistryKey key = {};
    bool isNew = false;
    EXPECT_EQ(store.Create(kUser, path, key, isNew), 0u);
    return key;
}

// Runs `body` in a new process and returns at once; its failures are printed there.
pid_t Start(const std::function<void()>& body) {
    const pid_t child = fork();
    if (child == 0) {
        body();
        std::fflush(stdout);
        _exit(testing::Test::HasFailure());
    }
    return child;
}

void ExpectSuccess(pid_t child) {
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
}

// Runs as a user other than root, since permissions do not restrict root.
void RunAsNobody(const std::function<void()>& body) {
    ExpectSuccess(Start([&] {
        ASSERT_TRUE(geteuid() != 0 || setuid(65534) == 0);
        body();
    }));
}

} // namespace

TEST(RegistryPlace, IsWhatTheVariableNamesOrTheUsersDataFolder) {
    const EnvironmentVariable data("XDG_DATA_HOME", "/data");
    const EnvironmentVariable none("QUORVEL_REGISTRY", nullptr);
    std::string path;
    EXPECT_EQ(LocateRegistry(path), 0u);
    EXPECT_EQ(path, "/data/quorvel/registry.db");
    const EnvironmentVariable relative("QUORVEL_REGISTRY", "file");
    EXPECT_EQ(LocateRegistry(path), DWORD{ERROR_BAD_PATHNAME});
}

TEST(RegistryFile, IsMadeByTheFirstWriteForItsUserAlone) {
    const Place place;
    const std::string file = place.Folder() + "/a/b/registry.db";
    RegistryStore store(file);
    EXPECT_EQ(Read(store, u"v"), "error 2");
    EXPECT_FALSE(place.Has(_T("a")));
    EXPECT_EQ(Write(store, u"v", "data"), 0u);
    const auto mode = [](const std::string& path) {
        return static_cast<unsigned>(std::filesystem::status(path).permissions());
    };
    EXPECT_EQ(mode(file), 0600u);
    EXPECT_EQ(mode(place.Folder() + "/a"), 0700u);
}

TEST(RegistryFile, IsMovedAsideWhenDamagedAndLeftAloneWhenItIsOfOthers) {
    constexpr DWORD kDamaged = ERROR_REGISTRY_CORRUPT;
    // The bytes that are overwritten, and what is executed.
    const std::tuple<std::size_t, std::size_t, const char*, DWORD> rows[] = {
        {0, 12, "", kDamaged},
        {100, 500, "", kDamaged},
        {4096, 8192, "", kDamaged},
        {0, 0, "CREATE TRIGGER t AFTER INSERT ON entries BEGIN DELETE FROM keys; END", kDamaged},
        {0, 0, "DROP TABLE entries; CREATE VIEW entries AS SELECT * FROM keys", kDamaged},
        {0, 0, "PRAGMA user_version = 2", ERROR_REVISION_MISMATCH},
        {0, 0, "PRAGMA application_id = 7", ERROR_BADDB},
    };
    const Place place;
    int number = 0;
    for (const auto& [from, count, sql, error] : rows) {
        SCOPED_TRACE(testing::Message() << from << sql);
        RegistryStore store(place.File());
        Fill(store);
        store.Close();
        std::string bytes = place.Read(kFile);
        place.Write(kFile, bytes.replace(from, count, count, 'x'));
        Execute(place.File(), sql);
        bytes = place.Read(kFile);
        EXPECT_EQ(Write(store, u"v", "data"), error);
        CString aside = kFile;
        if (error == kDamaged)
            aside.AppendFormat(_T(".damaged-%d"), ++number);
        EXPECT_TRUE(place.Read(aside) == bytes);
        EXPECT_EQ(place.Has(kFile), error != kDamaged);
        std::filesystem::remove(place.File());
        EXPECT_EQ(Write(store, u"new", "data"), 0u);
        EXPECT_EQ(Read(store, Name(7)), "error 2");
    }
}

TEST(RegistryFile, MayBeReadWhereItCannotBeWritten) {
    const Place place;
    RegistryStore writer(place.File());
    ASSERT_EQ(Write(writer, u"v", "data"), 0u);
    writer.Close();
    std::filesystem::remove(place.File() + "-lock");
    const std::tuple<const char*, mode_t, mode_t> rows[] = {{"the folder", 0555, 0666},
                                                            {"the file", 0777, 0444}};
    for (const auto& [label, folder, file] : rows) {
        chmod(place.File().c_str(), file);
        chmod(place.Folder().c_str(), folder);
        RunAsNobody([&, l = label] {
            SCOPED_TRACE(l);
            RegistryStore store(place.File());
            RegistryKey key = {};
            EXPECT_EQ(Read(store, u"v"), "data");
            EXPECT_EQ(Write(store, u"v", "other"), ERROR_ACCESS_DENIED);
            EXPECT_EQ(store.Open(kUser, u"", true, key), ERROR_ACCESS_DENIED);
            EXPECT_EQ(store.Open(kUser, u"", false, key), 0u);
        });
    }
    // With a log but without its index it cannot even be read; that must not look like "not found".
    std::filesystem::remove(place.File() + "-shm");
    place.Write(_T("registry.db-wal"), "log");
    chmod(place.Folder().c_str(), 0555);
    RunAsNobody([&] {
        RegistryStore store(place.File());
        EXPECT_EQ(Read(store, u"v"), "error 5");
    });
    chmod(place.Folder().c_str(), 0700);
}

TEST(RegistryFile, AFullDiskRefusesTheWriteAndKeepsWhatIsThere) {
    const Place place;
    {
        RegistryStore store(place.File());
        Fill(store);
    }
    const std::string old(100, 'x'), large(200'000, 'y');
    const auto limitFileSize = [](rlim_t size, rlim_t hardLimit) {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit = {size, hardLimit};
        setrlimit(RLIMIT_FSIZE, &limit);
    };
    ExpectSuccess(Start([&] {
        RegistryStore store(place.File());
        limitFileSize(100'000, 100'000);
        for (int i = 0; i < 100; ++i) // otherwise the log alone would exceed it
            ASSERT_EQ(Write(store, u"same", std::to_string(i)), 0u);
        EXPECT_EQ(Write(store, u"large", large), ERROR_FILE_TOO_LARGE);
        EXPECT_EQ(Read(store, Name(199)), old);
    }));
    ExpectSuccess(Start([&] { // no room even for reading
        RegistryStore store(place.File());
        RegistryKey key = {};
        limitFileSize(0, 10'000'000);
        EXPECT_EQ(store.Open(kUser, u"", true, key), 0u);
        EXPECT_EQ(Write(store, u"small", "data"), ERROR_FILE_TOO_LARGE);
        EXPECT_EQ(Read(store, Name(199)), old);
        limitFileSize(10'000'000, 10'000'000);
        RegistryStore other(place.File()); // has room, and changes the file
        for (int i = 0; i < 199; ++i)
            other.DeleteValue(kUser, Name(i));
        EXPECT_EQ(Write(other, Name(199), "new"), 0u);
        other.Close();
        for (int i = 0; i < 1'000'000 && Read(store, Name(199)) != "new"; ++i) {
        } // the change is visible soon
        EXPECT_FALSE(place.Has(_T("registry.db.damaged-1")));
        EXPECT_EQ(Read(store, Name(199)), "new");
    }));
    RegistryStore store(place.File());
    EXPECT_EQ(Read(store, u"large"), "error 2");
    EXPECT_EQ(Read(store, Name(199)), "new");
    EXPECT_EQ(Write(store, u"large", large), 0u);
}

TEST(RegistryFile, IsConsistentWhereverAPowerCutEndsItsLog) {
    const Place place;
    RegistryStore store(place.File());
    Fill(store);
    const std::string database = place.Read(kFile);
    const std::string log = place.Read(_T("registry.db-wal"));
    ASSERT_GT(log.size(), 20'000u);
    for (std::size_t size = 0; size < log.size(); size += log.size() / 20 - 7) {
        const Place after;
        after.Write(kFile, database);
        after.Write(_T("registry.db-wal"), log.substr(0, size));
        RegistryStore survivor(after.File());
        int count = 0; // the writes up to some point exist
        while (count < 200 && Read(survivor, Name(count)) == std::string(100, 'x'))
            ++count;
        for (int i = count; i < 200; ++i)
            EXPECT_EQ(Read(survivor, Name(i)), "error 2") << size;
        EXPECT_EQ(Write(survivor, u"after", "data"), 0u) << size;
    }
    const Place emptied;
    emptied.Write(kFile, "");
    emptied.Write(_T("registry.db-wal"), log);
    RegistryStore survivor(emptied.File());
    EXPECT_EQ(Read(survivor, Name(0)), "error 1015");
    EXPECT_TRUE(emptied.Read(_T("registry.db.damaged-1-wal")) == log);
}

TEST(RegistryFile, ThatIsReplacedIsOpenedAnew) {
    const Place place;
    RegistryStore store(place.File());
    const RegistryKey key = Create(store, u"k");
    ASSERT_EQ(Write(store, u"v", "data", key), 0u);
    for (const char* suffix : {"", "-wal", "-shm"})
        std::filesystem::remove(place.File() + suffix);
    EXPECT_EQ(Write(store, u"v", "data", key), DWORD{ERROR_KEY_DELETED});
    EXPECT_EQ(Read(store, u"v", Create(store, u"k")), "error 2");
    EXPECT_EQ(Read(store, u"v", key), "error 1018"); // a different key
}

TEST(RegistryFile, EightProcessesWritingAtOnceLoseNothing) {
    constexpr int kProcesses = 8;
    constexpr int kValues = 150;
    const Place place; // all start without a file
    std::vector<pid_t> children;
    for (int process = 0; process < kProcesses; ++process)
        children.push_back(Start([&, process] {
            RegistryStore store(place.File());
            for (int i = 0; i < kValues; ++i) {
                const RegistryKey key = Create(store, u"shared\\" + Name(i % 10));
                ASSERT_EQ(Write(store, Name(process * kValues + i), "a", key), 0u);
            }
        }));
    for (const pid_t child : children)
        ExpectSuccess(child);
    RegistryStore store(place.File());
    for (int i = 0; i < kProcesses * kValues; ++i) {
        RegistryKey key = {};
        EXPECT_EQ(store.Open(kUser, u"shared\\" + Name(i % kValues % 10), false, key), 0u);
        EXPECT_EQ(Read(store, Name(i), key), "a");
    }
}

TEST(RegistryStore, ServesSeveralThreads) {
    const Place place;
    RegistryStore store(place.File());
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 4; ++thread)
        threads.emplace_back([&store, thread] {
            for (int i = 0; i < 100; ++i) {
                const RegistryKey key = Create(store, u"k");
                EXPECT_EQ(Write(store, Name(thread), std::to_string(i), key), 0u);
                EXPECT_EQ(Read(store, Name(thread), key), std::to_string(i));
            }
        });
    for (std::thread& thread : threads)
        thread.join();
}

TEST(Registry, OpenKeysServeAChildProcessAsWell) {
    const TestKey test;
    EXPECT_EQ(TestKey::Set(test.Get(), _T("v"), REG_BINARY, "a"), 0);
    ExpectSuccess(Start([&] { EXPECT_EQ(TestKey::Set(test.Get(), _T("v"), REG_BINARY, "b"), 0); }));
    BYTE data = 0;
    DWORD size = 1;
    EXPECT_EQ(win32::RegQueryValueExW(test.Get(), _T("v"), nullptr, nullptr, &data, &size), 0);
    EXPECT_EQ(data, 'b');
}
