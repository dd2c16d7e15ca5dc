// A registry file: an SQLite database with two tables.
//
//    keys      id, parent, fold, name              the roots have ids 1 to 5 and parent 0
//   entries   owner, fold, name, kind, data       the values
//
// A name is stored as it was first written; `fold` is the name without case. Both are bytes whose
// order is that of the UTF-16 units. An id is never used twice, and the first one is random: the id
// of a deleted key, or of a key in another file, finds nothing.
//
// The journal is a write-ahead log that is synchronised when it is merged into the database
// (synchronous=NORMAL). Committed data is visible to all other processes even if the writer is
// killed. A power failure can lose the latest commits but never leaves a partial one.
#pragma once

#include <quorvel/platform/linux_types.h>

#include "platform/linux/registry/sqlite.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace quorvel {

enum class RegistrySql {
    Begin,
    BeginWriting,
    Commit,
    Rollback,
    HasKey,    // id
    FindKey,   // parent, fold
    AddKey,    // parent, fold, name
    HasKeys,   // parent
    RemoveKey, // id
    KeyFrom,   // parent, first fold, offset: fold, name
    ReadSize,  // owner, fold: kind, size
    Read,      // owner, fold: kind, data
    Write,     // owner, fold, name, kind, data: ERROR_KEY_DELETED if the owner is missing
    Remove,    // owner, fold
    RemoveAll, // owner
    ValueFrom, // owner, first fold, offset, capacity: fold, name, kind, size, data if it fits
    kCount
};

// A connection to a file. One thread at a time.
class RegistryFile {
public:
    RegistryFile() = default;
    RegistryFile(const RegistryFile&) = delete;
    RegistryFile& operator=(const RegistryFile&) = delete;
    ~RegistryFile() { Close(); }

    // ERROR_FILE_NOT_FOUND when the file is missing and may not be created. ERROR_REGISTRY_CORRUPT
    // for a damaged file, which is then moved aside unless it was opened unchanging.
    // ERROR_REVISION_MISMATCH or ERROR_BADDB for a file of a newer version or of another program.
    DWORD Open(const std::string& path, bool mayCreate);
    void Close();
    // Closes the file and moves it aside, unless another process has already done so or the file
    // was opened unchanging.
    void CloseDamaged();

    bool IsOpen() const { return m_database != nullptr; }
    // The reason why the file cannot be written; ERROR_SUCCESS when it can.
    DWORD WriteError() const { return m_writeError; }
    // Whether the file is read without a log, as if nobody changed it. Later changes by others are
    // then not seen, or partly seen, which looks like damage.
    bool IsUnchanging() const { return m_isUnchanging; }
    // Whether the path still names the file that was opened.
    bool IsInPlace() const;
    // Moves the log's content into the database; the log then starts again from its beginning.
    bool MergeLog() { return Execute("PRAGMA wal_checkpoint") == ERROR_SUCCESS; }
    int Changes() const { return sqlite3_changes(m_database); }
    bool IsInTransaction() const { return sqlite3_get_autocommit(m_database) == 0; }

    // The error code for an SQLite result.
    DWORD ErrorOf(int result) const;
    // A statement that is prepared on first use; null with `error` set on failure.
    sqlite3_stmt* Statement(RegistrySql sql, DWORD& error);

private:
    DWORD OpenLocked(bool mayCreate);
    DWORD OpenUnchanging();
    bool IsReadOnly() const { return sqlite3_db_readonly(m_database, "main") != 0; }
    DWORD Connect(const std::string& name, int flags);
    DWORD Inspect(bool mayCreate);
    DWORD CheckTables();
    DWORD CreateTables();
    DWORD Execute(const char* sql);
    DWORD Ask(const char* sql, std::int64_t& answer);

    std::string m_path;
    sqlite3* m_database = nullptr;
    DWORD m_writeError = ERROR_SUCCESS;
    bool m_isUnchanging = false;
    sqlite3_stmt* m_statements[static_cast<int>(RegistrySql::kCount)] = {};
};

// One execution of a statement. Its results are valid until the next row.
class RegistryQuery {
public:
    template <class... Arguments>
    RegistryQuery(RegistryFile& file, RegistrySql sql, const Arguments&... arguments)
        : m_file(file), m_statement(file.Statement(sql, m_error)) {
        int index = 0;
        if (m_statement != nullptr)
            (Bind(++index, arguments), ...);
    }
    RegistryQuery(const RegistryQuery&) = delete;
    RegistryQuery& operator=(const RegistryQuery&) = delete;
    ~RegistryQuery() { sqlite3_reset(m_statement); }

    // Whether there is a row. If not, Error() has the reason.
    bool Next();
    DWORD Error() const { return m_error; }
    // For statements without rows.
    DWORD Run() {
        Next();
        return m_error;
    }

    std::int64_t Number(int column) const { return sqlite3_column_int64(m_statement, column); }
    // Empty when the column is not a blob.
    std::string_view Bytes(int column) const;

private:
    void Bind(int index, std::int64_t number);
    void Bind(int index, std::string_view bytes);
    void Check(int result);

    RegistryFile& m_file;
    DWORD m_error = ERROR_SUCCESS;
    sqlite3_stmt* m_statement;
};

} // namespace quorvel
