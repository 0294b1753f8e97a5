// What the record tests share: a record in a scratch folder, a clock that
// ticks a second at each call, and games played to a given end.
#pragma once

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "record/record.h"
#include "store/folder.h"

namespace vorn::record::testing {

using store::testing::TempFolder;

// Deal number n (its layout string is a stand-in: the record does not read it).
inline Beginning numbered(std::uint32_t n) {
    Beginning b;
    b.start = Start::ByNumber;
    b.deal = n;
    b.layout = store::testing::dealtLayout();
    return b;
}

struct Scratch {
    static Record open(const std::filesystem::path& folder) {
        Opened opened = Record::open(folder);
        if (!opened.record) throw std::runtime_error("no record: " + opened.detail);
        return std::move(*opened.record);
    }

    // 2024-05-01T00:00:00Z plus one second more at every call.
    Clock::time_point next() { return Clock::time_point(std::chrono::hours(24 * 19844) + std::chrono::seconds(++tick)); }

    // Begins a game, records its progress and ends it: result "W" won, "G"
    // given up, "L" lost, "u" left unfinished.
    GameId play(const std::string& result, const Progress& progress = {}, const Beginning& beginning = numbered(1)) {
        const GameId id = record.begin(beginning, next()).value();
        EXPECT_TRUE(record.update(id, progress)) << record.errorText();
        const Result ends = result == "W" ? Result::Won : result == "G" ? Result::GivenUp : Result::Lost;
        if (result != "u") {
            EXPECT_TRUE(record.end(id, ends, progress.playedMs, next())) << record.errorText();
        }
        return id;
    }

    Summary summary(std::string_view today = "2024-05-03") const { return record.summary(today).value(); }

    TempFolder folder;
    Record record = open(folder.path() / "state");
    int tick = 0;
};

}  // namespace vorn::record::testing
