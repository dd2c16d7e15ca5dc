// The registry's file: damage, limits, and use by several processes.
#include "platform/linux/registry/registry_place.h"
#include "platform/linux/registry/registry_store.h"

#include "support/environment.h"
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
    const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
    ASSERT_EQ(quorvel::sqlite3_open_v2(file.c_str(), &database, flags, nullptr), SQLITE_OK);
    EXPECT_EQ(quorvel::sqlite3_exec(database, sql, nullptr, nullptr, nullptr), SQLITE_OK) << sql;
    quorvel::sqlite3_close(database);
}

// Runs `body` in a new process and returns at once; its result is the exit code.
pid_t Start(const std::function<int()>& body) {
    const pid_t child = fork();
    if (child == 0)
        _exit(body());
    return child;
}

int Finish(pid_t child) {
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 1000 + WTERMSIG(status);
}

// Runs as a user other than root, since permissions do not restrict root.
int RunAsNobody(const std::function<int()>& body) {
    return Finish(Start([&] { return geteuid() == 0 && setuid(65534) != 0 ? 99 : body(); }));
}

} // namespace

TEST(RegistryPlace, IsWhatTheVariableNamesOrTheUsersDataFolder) {
    const std::tuple<const char*, DWORD, const char*> rows[] = {
        {"/r/file", 0, "/r/file"},
        {nullptr, 0, "/data/quorvel/registry.db"},
        {"file", ERROR_BAD_PATHNAME, "file"},
    };
    const EnvironmentVariable data("XDG_DATA_HOME", "/data");
    for (const auto& [variable, error, expected] : rows) {
        const EnvironmentVariable registry("QUORVEL_REGISTRY", variable);
        std::string path;
        EXPECT_EQ(LocateRegistry(path), error) << expected;
        EXPECT_EQ(path, expected);
    }
}

TEST(RegistryFile, IsMadeByTheFirstWriteForItsUserAlone) {
    const Place place;
    const std::string file = place.Folder() + "/a/b/registry.db";
    RegistryStore store(file);
    EXPECT_EQ(Read(store, u"v"), "error 2");
    EXPECT_FALSE(place.Has(_T("a")));
    EXPECT_EQ(Write(store, u"v", "data"), 0u);
    struct stat status;
    ASSERT_EQ(stat(file.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0600u);
    ASSERT_EQ(stat((place.Folder() + "/a").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0700u);
}

TEST(RegistryFile, IsMovedAsideWhenDamagedAndBegunAnew) {
    const std::tuple<const char*, std::function<void(std::string&)>> rows[] = {
        {"text", [](std::string& bytes) { bytes = "this is no registry\n"; }},
        {"bad schema page", [](std::string& bytes) { bytes.replace(100, 500, 500, '\xff'); }},
        {"bad pages",
         [](std::string& bytes) {
             bytes.replace(4096, bytes.size() - 4096, bytes.size() - 4096, 'x');
         }},
    };
    const Place place;
    int number = 0;
    for (const auto& [label, damage] : rows) {
        RegistryStore store(place.File());
        Fill(store);
        store.Close();
        std::string bytes = place.Read(kFile);
        damage(bytes);
        place.Write(kFile, bytes);
        EXPECT_EQ(Read(store, Name(7)), "error 1015") << label;
        CString aside;
        aside.Format(_T("registry.db.damaged-%d"), ++number);
        EXPECT_TRUE(place.Read(aside) == bytes) << label;
        EXPECT_FALSE(place.Has(kFile)) << label;
        EXPECT_EQ(Read(store, Name(7)), "error 2") << label;
        EXPECT_EQ(Write(store, u"new", "data"), 0u) << label;
        EXPECT_EQ(Read(store, u"new"), "data") << label;
    }
}

TEST(RegistryFile, TablesThatWereTamperedWithAreDamage) {
    for (const char* sql : {
             "CREATE TRIGGER t AFTER INSERT ON entries BEGIN DELETE FROM keys; END",
             "DROP TABLE entries; CREATE VIEW entries AS SELECT * FROM keys",
         }) {
        const Place place;
        RegistryStore store(place.File());
        Fill(store);
        store.Close();
        Execute(place.File(), sql);
        EXPECT_EQ(Write(store, u"v", "data"), DWORD{ERROR_REGISTRY_CORRUPT}) << sql;
        EXPECT_TRUE(place.Has(_T("registry.db.damaged-1"))) << sql;
    }
}

TEST(RegistryFile, OfOthersIsRefusedAndLeftAsItIs) {
    const std::tuple<const char*, DWORD> rows[] = {
        {"PRAGMA application_id = 0x51766c52; PRAGMA user_version = 2; CREATE TABLE other(a)",
         ERROR_REVISION_MISMATCH},
        {"CREATE TABLE other(a)", ERROR_BADDB},
    };
    for (const auto& [sql, error] : rows) {
        const Place place;
        Execute(place.File(), sql);
        const std::string bytes = place.Read(kFile);
        RegistryStore store(place.File());
        for (int i = 0; i < 2; ++i) {
            EXPECT_EQ(Read(store, u"v"), "error " + std::to_string(error)) << sql;
            EXPECT_EQ(Write(store, u"v", "data"), error) << sql;
        }
        EXPECT_TRUE(place.Read(kFile) == bytes) << sql;
    }
}

TEST(RegistryFile, MayBeReadWhereItCannotBeWritten) {
    const Place place;
    {
        RegistryStore store(place.File());
        ASSERT_EQ(Write(store, u"v", "data"), 0u);
    }
    std::filesystem::remove(place.File() + "-lock");
    const std::tuple<const char*, mode_t, mode_t> rows[] = {{"the folder", 0555, 0666},
                                                            {"the file", 0777, 0444}};
    for (const auto& [label, folder, file] : rows) {
        chmod(place.File().c_str(), file);
        chmod(place.Folder().c_str(), folder);
        EXPECT_EQ(RunAsNobody([&] {
                      RegistryStore store(place.File());
                      RegistryKey key = {};
                      if (Read(store, u"v") != "data")
                          return 1;
                      if (Write(store, u"v", "other") != ERROR_ACCESS_DENIED)
                          return 2;
                      if (store.Open(kUser, u"", true, key) != ERROR_ACCESS_DENIED)
                          return 3;
                      return store.Open(kUser, u"", false, key) == 0 ? 0 : 4;
                  }),
                  0)
            << label;
    }
    // With a log but without its index it cannot even be read; that must not look like "not found".
    std::filesystem::remove(place.File() + "-shm");
    place.Write(_T("registry.db-wal"), "log");
    chmod(place.Folder().c_str(), 0555);
    EXPECT_EQ(RunAsNobody([&] {
                  RegistryStore store(place.File());
                  return Read(store, u"v") == "error 5" ? 0 : 1;
              }),
              0);
    chmod(place.Folder().c_str(), 0700);
}

TEST(RegistryFile, AFullDiskRefusesTheWriteAndKeepsWhatIsThere) {
    const Place place;
    {
        RegistryStore store(place.File());
        Fill(store);
    }
    EXPECT_EQ(Finish(Start([&] {
                  RegistryStore store(place.File());
                  std::signal(SIGXFSZ, SIG_IGN);
                  const rlimit limit = {100'000, 100'000};
                  setrlimit(RLIMIT_FSIZE, &limit);
                  for (int i = 0; i < 100; ++i) // otherwise the log alone would exceed it
                      if (Write(store, u"same", std::to_string(i)) != 0)
                          return -2;
                  const DWORD error = Write(store, u"large", std::string(200'000, 'y'));
                  const bool isThere = Read(store, Name(199)) == std::string(100, 'x');
                  return isThere ? static_cast<int>(error) : -1;
              })),
              int{ERROR_FILE_TOO_LARGE});
    EXPECT_EQ(Finish(Start([&] { // no room even for reading
                  RegistryStore store(place.File());
                  RegistryKey key = {};
                  std::signal(SIGXFSZ, SIG_IGN);
                  const rlimit none = {0, 10'000'000};
                  const rlimit enough = {10'000'000, 10'000'000};
                  setrlimit(RLIMIT_FSIZE, &none);
                  if (store.Open(kUser, u"", true, key) != 0)
                      return 1;
                  if (Write(store, u"small", "data") != ERROR_FILE_TOO_LARGE ||
                      Read(store, Name(199)) != std::string(100, 'x'))
                      return 2;
                  setrlimit(RLIMIT_FSIZE, &enough);
                  RegistryStore other(place.File()); // has room, and changes the file
                  for (int i = 0; i < 199; ++i)
                      other.DeleteValue(kUser, Name(i));
                  if (Write(other, Name(199), "new") != 0)
                      return 3;
                  other.Close();
                  for (int i = 0; i < 1'000'000 && Read(store, Name(199)) != "new"; ++i) {
                  } // the change is visible soon
                  if (place.Has(_T("registry.db.damaged-1")) || Read(store, Name(199)) != "new")
                      return 4;
                  return Write(store, Name(199), std::string(100, 'x')) == 0 ? 0 : 5;
              })),
              0);
    RegistryStore store(place.File());
    EXPECT_EQ(Read(store, u"large"), "error 2");
    EXPECT_EQ(Read(store, Name(199)), std::string(100, 'x'));
    EXPECT_EQ(Write(store, u"large", std::string(200'000, 'y')), 0u);
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
    RegistryKey key = {};
    bool isNew = false;
    ASSERT_EQ(store.Create(kUser, u"k", key, isNew), 0u);
    ASSERT_EQ(Write(store, u"v", "data", key), 0u);
    for (const char* suffix : {"", "-wal", "-shm"})
        std::filesystem::remove(place.File() + suffix);
    EXPECT_EQ(Write(store, u"v", "data", key), DWORD{ERROR_KEY_DELETED});
    RegistryKey other = {};
    ASSERT_EQ(store.Create(kUser, u"k", other, isNew), 0u);
    EXPECT_TRUE(isNew);
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
            RegistryKey key = {};
            bool isNew = false;
            for (int i = 0; i < kValues; ++i) {
                const std::u16string path = u"shared\\" + Name(i % 10);
                if (store.Create(kUser, path, key, isNew) != 0 ||
                    Write(store, Name(process * kValues + i), Name(i) == Name(0) ? "a" : "b",
                          key) != 0)
                    return 1;
            }
            return 0;
        }));
    for (const pid_t child : children)
        EXPECT_EQ(Finish(child), 0);
    RegistryStore store(place.File());
    int found = 0;
    for (int i = 0; i < kProcesses * kValues; ++i) {
        RegistryKey key = {};
        EXPECT_EQ(store.Open(kUser, u"shared\\" + Name(i % kValues % 10), false, key), 0u);
        found += Read(store, Name(i), key).size() == 1;
    }
    EXPECT_EQ(found, kProcesses * kValues);
}

TEST(RegistryStore, ServesSeveralThreads) {
    const Place place;
    RegistryStore store(place.File());
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 4; ++thread)
        threads.emplace_back([&store, thread] {
            for (int i = 0; i < 100; ++i) {
                RegistryKey key = {};
                bool isNew = false;
                EXPECT_EQ(store.Create(kUser, u"k", key, isNew), 0u);
                EXPECT_EQ(Write(store, Name(thread), std::to_string(i), key), 0u);
                EXPECT_EQ(Read(store, Name(thread), key), std::to_string(i));
            }
        });
    for (std::thread& thread : threads)
        thread.join();
}

TEST(Registry, OpenKeysServeAChildProcessAsWell) {
    using namespace quorvel::win32;
    HKEY key = nullptr;
    ASSERT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, _T("Software\\Quorvel fork"), 0, nullptr, 0,
                              KEY_ALL_ACCESS, nullptr, &key, nullptr),
              0);
    const auto set = [key](const char* value) {
        return RegSetValueExW(key, _T("v"), 0, REG_BINARY, reinterpret_cast<const BYTE*>(value), 1);
    };
    EXPECT_EQ(set("a"), 0);
    EXPECT_EQ(Finish(Start([&] { return set("b") == 0 ? 0 : 1; })), 0);
    BYTE data = 0;
    DWORD size = 1;
    EXPECT_EQ(RegQueryValueExW(key, _T("v"), nullptr, nullptr, &data, &size), 0);
    EXPECT_EQ(data, 'b');
    RegDeleteKeyW(key, _T(""));
    RegCloseKey(key);
}
