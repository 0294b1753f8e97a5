// The record when things go wrong: a damaged, foreign or newer file, a folder
// that cannot be written, a writer killed mid-game, two copies writing at once.
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gmock/gmock.h>

#include "record/record.h"
#include "record/sqlite.h"
#include "record_support.h"

namespace vorn::record {
namespace {

using namespace testing;
using store::testing::listing;
using store::testing::readBytes;
using store::testing::writeBytes;

// SQL run on a database file as another program would run it; its first value.
std::string sqlOn(const std::filesystem::path& file, const char* sql) {
    sql::Database db(file, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, 0);
    sql::Statement q(db, sql);
    auto rows = q.query();
    return rows.next() ? rows->text(0) : "";
}

// Plays games begun with deal numbers from first, sending each id down fd once
// its end is committed (when fd is not -1). In a child process: exits 1 at the
// first failure.
[[noreturn]] void playGamesAndExit(const std::filesystem::path& folder, std::uint32_t first, int count, int fd) {
    Opened opened = Record::open(folder);
    const auto fail = [&](const std::string& why) {
        std::fprintf(stderr, "%s\n", why.c_str());
        ::_exit(1);
    };
    if (!opened.record) fail(opened.detail);
    Record& record = *opened.record;
    for (std::uint32_t n = first; count-- != 0; ++n) {
        const auto id = record.begin(numbered(n));
        Progress progress;
        for (int move = 0; id && move < 4; ++move) {
            progress.line += "1-2 ";
            if (!record.update(*id, progress)) fail(record.errorText());
        }
        if (!id || !record.end(*id, Result::Won, 1)) fail(record.errorText());
        if (fd >= 0 && ::write(fd, &*id, sizeof *id) != sizeof *id) fail("the pipe");
    }
    ::_exit(0);
}

int exitStatus(pid_t child) {
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST(RecordFaults, ADamagedOrForeignFileIsMovedAsideIntactAndANewRecordBegins) {
    const std::function<void(const std::filesystem::path&)> damages[] = {
        [](const auto& file) { writeBytes(file, std::string(5000, 'x')); },
        [](const auto& file) { sql::Database(file, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, 0).exec("CREATE TABLE notes (text)"); },
        [](const auto& file) {  // a record of ours with its tables' pages overwritten
            { Scratch::open(file.parent_path()).begin(numbered(1)); }
            std::string bytes = readBytes(file);
            bytes.replace(4096, 8192, 8192, '\x7f');
            writeBytes(file, bytes);
        },
    };
    for (const auto& damage : damages) {
        TempFolder folder;
        damage(folder / Record::kFileName);
        const std::string bytes = readBytes(folder / Record::kFileName);
        Opened opened = Record::open(folder.path());
        ASSERT_TRUE(opened.record) << opened.detail;
        EXPECT_EQ(opened.problem, Opened::Problem::MovedAside);
        EXPECT_EQ(opened.movedTo.parent_path(), folder.path());
        EXPECT_THAT(opened.movedTo.filename().string(), ::testing::MatchesRegex(R"(games\.damaged-[0-9]{8}-[0-9]{6}\.sqlite)"));
        EXPECT_EQ(readBytes(opened.movedTo), bytes);
        EXPECT_TRUE(opened.record->begin(numbered(2)));
        opened.record.reset();
        EXPECT_EQ(listing(folder.path()), opened.movedTo.filename().string() + " games.sqlite");
        EXPECT_EQ(Record::open(folder.path()).problem, Opened::Problem::None);
    }
}

TEST(RecordFaults, ARecordOfANewerVersionIsRefusedAndLeftAsItIs) {
    TempFolder folder;
    Scratch::open(folder.path()).begin(numbered(1));
    sqlOn(folder / Record::kFileName, "PRAGMA user_version = 2");
    const std::string bytes = readBytes(folder / Record::kFileName);
    const Opened opened = Record::open(folder.path());
    EXPECT_FALSE(opened.record);
    EXPECT_EQ(opened.problem, Opened::Problem::Newer);
    EXPECT_EQ(readBytes(folder / Record::kFileName), bytes);
    EXPECT_EQ(listing(folder.path()), "games.sqlite");
}

TEST(RecordFaults, AFolderThatCannotBeWrittenGivesNoRecordAndChangesNothing) {
    TempFolder folder;
    Scratch::open(folder / "kept").begin(numbered(1));
    const std::string bytes = readBytes(folder / "kept" / Record::kFileName);
    std::filesystem::create_directory(folder / "empty");
    for (const char* name : {"kept", "empty"}) ::chmod((folder / name).c_str(), 0555);
    EXPECT_TRUE(store::testing::asOrdinaryUser([&]() -> std::string {
        for (const char* name : {"kept", "empty", "empty/state"}) {
            const Opened opened = Record::open(folder / name);
            if (opened.record || opened.problem != Opened::Problem::CannotWrite) return std::string(name) + ": opened";
        }
        return {};
    }));
    EXPECT_EQ(listing(folder / "empty"), "");
    EXPECT_EQ(listing(folder / "kept"), "games.sqlite");
    EXPECT_EQ(readBytes(folder / "kept" / Record::kFileName), bytes);
}

TEST(RecordFaults, AWriterKilledAtAnyMomentLeavesASoundFileWithEveryGameItEnded) {
    TempFolder folder;
    std::vector<GameId> ended;
    for (int round = 0; round < 3; ++round) {
        int pipe[2];
        ASSERT_EQ(::pipe(pipe), 0);
        const pid_t child = ::fork();
        if (child == 0) {
            ::close(pipe[0]);
            playGamesAndExit(folder.path(), 1, -1, pipe[1]);
        }
        ::close(pipe[1]);
        GameId id = 0;
        for (int n = 0; n < 25 + 10 * round && ::read(pipe[0], &id, sizeof id) == sizeof id; ++n) ended.push_back(id);
        ::kill(child, SIGKILL);
        ASSERT_EQ(exitStatus(child), -1) << "killed, not ended";
        while (::read(pipe[0], &id, sizeof id) == sizeof id) ended.push_back(id);
        ::close(pipe[0]);
    }
    ASSERT_GE(ended.size(), 25u + 35 + 45) << "every round ended games before its kill";
    EXPECT_EQ(sqlOn(folder / Record::kFileName, "PRAGMA integrity_check"), "ok");
    const Record record = Scratch::open(folder.path());
    for (const GameId id : ended) EXPECT_EQ(record.game(id).value().result, Result::Won) << id;
    EXPECT_LE(record.summary("2024-05-01")->all.played - static_cast<int>(ended.size()), 3)
        << "at most one game a round ended unreported";
}

TEST(RecordFaults, TwoCopiesRecordTheirGamesAtOnce) {
    TempFolder folder;
    const pid_t child = ::fork();
    if (child == 0) playGamesAndExit(folder.path(), 1000, 60, -1);
    const pid_t second = ::fork();
    if (second == 0) playGamesAndExit(folder.path(), 1, 60, -1);
    EXPECT_EQ(exitStatus(child), 0);
    EXPECT_EQ(exitStatus(second), 0);
    const auto games = Scratch::open(folder.path()).games().value();
    ASSERT_EQ(games.size(), 120u);
    for (const Game& g : games) EXPECT_EQ(std::tuple(g.result, g.progress.line), std::tuple(Result::Won, "1-2 1-2 1-2 1-2 "));
}

}  // namespace
}  // namespace vorn::record
