// The functions of SQLite that the registry calls. SQLite is loaded by the first of them.
#pragma once

#include "platform/linux/system/lazy_library.h"

#include <sqlite3.h>

namespace quorvel {

inline constinit LazyLibrary g_sqlite("libsqlite3.so.0");

QUORVEL_LAZY_FUNCTION(g_sqlite, sqlite3_bind_blob64);
QUORVEL_LAZY_FUNCTION(g_sqlite, sqlite3_bind_int64);
QUORVEL_LAZY_FUNCTION(g_sqlite, sqlite3_bind_text);
QUORVEL_LAZY_FUNCTION(g_sqlite, sqlite3_busy_timeout);
QUORVEL_LAZY_FUNCTION(g_sqlite, sqlite3_changes);
QUORVEL_LAZY_FUNCTION(g_sqlite, sqlite3_close);
QUORVEL_LAZY_FUNCTION(g_sqlite, sqlite3_column_blob);
QUORVEL_LAZY_FUNCTION(g_sqlite, sqlite3_column_bytes);
QUORVEL_LAZY_FUNCTION(g_sqlite, sqlite3_column_int);
QUORVEL_LAZY_FUNCTION(g_sqlite, sqlite3_column_int64);
QUORVEL_LAZY_FUNCTION(g_sqlite, sqlite3_column_type);
QUORVEL_LAZY_FUNCTION(g_sqlite, sqlite3_db_config);
QUORVEL_LAZY_FUNCTION(g_sqlite, sqlite3_db_readonly);
QUORVEL_LAZY_FUNCTION(g_sqlite, sqlite3_errcode);
QUORVEL_LAZY_FUNCTION(g_sqlite, sqlite3_exec);
QUORVEL_LAZY_FUNCTION(g_sqlite, sqlite3_file_control);
QUORVEL_LAZY_FUNCTION(g_sqlite, sqlite3_finalize);
QUORVEL_LAZY_FUNCTION(g_sqlite, sqlite3_get_autocommit);
QUORVEL_LAZY_FUNCTION(g_sqlite, sqlite3_open_v2);
QUORVEL_LAZY_FUNCTION(g_sqlite, sqlite3_prepare_v2);
QUORVEL_LAZY_FUNCTION(g_sqlite, sqlite3_prepare_v3);
QUORVEL_LAZY_FUNCTION(g_sqlite, sqlite3_reset);
QUORVEL_LAZY_FUNCTION(g_sqlite, sqlite3_step);
QUORVEL_LAZY_FUNCTION(g_sqlite, sqlite3_system_errno);

} // namespace quorvel
