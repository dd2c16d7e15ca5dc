#include "platform/linux/registry/registry_file.h"

#include "platform/linux/registry/registry_place.h"
#include "platform/linux/system/system_error.h"

#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

namespace quorvel {

namespace {

constexpr std::int64_t kApplicationId = 0x51766c52; // "QvlR"
constexpr std::int64_t kVersion = 1;
constexpr int kPatienceInMilliseconds = 30'000;

constexpr char kTables[] =
    "CREATE TABLE keys(id INTEGER PRIMARY KEY AUTOINCREMENT, parent INTEGER NOT NULL,"
    " fold BLOB NOT NULL, name BLOB NOT NULL, UNIQUE(parent, fold)) STRICT;"
    "CREATE TABLE sqlite_sequence(name,seq);"
    "CREATE TABLE entries(owner INTEGER NOT NULL, fold BLOB NOT NULL, name BLOB NOT NULL,"
    " kind INTEGER NOT NULL, data BLOB NOT NULL, PRIMARY KEY(owner, fold)) STRICT, WITHOUT ROWID";

// In the order of RegistrySql. One statement finds the key and writes the value: a single statement
// is its own transaction and takes the write lock at its start, like BEGIN IMMEDIATE. When only the
// size of a blob is needed, its data is not read.
constexpr const char* kStatements[] = {
    "BEGIN",
    "BEGIN IMMEDIATE",
    "COMMIT",
    "ROLLBACK",
    "SELECT 1 FROM keys WHERE id = ?1",
    "SELECT id FROM keys WHERE parent = ?1 AND fold = ?2",
    "INSERT INTO keys(parent, fold, name) VALUES(?1, ?2, ?3) RETURNING id",
    "SELECT 1 FROM keys WHERE parent = ?1 LIMIT 1",
    "DELETE FROM keys WHERE id = ?1",
    "SELECT fold, name FROM keys WHERE parent = ?1 AND fold >= ?2 ORDER BY fold LIMIT 1 OFFSET ?3",
    "SELECT kind, length(data) FROM entries WHERE owner = ?1 AND fold = ?2",
    "SELECT kind, data FROM entries WHERE owner = ?1 AND fold = ?2",
    "INSERT INTO entries VALUES((SELECT id FROM keys WHERE id = ?1), ?2, ?3, ?4, ?5)"
    " ON CONFLICT(owner, fold) DO UPDATE SET kind = excluded.kind, data = excluded.data",
    "DELETE FROM entries WHERE owner = ?1 AND fold = ?2",
    "DELETE FROM entries WHERE owner = ?1",
    "SELECT fold, name, kind, length(data), CASE WHEN length(data) <= ?4 THEN data END FROM entries"
    " WHERE owner = ?1 AND fold >= ?2 ORDER BY fold LIMIT 1 OFFSET ?3",
};
static_assert(std::size(kStatements) == static_cast<std::size_t>(RegistrySql::kCount));

// The name as a URI. A URI can have parameters, unlike a plain name.
std::string UriOf(const std::string& path) {
    static constexpr char kPlain[] = "/._-0123456789abcdefghijklmnopqrstuvwxyz"
                                     "ABCDEFGHIJKLMNOPQRSTUVWXYZ";
    static constexpr char kDigits[] = "0123456789abcdef";
    std::string uri = "file:";
    for (const char character : path) {
        if (std::strchr(kPlain, character) != nullptr) {
            uri += character;
            continue;
        }
        const auto byte = static_cast<unsigned char>(character);
        uri += {'%', kDigits[byte >> 4], kDigits[byte & 15]};
    }
    return uri;
}

std::int64_t SizeOf(const std::string& path) {
    struct stat status;
    return stat(path.c_str(), &status) == 0 ? std::int64_t{status.st_size} : 0;
}

bool HasJournal(const std::string& path) {
    return SizeOf(path + "-wal") > 0;
}

// The errno of the current failure. SQLite keeps it in the connection when a file cannot be opened,
// and in the file (log or database) when it cannot be read or written.
int SystemError(sqlite3* database) {
    int system = sqlite3_system_errno(database);
    sqlite3_file* log = nullptr;
    sqlite3_file_control(database, "main", SQLITE_FCNTL_JOURNAL_POINTER, &log);
    if (system == 0 && log != nullptr && log->pMethods != nullptr)
        log->pMethods->xFileControl(log, SQLITE_FCNTL_LAST_ERRNO, &system);
    if (system == 0)
        sqlite3_file_control(database, "main", SQLITE_FCNTL_LAST_ERRNO, &system);
    return system;
}

} // namespace

DWORD RegistryFile::Open(const std::string& path, bool mayCreate) {
    struct stat status;
    if (!mayCreate && stat(path.c_str(), &status) != 0 && (errno == ENOENT || errno == ENOTDIR))
        return ERROR_FILE_NOT_FOUND;
    if (mayCreate)
        if (const DWORD error = CreateRegistryFile(path))
            return error;
    const RegistryLock lock(path);
    m_path = path;
    const DWORD error = OpenLocked(mayCreate);
    if (error != ERROR_SUCCESS)
        Close();
    if (error == ERROR_REGISTRY_CORRUPT && !m_isUnchanging)
        MoveRegistryAside(path);
    return error;
}

DWORD RegistryFile::OpenLocked(bool mayCreate) {
    m_isUnchanging = false;
    // Our files always contain their first page. SQLite would take a file of 0 or 1 bytes as new
    // and delete its log, which may contain all the data.
    if (SizeOf(m_path) <= 1 && HasJournal(m_path))
        return ERROR_REGISTRY_CORRUPT;
    DWORD error = Connect(m_path, SQLITE_OPEN_READWRITE);
    if (error == ERROR_SUCCESS)
        error = Inspect(mayCreate);
    m_writeError = error;
    if (error == ERROR_SUCCESS && IsReadOnly())
        m_writeError = ERROR_ACCESS_DENIED;
    static constexpr int kResults[] = {SQLITE_CANTOPEN, SQLITE_READONLY, SQLITE_FULL, SQLITE_IOERR};
    const int result = sqlite3_errcode(m_database) & 0xff;
    const bool lacksJournal =
        std::find(std::begin(kResults), std::end(kResults), result) != std::end(kResults);
    if (error == ERROR_SUCCESS || !lacksJournal)
        return error;
    if (!HasJournal(m_path))
        return OpenUnchanging();
    // The missing file is the index of the log, which cannot be created here.
    return error == ERROR_FILE_NOT_FOUND ? DWORD{ERROR_ACCESS_DENIED} : error;
}

// In a read-only folder or on a full disk the log and its index cannot be created, not even for
// reading. A file that was closed properly is complete without them.
DWORD RegistryFile::OpenUnchanging() {
    Close();
    m_isUnchanging = true;
    const DWORD error =
        Connect(UriOf(m_path) + "?immutable=1", SQLITE_OPEN_READONLY | SQLITE_OPEN_URI);
    return error != ERROR_SUCCESS ? error : Inspect(false);
}

DWORD RegistryFile::Connect(const std::string& name, int flags) {
    constexpr int kAlways = SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_PRIVATECACHE | SQLITE_OPEN_EXRESCODE;
    const int result = sqlite3_open_v2(name.c_str(), &m_database, flags | kAlways, nullptr);
    if (result != SQLITE_OK)
        return ErrorOf(result);
    sqlite3_busy_timeout(m_database, kPatienceInMilliseconds);
    // Anyone may have written the file: its schema must not run code. Closing must not change it
    // before we know that it is ours.
    static constexpr std::pair<int, int> kSettings[] = {
        {SQLITE_DBCONFIG_DEFENSIVE, 1},        {SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0},
        {SQLITE_DBCONFIG_ENABLE_TRIGGER, 0},   {SQLITE_DBCONFIG_ENABLE_VIEW, 0},
        {SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1},
    };
    for (const auto& [setting, value] : kSettings)
        sqlite3_db_config(m_database, setting, value, nullptr);
    return ERROR_SUCCESS;
}

// Checks that the file is a registry, and creates the tables in an empty one.
DWORD RegistryFile::Inspect(bool mayCreate) {
    std::int64_t application = 0;
    std::int64_t version = 0;
    std::int64_t tables = 0;
    for (const auto& [sql, answer] : {std::pair("PRAGMA application_id", &application),
                                      {"PRAGMA user_version", &version},
                                      {"SELECT count(*) FROM sqlite_schema", &tables}})
        if (const DWORD error = Ask(sql, *answer))
            return error;
    if (application == 0 && version == 0 && tables == 0) {
        if (!mayCreate)
            return ERROR_FILE_NOT_FOUND;
        if (const DWORD error = CreateTables())
            return error;
        version = kVersion;
    } else if (application != kApplicationId || version < 1) {
        return ERROR_BADDB;
    }
    if (version > kVersion)
        return ERROR_REVISION_MISMATCH;
    if (const DWORD error = CheckTables())
        return error;
    // The log is merged when it reaches 16 MB. With many values each write changes another page, so
    // frequent merging would write nearly every page twice.
    constexpr char kSettings[] = "PRAGMA synchronous = NORMAL; PRAGMA wal_autocheckpoint = 4000;"
                                 "PRAGMA cache_size = -16384; PRAGMA cell_size_check = ON";
    if (const DWORD error = Execute(kSettings))
        return error;
    if (!IsReadOnly())
        if (const DWORD error = Execute("PRAGMA journal_mode = WAL"))
            return error;
    sqlite3_db_config(m_database, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 0, nullptr);
    return ERROR_SUCCESS;
}

DWORD RegistryFile::CheckTables() {
    sqlite3_stmt* statement = nullptr;
    int result =
        sqlite3_prepare_v2(m_database, "SELECT group_concat(sql, ';') = ?1 FROM sqlite_schema", -1,
                           &statement, nullptr);
    bool areOurs = false;
    if (result == SQLITE_OK) {
        sqlite3_bind_text(statement, 1, kTables, -1, SQLITE_STATIC);
        result = sqlite3_step(statement);
        areOurs = result == SQLITE_ROW && sqlite3_column_int(statement, 0) == 1;
    }
    sqlite3_finalize(statement);
    if (result != SQLITE_ROW)
        return ErrorOf(result);
    return areOurs ? ERROR_SUCCESS : ERROR_REGISTRY_CORRUPT;
}

DWORD RegistryFile::CreateTables() {
    std::string tables = kTables;
    const std::string sequence = "CREATE TABLE sqlite_sequence(name,seq);"; // SQLite creates it
    tables.erase(tables.find(sequence), sequence.size());
    // The first id is below 2^31, so that an id takes four bytes in a record.
    const std::string sql =
        "PRAGMA journal_mode = WAL; BEGIN IMMEDIATE; " + tables +
        "; INSERT INTO keys VALUES(1, 0, x'01', x''), (2, 0, x'02', x''), (3, 0, x'03', x''),"
        " (4, 0, x'04', x''), (5, 0, x'05', x'');"
        "UPDATE sqlite_sequence SET seq = (random() & 0x3fffffff) | 0x1000000;"
        "PRAGMA application_id = " +
        std::to_string(kApplicationId) + "; PRAGMA user_version = " + std::to_string(kVersion) +
        "; COMMIT";
    return Execute(sql.c_str());
}

void RegistryFile::Close() {
    for (sqlite3_stmt*& statement : m_statements)
        sqlite3_finalize(std::exchange(statement, nullptr));
    sqlite3_close(std::exchange(m_database, nullptr));
}

void RegistryFile::CloseDamaged() {
    const RegistryLock lock(m_path);
    const bool isMoved = !m_isUnchanging && IsInPlace();
    sqlite3_db_config(m_database, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
    Close();
    if (isMoved)
        MoveRegistryAside(m_path);
}

bool RegistryFile::IsInPlace() const {
    int hasMoved = 0;
    sqlite3_file_control(m_database, "main", SQLITE_FCNTL_HAS_MOVED, &hasMoved);
    return hasMoved == 0;
}

DWORD RegistryFile::ErrorOf(int result) const {
    struct Row {
        int result;
        DWORD error;
    };
    // Each extended code comes before its primary code.
    static constexpr Row kRows[] = {
        {SQLITE_IOERR_NOMEM, ERROR_NOT_ENOUGH_MEMORY},
        {SQLITE_IOERR_CORRUPTFS, ERROR_REGISTRY_CORRUPT},
        {SQLITE_CONSTRAINT_NOTNULL, ERROR_KEY_DELETED}, // a value without an owner
        {SQLITE_OK, ERROR_SUCCESS},
        {SQLITE_ROW, ERROR_SUCCESS},
        {SQLITE_DONE, ERROR_SUCCESS},
        {SQLITE_BUSY, ERROR_BUSY},
        {SQLITE_LOCKED, ERROR_BUSY},
        {SQLITE_PROTOCOL, ERROR_BUSY},
        {SQLITE_PERM, ERROR_ACCESS_DENIED},
        {SQLITE_AUTH, ERROR_ACCESS_DENIED},
        {SQLITE_READONLY, ERROR_ACCESS_DENIED},
        {SQLITE_FULL, ERROR_DISK_FULL},
        {SQLITE_NOMEM, ERROR_NOT_ENOUGH_MEMORY},
        {SQLITE_TOOBIG, ERROR_NO_SYSTEM_RESOURCES},
        {SQLITE_IOERR, ERROR_REGISTRY_IO_FAILED},
        {SQLITE_CANTOPEN, ERROR_REGISTRY_IO_FAILED},
    };
    for (const Row& row : kRows) {
        if (row.result != result && row.result != (result & 0xff))
            continue;
        if (row.error != ERROR_REGISTRY_IO_FAILED)
            return row.error;
        const int system = SystemError(m_database);
        return system != 0 ? ErrorFromErrno(system) : row.error;
    }
    // For SQLITE_CORRUPT and SQLITE_NOTADB, and for errors that our statements cause only in
    // manipulated tables: wrong types, broken constraints.
    return ERROR_REGISTRY_CORRUPT;
}

sqlite3_stmt* RegistryFile::Statement(RegistrySql sql, DWORD& error) {
    sqlite3_stmt*& statement = m_statements[static_cast<int>(sql)];
    if (statement == nullptr)
        error = ErrorOf(sqlite3_prepare_v3(m_database, kStatements[static_cast<int>(sql)], -1,
                                           SQLITE_PREPARE_PERSISTENT, &statement, nullptr));
    return statement;
}

DWORD RegistryFile::Execute(const char* sql) {
    return ErrorOf(sqlite3_exec(m_database, sql, nullptr, nullptr, nullptr));
}

DWORD RegistryFile::Ask(const char* sql, std::int64_t& answer) {
    sqlite3_stmt* statement = nullptr;
    int result = sqlite3_prepare_v2(m_database, sql, -1, &statement, nullptr);
    if (result == SQLITE_OK)
        result = sqlite3_step(statement);
    if (result == SQLITE_ROW)
        answer = sqlite3_column_int64(statement, 0);
    const DWORD error = ErrorOf(result);
    sqlite3_finalize(statement);
    return error;
}

bool RegistryQuery::Next() {
    if (m_error != ERROR_SUCCESS)
        return false;
    const int result = sqlite3_step(m_statement);
    Check(result);
    return result == SQLITE_ROW;
}

std::string_view RegistryQuery::Bytes(int column) const {
    if (sqlite3_column_type(m_statement, column) != SQLITE_BLOB)
        return std::string_view();
    const void* const bytes = sqlite3_column_blob(m_statement, column); // null for an empty blob
    const int size = sqlite3_column_bytes(m_statement, column);
    return std::string_view(static_cast<const char*>(bytes), static_cast<std::size_t>(size));
}

void RegistryQuery::Bind(int index, std::int64_t number) {
    Check(sqlite3_bind_int64(m_statement, index, number));
}

void RegistryQuery::Bind(int index, std::string_view bytes) {
    // SQLite binds a null pointer as NULL.
    Check(sqlite3_bind_blob64(m_statement, index, bytes.empty() ? "" : bytes.data(), bytes.size(),
                              SQLITE_STATIC));
}

void RegistryQuery::Check(int result) {
    if (m_error == ERROR_SUCCESS)
        m_error = m_file.ErrorOf(result);
}

} // namespace quorvel
