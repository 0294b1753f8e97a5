// The game record as the game uses it: opened on a thread of its own once the
// window is on the screen, so start-up does not wait for it, and taken over at
// its first use (opened there and then if that comes first). Without a record (a read-only or full state folder, a record of
// a newer version) the game plays on, and the player is told once.
#pragma once

#include <filesystem>
#include <functional>
#include <future>
#include <optional>
#include <string>

#include "record/record.h"

namespace vorn::shell {

class GameRecord {
public:
    GameRecord() = default;
    ~GameRecord();
    GameRecord(const GameRecord&) = delete;
    GameRecord& operator=(const GameRecord&) = delete;

    // Where the record is; nothing is opened yet.
    void place(std::filesystem::path folder) { folder_ = std::move(folder); }
    // Starts opening it on a thread of its own; `opened` runs on that thread
    // when it is done.
    void open(std::function<void()> opened);
    // The record, once opened (waiting for the opening if it is under way);
    // nothing when there is none.
    record::Record* get();

    // What the player must hear about the record, once: why there is none,
    // where a damaged one went, or why writing failed. Empty when all is well
    // or it has been said.
    struct Problem {
        record::Opened::Problem kind = record::Opened::Problem::None;
        std::string where;   // the file moved aside, or the record's file
        bool failed = false;  // a write failed after the record was opened
    };
    std::optional<Problem> takeProblem();
    // A write or read of the record failed: no more records this run.
    void failed();

private:
    std::optional<std::filesystem::path> folder_;  // until the opening starts
    std::future<record::Opened> opening_;
    std::optional<record::Record> record_;
    std::optional<Problem> problem_;
    bool told_ = false;
};

}  // namespace vorn::shell
