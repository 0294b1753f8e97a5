// The record in use: games begun, moved in and ended, the statistics read back
// from the rows, and the export.
#include "record/record.h"

#include <sstream>

#include "record_support.h"

namespace vorn::record {
namespace {

using namespace testing;

TEST(Record, StateFolderIsXdgStateHomeOrTheHomesLocalState) {
    const std::tuple<std::string, std::string, std::optional<std::string>> cases[] = {
        {"/x/state", "/home/a", "/x/state/vorn"},
        {"", "/home/a", "/home/a/.local/state/vorn"},
        {"relative/state", "/home/a", "/home/a/.local/state/vorn"},
        {"", "", std::nullopt},
        {"", "home/a", std::nullopt},
    };
    for (const auto& [xdg, home, folder] : cases) {
        const auto found = stateFolder(xdg, home);
        EXPECT_EQ(found ? std::optional(found->string()) : std::nullopt, folder) << xdg << " " << home;
    }
}

TEST(Record, AGameIsCountedOnceGivenUpBecomesLostAndAnUnfinishedOneWaitsToBeContinued) {
    Scratch s;
    const GameId won = s.play("W", {"7-12 3-4", 2, 1});
    EXPECT_TRUE(s.record.end(won, Result::GivenUp, 99, s.next())) << "ending it again changes nothing";
    EXPECT_TRUE(s.record.update(won, {"7-12", 1}));
    EXPECT_TRUE(s.record.reclassifyLost(won)) << "only a game given up becomes lost";
    const GameId older = s.play("u", {"1-2 3-4 5-6", 3, 0, 1, 2, 1, 4500}, numbered(77));
    const GameId newest = s.record.begin(numbered(5), s.next()).value();

    const Summary summary = s.summary();
    EXPECT_EQ(std::tuple(summary.all.played, summary.all.won), std::tuple(1, 1));
    const Game wonGame = s.record.game(won).value();
    EXPECT_EQ(wonGame.result, Result::Won);
    EXPECT_EQ(std::tuple(wonGame.progress.line, wonGame.progress.moves, wonGame.ended),
              std::tuple("7-12 3-4", 2, std::optional<std::string>("2024-05-01T00:00:02.000Z")));

    // Quit, and the game begun last of the unfinished ones is there to continue.
    s.record = Scratch::open(s.folder.path() / "state");
    EXPECT_EQ(s.record.lastUnfinished().value().id, newest);
    ASSERT_TRUE(s.record.end(newest, Result::GivenUp, 0, s.next()));
    ASSERT_TRUE(s.record.reclassifyLost(newest));
    ASSERT_TRUE(s.record.reclassifyLost(older));
    EXPECT_EQ(s.record.game(newest)->result, Result::Lost);
    const Game continued = s.record.lastUnfinished().value();
    EXPECT_EQ(continued.id, older);
    EXPECT_EQ(continued.beginning.deal, 77u);
    EXPECT_EQ(continued.beginning.start, Start::ByNumber);
    EXPECT_EQ(continued.progress.line, "1-2 3-4 5-6");
    EXPECT_EQ(std::tuple(continued.progress.hints, continued.progress.solutionMoves, continued.progress.backs,
                         continued.progress.playedMs),
              std::tuple(1, 2, 1, 4500));
    EXPECT_FALSE(continued.result);
}

TEST(Record, StreaksRunInTheOrderGamesEnded) {
    // W won, G given up, L lost, u left unfinished (it neither counts nor breaks a run).
    const std::tuple<std::string, int, int> cases[] = {
        {"", 0, 0}, {"W", 1, 1}, {"G", 0, 0}, {"WWG", 0, 2}, {"WWGW", 1, 2},
        {"WWWLWW", 2, 3}, {"GWWuW", 3, 3}, {"WLWWWGWW", 2, 3},
    };
    for (const auto& [results, current, longest] : cases) {
        Scratch s;
        for (const char r : results) s.play(std::string(1, r));
        const Figures f = s.summary().all;
        EXPECT_EQ(std::tuple(f.currentStreak, f.longestStreak), std::tuple(current, longest)) << results;
    }
    Scratch s;  // begun first, ended last
    const GameId first = s.record.begin(numbered(1), s.next()).value();
    s.play("W");
    s.record.end(first, Result::GivenUp, 0, s.next());
    EXPECT_EQ(std::tuple(s.summary().all.currentStreak, s.summary().all.longestStreak), std::tuple(0, 1));
}

TEST(Record, SummaryCountsWinnableDealsHelpGradesAndTheDailyDeal) {
    Scratch s;
    auto winnable = numbered(3);
    winnable.verdict = Verdict::Winnable;
    s.play("W", {"", 10, 0, 0, 0, 0, 60000}, winnable);
    s.play("G", {"", 4, 0, 1}, winnable);                    // a hint
    s.play("W", {"", 20, 0, 0, 3, 0, 120000}, numbered(4));  // Show solution
    const GameId late = s.play("L", {"", 2, 0, 0, 0, 1});    // Back
    ASSERT_TRUE(s.record.setVerdict(late, Verdict::Winnable));
    ASSERT_TRUE(s.record.setGrade(late, 1234, 2, 1));
    s.play("u", {}, winnable);
    for (const auto& [date, result] : {std::pair{"2024-04-28", "W"}, {"2024-04-30", "W"}, {"2024-05-01", "W"},
                                       {"2024-05-02", "G"}, {"2024-05-02", "W"}}) {
        Beginning daily = numbered(9);
        daily.start = Start::Daily;
        daily.dailyDate = date;
        s.play(result, {}, daily);
    }

    auto figures = [](const Figures& f) { return std::tuple(f.played, f.won, f.currentStreak, f.longestStreak); };
    const Summary sum = s.summary("2024-05-03");
    EXPECT_EQ(figures(sum.all), std::tuple(9, 6, 1, 3));
    EXPECT_EQ(figures(sum.winnable), std::tuple(3, 1, 0, 1));
    EXPECT_EQ(figures(sum.withHelp), std::tuple(3, 1, 0, 1));
    EXPECT_EQ(figures(sum.withoutHelp), std::tuple(6, 5, 1, 4));
    EXPECT_DOUBLE_EQ(sum.winnable.winRate(), 1.0 / 3);
    EXPECT_DOUBLE_EQ(sum.averageWonMoves, 5.0);
    EXPECT_DOUBLE_EQ(sum.averageWonMs, 30000.0);
    ASSERT_EQ(sum.byGrade.size(), 1u);
    EXPECT_EQ(std::tuple(sum.byGrade[0].grade, sum.byGrade[0].played, sum.byGrade[0].won), std::tuple(2, 1, 0));
    using enum Result;
    EXPECT_EQ(sum.recent, (std::vector{Won, GivenUp, Won, Lost, Won, Won, Won, GivenUp, Won}));
    EXPECT_EQ(s.record.summary("2024-05-03", 2)->recent, (std::vector{GivenUp, Won}));

    // Daily: won on 28 April, 30 April, 1 and 2 May.
    const std::tuple<std::string, bool, int> days[] = {
        {"2024-05-02", true, 3}, {"2024-05-03", false, 3}, {"2024-05-04", false, 0},
        {"2024-05-01", true, 2}, {"2024-04-29", false, 1}, {"2024-04-27", false, 0},
    };
    for (const auto& [today, won, streak] : days) {
        const Summary d = s.summary(today);
        EXPECT_EQ(std::tuple(d.dailyWon, d.dailyStreak), std::tuple(won, streak)) << today;
    }
}

TEST(Record, ExportsEveryGameAsCsvAndResetKeepsOnlyTheGameInPlay) {
    Scratch s;
    Beginning loaded;
    loaded.start = Start::Loaded;
    loaded.layout = " 1, 2";
    loaded.layoutName = "=HYPERLINK(\"x\"), \"best\"";
    const GameId first = s.play("W", {"-3 4,5", 2, 1, 0, 0, 0, 1500}, loaded);
    s.record.setGrade(first, 1500, 3, 1);
    s.record.setReview(first, 0, 2);
    const GameId second = s.play("u", {"12", 1}, numbered(4294967295u));
    const std::string csv =
        "id,started,ended,played_ms,deal,layout,layout_name,beginning,daily_date,start_verdict,difficulty,grade,"
        "measure_version,moves,undos,hints,solution_moves,backs,result,blunders,only_moves,line\r\n"
        "1,2024-05-01T00:00:01.000Z,2024-05-01T00:00:02.000Z,1500,,\" 1, 2\",\"'=HYPERLINK(\"\"x\"\"), \"\"best\"\"\","
        "loaded,,,1500,3,1,2,1,0,0,0,won,0,2,\"'-3 4,5\"\r\n"
        "2,2024-05-01T00:00:03.000Z,,0,4294967295,\"" + numbered(1).layout + "\",,number,,,,,,1,0,0,0,0,,,,12\r\n";
    std::ostringstream out;
    ASSERT_TRUE(s.record.exportCsv(out));
    EXPECT_EQ(out.str(), csv);
    ASSERT_TRUE(s.record.exportCsv(s.folder / "games.csv"));
    EXPECT_EQ(store::testing::readBytes(s.folder / "games.csv"), csv);
    EXPECT_FALSE(s.record.exportCsv(s.folder / "no folder" / "games.csv"));
    EXPECT_NE(s.record.errorText().find("no folder/games.csv: No such file"), std::string::npos) << s.record.errorText();

    ASSERT_TRUE(s.record.reset(second));
    EXPECT_EQ(s.record.games()->size(), 1u);
    EXPECT_EQ(s.record.lastUnfinished()->id, second);
    ASSERT_TRUE(s.record.reset());
    EXPECT_TRUE(s.record.games()->empty());
}

}  // namespace
}  // namespace vorn::record
