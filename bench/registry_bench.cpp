// Numbers read from and written to the registry, through an open key and through a path, against
// prepared statements of SQLite written by hand: the same journal and synchronisation, one
// transaction a write, names that need no folding. The argument is the number of values of the key.
#include <quorvel/system/profile.h>

#include "registry_folder.h"

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <array>
#include <cstdio>
#include <cstring>
#include <map>
#include <memory>
#include <random>
#include <string>

using namespace quorvel::win32;

namespace {

std::string NarrowName(int number) {
    char name[32];
    std::snprintf(name, sizeof name, "Column %d Width", number);
    return name;
}

// The order in which values are visited: without a system, the same for all.
std::array<int, 4096> Visits(int count) {
    std::array<int, 4096> visits;
    std::mt19937 random(1);
    for (int& visit : visits)
        visit = static_cast<int>(random() % static_cast<unsigned>(count));
    return visits;
}

struct Names {
    explicit Names(int count) {
        int i = 0;
        for (const int visit : Visits(count)) {
            narrow[static_cast<std::size_t>(i)] = NarrowName(visit);
            wide[static_cast<std::size_t>(i++)] = CString(NarrowName(visit).c_str());
        }
    }
    std::array<std::string, 4096> narrow;
    std::array<CString, 4096> wide;
};

// A registry key with so many values.
class Settings {
public:
    explicit Settings(int count) : m_names(count) {
        RegistryFolder::Shared();
        CString subKey;
        subKey.Format(_T("Software\\Company\\Program\\Settings %d"), count);
        m_path.SetPath(HKEY_CURRENT_USER, subKey);
        m_path.CreateSubKey(m_key);
        for (int i = 0; i < count; ++i)
            AfxWriteProfileDWord(m_key, CString(NarrowName(i).c_str()), static_cast<DWORD>(i));
    }
    const CString& Name(std::size_t step) const { return m_names.wide[step % 4096]; }
    HKEY Key() const { return m_key; }
    const CRegistryPath& Path() const { return m_path; }

private:
    Names m_names;
    CRegistryPath m_path;
    HKEY m_key = nullptr;
};

// The same by hand.
class Database {
public:
    explicit Database(int count) : m_names(count) {
        sqlite3_open(RegistryFolder::Shared().File("peer-" + std::to_string(count) + ".db").c_str(),
                     &m_database);
        sqlite3_exec(m_database,
                     "PRAGMA journal_mode = WAL; PRAGMA synchronous = NORMAL;"
                     "PRAGMA wal_autocheckpoint = 4000; PRAGMA cache_size = -16384;"
                     "CREATE TABLE settings(owner INTEGER, name TEXT, kind INTEGER, data BLOB,"
                     " PRIMARY KEY(owner, name)) WITHOUT ROWID",
                     nullptr, nullptr, nullptr);
        m_read = Prepare("SELECT kind, data FROM settings WHERE owner = ?1 AND name = ?2");
        m_write = Prepare("INSERT INTO settings VALUES(?1, ?2, ?3, ?4) ON CONFLICT(owner, name) "
                          "DO UPDATE SET kind = excluded.kind, data = excluded.data");
        for (int i = 0; i < count; ++i)
            Write(NarrowName(i), static_cast<DWORD>(i));
    }
    const std::string& Name(std::size_t step) const { return m_names.narrow[step % 4096]; }

    DWORD Read(const std::string& name) const {
        DWORD value = 0;
        Bind(m_read, name);
        if (sqlite3_step(m_read) == SQLITE_ROW && sqlite3_column_int(m_read, 0) == REG_DWORD &&
            sqlite3_column_bytes(m_read, 1) == sizeof value)
            std::memcpy(&value, sqlite3_column_blob(m_read, 1), sizeof value);
        sqlite3_reset(m_read);
        return value;
    }
    bool Write(const std::string& name, DWORD value) const {
        Bind(m_write, name);
        sqlite3_bind_int(m_write, 3, REG_DWORD);
        sqlite3_bind_blob(m_write, 4, &value, sizeof value, SQLITE_STATIC);
        const bool isWritten = sqlite3_step(m_write) == SQLITE_DONE;
        sqlite3_reset(m_write);
        return isWritten;
    }

private:
    sqlite3_stmt* Prepare(const char* sql) const {
        sqlite3_stmt* statement = nullptr;
        sqlite3_prepare_v3(m_database, sql, -1, SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
        return statement;
    }
    static void Bind(sqlite3_stmt* statement, const std::string& name) {
        sqlite3_bind_int(statement, 1, 7);
        sqlite3_bind_text(statement, 2, name.data(), static_cast<int>(name.size()), SQLITE_STATIC);
    }

    Names m_names;
    sqlite3* m_database = nullptr;
    sqlite3_stmt* m_read = nullptr;
    sqlite3_stmt* m_write = nullptr;
};

// One of each size, made on its first use and kept: the largest takes its time.
template <class Values>
const Values& Shared(benchmark::State& state) {
    static std::map<int, std::unique_ptr<Values>> s_values;
    const int count = static_cast<int>(state.range(0));
    auto& values = s_values[count];
    if (values == nullptr)
        values = std::make_unique<Values>(count);
    return *values;
}

template <class Values, auto visit>
void Visit(benchmark::State& state) {
    const Values& values = Shared<Values>(state);
    std::size_t step = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(visit(values, step));
        ++step;
    }
}

constexpr auto kReadOpenKey = [](const Settings& settings, std::size_t step) {
    return AfxGetProfileDWord(settings.Key(), settings.Name(step), 0);
};
constexpr auto kReadPath = [](const Settings& settings, std::size_t step) {
    return AfxGetProfileDWord(settings.Path(), settings.Name(step), 0);
};
constexpr auto kReadByHand = [](const Database& database, std::size_t step) {
    return database.Read(database.Name(step));
};
constexpr auto kWriteOpenKey = [](const Settings& settings, std::size_t step) {
    return AfxWriteProfileDWord(settings.Key(), settings.Name(step), static_cast<DWORD>(step));
};
constexpr auto kWritePath = [](const Settings& settings, std::size_t step) {
    return AfxWriteProfileDWord(settings.Path(), settings.Name(step), static_cast<DWORD>(step));
};
constexpr auto kWriteByHand = [](const Database& database, std::size_t step) {
    return database.Write(database.Name(step), static_cast<DWORD>(step));
};

BENCHMARK(Visit<Settings, kReadOpenKey>)->Name("RegistryRead/open key")->Arg(1000)->Arg(100000);
BENCHMARK(Visit<Database, kReadByHand>)->Name("RegistryRead/by hand")->Arg(1000)->Arg(100000);
BENCHMARK(Visit<Settings, kReadPath>)->Name("RegistryRead/path form")->Arg(1000)->Arg(100000);
BENCHMARK(Visit<Settings, kWriteOpenKey>)->Name("RegistryWrite/open key")->Arg(1000)->Arg(100000);
BENCHMARK(Visit<Database, kWriteByHand>)->Name("RegistryWrite/by hand")->Arg(1000)->Arg(100000);
BENCHMARK(Visit<Settings, kWritePath>)->Name("RegistryWrite/path form")->Arg(1000)->Arg(100000);

} // namespace
