// Finding and opening the record: the state folder, a damaged or foreign file
// moved aside, a newer version's file refused, a folder that cannot be written.
#include <algorithm>
#include <cstdlib>
#include <system_error>

#include "record/impl.h"

namespace vorn::record {
namespace fs = std::filesystem;
namespace {

constexpr int kBusyMs = 5000;  // how long a write waits for the other copy of the game

struct Damaged {
    std::string why;
};
struct Newer {
    std::int64_t version;
};

std::int64_t pragma(sql::Database& db, const char* sql) {
    sql::Statement q(db, sql);
    auto rows = q.query();
    return rows.next() ? rows->integer(0) : 0;
}

// Opens the file and makes it a record of this version, or throws Damaged,
// Newer or sql::Error.
sql::Database openOurs(const fs::path& file) {
    sql::Database db(file, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, kBusyMs);
    bool empty = false;
    try {
        sql::Transaction reading(db, "BEGIN");  // one state, even while another copy makes the file
        const std::int64_t id = pragma(db, "PRAGMA application_id");
        const std::int64_t version = pragma(db, "PRAGMA user_version");
        empty = pragma(db, "SELECT count(*) FROM sqlite_schema") == 0;
        if (id == kApplicationId && version > Record::kSchemaVersion) throw Newer{version};
        if (!empty && (id != kApplicationId || version < 1)) throw Damaged{"not a record of this game"};
        if (!empty) {
            sql::Statement check(db, "PRAGMA quick_check");
            auto rows = check.query();
            if (rows.next() && rows->text(0) != "ok") throw Damaged{rows->text(0)};
        }
        reading.commit();
    } catch (const sql::Error& e) {
        if (e.code() == SQLITE_NOTADB || e.code() == SQLITE_CORRUPT) throw Damaged{e.what()};
        throw;
    }
    if (sqlite3_db_readonly(db.get(), "main") == 1) throw sql::Error(SQLITE_READONLY, "the file is read-only");
    // The switch to WAL, made once in a file's life, takes the whole file and
    // does not wait for the other copy by itself.
    for (int waited = 0;; waited += 10) {
        try {
            db.exec("PRAGMA journal_mode = WAL");
            break;
        } catch (const sql::Error& e) {
            if (e.code() != SQLITE_BUSY || waited >= kBusyMs) throw;
            sqlite3_sleep(10);
        }
    }
    db.exec("PRAGMA synchronous = NORMAL");
    if (empty) {
        sql::Transaction t(db);
        db.exec(kSchema);  // when two copies start at once, the second's does nothing
        t.commit();
    }
    return db;
}

// games.sqlite becomes games.damaged-20240501-123456.sqlite (-2, -3 ... when
// taken), and its journal files go with it.
fs::path moveAside(const fs::path& file) {
    std::string stamp = utcStamp(Clock::now()).substr(0, 19);
    stamp.erase(std::remove_if(stamp.begin(), stamp.end(), [](char c) { return c == '-' || c == ':'; }), stamp.end());
    stamp[8] = '-';  // 20240501T123456 -> 20240501-123456
    const fs::path folder = file.parent_path();
    fs::path target;
    for (int n = 1; target.empty() || fs::exists(target) || fs::exists(target.string() + "-wal"); ++n)
        target = folder / ("games.damaged-" + stamp + (n > 1 ? "-" + std::to_string(n) : "") + ".sqlite");
    fs::rename(file, target);
    for (const char* companion : {"-wal", "-shm"}) {
        std::error_code gone;
        fs::rename(file.string() + companion, target.string() + companion, gone);
    }
    return target;
}

}  // namespace

Opened Record::open(const fs::path& folder) {
    Opened opened;
    opened.file = folder / kFileName;
    const auto cannot = [&](const std::string& why) {
        opened.problem = Opened::Problem::CannotWrite;
        opened.detail = opened.file.string() + ": " + why;
        return std::move(opened);
    };
    std::error_code error;
    fs::create_directories(folder, error);
    if (error) return cannot("the folder cannot be made: " + error.message());
    for (int attempt = 0;; ++attempt) {
        try {
            opened.record.emplace(Record(std::make_unique<Impl>(openOurs(opened.file))));
            return opened;
        } catch (const Newer& newer) {
            opened.problem = Opened::Problem::Newer;
            opened.detail = opened.file.string() + ": written by a newer version of the game (record version " +
                            std::to_string(newer.version) + "); left as it is";
            return opened;
        } catch (const Damaged& damaged) {
            if (attempt > 0) return cannot(damaged.why);
            try {
                opened.movedTo = moveAside(opened.file);
            } catch (const fs::filesystem_error& e) {
                return cannot(damaged.why + "; it cannot be moved aside: " + e.code().message());
            }
            opened.problem = Opened::Problem::MovedAside;
            opened.detail = opened.file.string() + ": " + damaged.why + "; moved to " + opened.movedTo.string() +
                            " and a new record begun";
        } catch (const std::exception& e) {
            return cannot(e.what());
        }
    }
}

std::optional<fs::path> stateFolder(std::string_view xdgStateHome, std::string_view home) {
    if (fs::path(xdgStateHome).is_absolute()) return fs::path(xdgStateHome) / "vorn";
    if (fs::path(home).is_absolute()) return fs::path(home) / ".local/state/vorn";
    return std::nullopt;
}

std::optional<fs::path> stateFolder() {
    const char* xdg = std::getenv("XDG_STATE_HOME");
    const char* home = std::getenv("HOME");
    return stateFolder(xdg ? xdg : "", home ? home : "");
}

}  // namespace vorn::record
