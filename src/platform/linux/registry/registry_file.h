// A registry file: an SQLite database with two tables.
//
//   keys      id, parent, fold, name              the roots have ids 1 to 5 and no parent (0)
//   entries   owner, fold, name, kind, data       the values
//
// A name is as it was first written, `fold` is the name without case; both are bytes in the order
// of the UTF-16 units. An id is never given twice, and the first one is a random number: that of a
// deleted key, or of a key in another file, finds nothing.
//
// The journal is a write-ahead log that is synchronised when it is merged into the database
// (synchronous=NORMAL). What a process has committed is there for all others even when it is
// killed; a power cut can take the latest commits, but never leaves half of one.
#pragma once

#include <quorvel/platform/linux_types.h>

#include <sqlite3.h>

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
    Write,     // owner, fold, name, kind, data: ERROR_KEY_DELETED where there is no owner
    Remove,    // owner, fold
    RemoveAll, // owner
    ValueFrom, // owner, first fold, offset, capacity: fold, name, kind, size, data where it fits
    kCount
};

// The connection to a file, for one thread at a time.
class RegistryFile {
public:
    RegistryFile() = default;
    RegistryFile(const RegistryFile&) = delete;
    RegistryFile& operator=(const RegistryFile&) = delete;
    ~RegistryFile() { Close(); }

    // ERROR_FILE_NOT_FOUND where there is no file and none may be made; ERROR_REGISTRY_CORRUPT for
    // a damaged one, which then lies aside unless it could only be opened unchanging;
    // ERROR_REVISION_MISMATCH or ERROR_BADDB for one of a newer version, or of something else.
    DWORD Open(const std::string& path, bool mayCreate);
    void Close();
    // Closes and moves the file aside, unless another process has done that already or it was
    // opened unchanging.
    void CloseDamaged();

    bool IsOpen() const { return m_database != nullptr; }
    // Why the file cannot be written now; ERROR_SUCCESS when it can.
    DWORD WriteError() const { return m_writeError; }
    // Whether it is read as if nobody changed it, for want of a log: what others have written since
    // it was opened is not seen, or seen in part, which looks like damage.
    bool IsUnchanging() const { return m_isUnchanging; }
    // Whether the path it was opened by still leads to it.
    bool IsInPlace() const;
    // Moves what the log holds into the database; the log is then written from its start again.
    bool MergeLog() { return Execute("PRAGMA wal_checkpoint") == ERROR_SUCCESS; }
    int Changes() const { return sqlite3_changes(m_database); }
    bool IsInTransaction() const { return sqlite3_get_autocommit(m_database) == 0; }

    // The error code for a result of SQLite's.
    DWORD ErrorOf(int result) const;
    // A statement, prepared on its first use; null with `error` set.
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

// One run of a statement. What it hands out is valid until the next row.
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

    // Whether there is a row; Error() tells why there is none.
    bool Next();
    DWORD Error() const { return m_error; }
    // For statements without rows.
    DWORD Run() {
        Next();
        return m_error;
    }

    std::int64_t Number(int column) const { return sqlite3_column_int64(m_statement, column); }
    // Empty for what is no blob.
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
