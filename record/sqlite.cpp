#include "record/sqlite.h"

namespace vorn::record::sql {
namespace {

[[noreturn]] void fail(sqlite3* db, int rc) {
    const char* message = db != nullptr && sqlite3_errcode(db) == rc ? sqlite3_errmsg(db) : sqlite3_errstr(rc);
    throw Error(rc & 0xff, message);
}

}  // namespace

Database::Database(const std::filesystem::path& file, int flags, int busyMs) {
    sqlite3* db = nullptr;
    const int rc = sqlite3_open_v2(file.c_str(), &db, flags, nullptr);
    db_.reset(db);  // a handle comes back even when the open fails
    if (rc != SQLITE_OK) fail(db, rc);
    sqlite3_extended_result_codes(db, 0);
    sqlite3_busy_timeout(db, busyMs);
}

void Database::exec(const char* sql) {
    const int rc = sqlite3_exec(db_.get(), sql, nullptr, nullptr, nullptr);
    if (rc != SQLITE_OK) fail(db_.get(), rc);
}

Statement::Statement(const Database& db, const char* sql) {
    sqlite3_stmt* stmt = nullptr;
    const int rc = sqlite3_prepare_v3(db.get(), sql, -1, SQLITE_PREPARE_PERSISTENT, &stmt, nullptr);
    stmt_.reset(stmt);
    if (rc != SQLITE_OK) fail(db.get(), rc);
}

bool Statement::step() {
    const int rc = sqlite3_step(stmt_.get());
    if (rc == SQLITE_ROW) return true;
    if (rc == SQLITE_DONE) return false;
    sqlite3_reset(stmt_.get());
    fail(sqlite3_db_handle(stmt_.get()), rc);
}

std::string Statement::text(int column) const {
    const auto* bytes = reinterpret_cast<const char*>(sqlite3_column_text(stmt_.get(), column));
    return bytes == nullptr ? std::string() : std::string(bytes, static_cast<std::size_t>(sqlite3_column_bytes(stmt_.get(), column)));
}

std::optional<std::int64_t> Statement::optionalInteger(int column) const {
    if (isNull(column)) return std::nullopt;
    return integer(column);
}

std::optional<std::string> Statement::optionalText(int column) const {
    if (isNull(column)) return std::nullopt;
    return text(column);
}

void Statement::bind(int i, std::int64_t value) { check(sqlite3_bind_int64(stmt_.get(), i, value)); }
void Statement::bind(int i, std::string_view value) {
    check(sqlite3_bind_text64(stmt_.get(), i, value.empty() ? "" : value.data(), value.size(), SQLITE_TRANSIENT, SQLITE_UTF8));
}
void Statement::bind(int i, std::nullopt_t) { check(sqlite3_bind_null(stmt_.get(), i)); }

void Statement::check(int rc) const {
    if (rc != SQLITE_OK) fail(sqlite3_db_handle(stmt_.get()), rc);
}

Transaction::Transaction(Database& db, const char* begin) : db_(db) { db_.exec(begin); }

Transaction::~Transaction() {
    if (open_) sqlite3_exec(db_.get(), "ROLLBACK", nullptr, nullptr, nullptr);
}

void Transaction::commit() {
    db_.exec("COMMIT");
    open_ = false;
}

}  // namespace vorn::record::sql
