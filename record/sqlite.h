// A thin owner of SQLite's handles: the connection and each prepared statement
// are closed by their destructors. Statements are prepared once from constant
// SQL and take their values through bound parameters, never by pasting text.
// Failures throw sql::Error, which the record catches at its public edge.
#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace vorn::record::sql {

class Error : public std::runtime_error {
public:
    Error(int code, const std::string& what) : std::runtime_error(what), code_(code) {}
    int code() const { return code_; }  // SQLite's primary result code

private:
    int code_;
};

class Database {
public:
    // Opens (with flags such as SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE) and
    // sets the busy time-out, so that two copies of the game wait for each other.
    Database(const std::filesystem::path& file, int flags, int busyMs);
    sqlite3* get() const { return db_.get(); }
    void exec(const char* sql);  // constant SQL only: schema and pragmas
    std::int64_t lastId() const { return sqlite3_last_insert_rowid(db_.get()); }

private:
    struct Close {
        void operator()(sqlite3* db) const { sqlite3_close_v2(db); }
    };
    std::unique_ptr<sqlite3, Close> db_;
};

class Statement {
public:
    Statement(const Database& db, const char* sql);

    // Binds the values to ?1, ?2, ... in order (after a reset), runs the
    // statement to its end and resets it again. Returns the rows changed.
    template <typename... Values>
    int run(const Values&... values) {
        bindAll(values...);
        while (step()) {
        }
        sqlite3_reset(stmt_.get());
        return sqlite3_changes(sqlite3_db_handle(stmt_.get()));
    }
    // Binds the values; the caller reads the rows, and the statement is reset
    // when the Rows go, so that no read is left open.
    class Rows;
    template <typename... Values>
    Rows query(const Values&... values);
    bool step();  // true while there is a row

    bool isText(int column) const { return sqlite3_column_type(stmt_.get(), column) == SQLITE_TEXT; }
    bool isNull(int column) const { return sqlite3_column_type(stmt_.get(), column) == SQLITE_NULL; }
    std::int64_t integer(int column) const { return sqlite3_column_int64(stmt_.get(), column); }
    double real(int column) const { return sqlite3_column_double(stmt_.get(), column); }
    std::string text(int column) const;
    std::optional<std::int64_t> optionalInteger(int column) const;
    std::optional<std::string> optionalText(int column) const;
    int columns() const { return sqlite3_column_count(stmt_.get()); }
    const char* name(int column) const { return sqlite3_column_name(stmt_.get(), column); }

private:
    template <typename... Values>
    void bindAll(const Values&... values) {
        sqlite3_reset(stmt_.get());
        sqlite3_clear_bindings(stmt_.get());
        int i = 0;
        (bind(++i, values), ...);
        (void)i;
    }
    void bind(int i, std::int64_t value);
    void bind(int i, int value) { bind(i, static_cast<std::int64_t>(value)); }
    void bind(int i, std::uint32_t value) { bind(i, static_cast<std::int64_t>(value)); }
    void bind(int i, std::string_view value);
    void bind(int i, const std::string& value) { bind(i, std::string_view(value)); }
    void bind(int i, const char* value) { bind(i, std::string_view(value)); }
    void bind(int i, std::nullopt_t);
    template <typename T>
    void bind(int i, const std::optional<T>& value) {
        if (value) bind(i, *value);
        else bind(i, std::nullopt);
    }
    void check(int rc) const;

    struct Finalize {
        void operator()(sqlite3_stmt* stmt) const { sqlite3_finalize(stmt); }
    };
    std::unique_ptr<sqlite3_stmt, Finalize> stmt_;
};

class Statement::Rows {
public:
    explicit Rows(Statement& statement) : statement_(statement) {}
    Rows(const Rows&) = delete;
    Rows& operator=(const Rows&) = delete;
    ~Rows() { sqlite3_reset(statement_.stmt_.get()); }
    bool next() { return statement_.step(); }
    const Statement& operator*() const { return statement_; }
    const Statement* operator->() const { return &statement_; }

private:
    Statement& statement_;
};

template <typename... Values>
Statement::Rows Statement::query(const Values&... values) {
    bindAll(values...);
    return Rows(*this);
}

// BEGIN IMMEDIATE at once (the write lock, waiting out the other copy), or a
// plain BEGIN for reads that must see one state; COMMIT by commit(), ROLLBACK
// when left without one.
class Transaction {
public:
    explicit Transaction(Database& db, const char* begin = "BEGIN IMMEDIATE");
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    ~Transaction();
    void commit();

private:
    Database& db_;
    bool open_ = true;
};

}  // namespace vorn::record::sql
