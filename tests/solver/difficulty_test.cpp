// The solver's knowledge, the legal moves and their verdicts, the difficulty
// of a deal and its grade, and the deal of the day.
#include <gtest/gtest.h>

#include <cmath>

#include "solver/daily_deal.h"
#include "solver/difficulty.h"
#include "support/fixtures.h"

namespace vorn {
namespace {

Board numbered(DealNumber n) {
    Board b = Board::loaded();
    dealNumbered(b, n);
    return b;
}

TEST(Knowledge, KeepsWhatSearchesProve) {
    Knowledge knowledge;
    const Board won = numbered(1);
    EXPECT_FALSE(knowledge.known(won));
    const Verdict v = knowledge.decide(won);
    ASSERT_EQ(v.outcome, Outcome::Won);
    EXPECT_TRUE(replayWins(won, v));
    // Every position of the line is known won; asked again, nothing is searched.
    Board along = won;
    for (const CardMove& m : v.moves) {
        EXPECT_EQ(knowledge.known(along), Outcome::Won);
        along.click(m.select());
        along.click(m.target);
    }
    EXPECT_EQ(knowledge.decide(won).positions, 0u);

    // Deal 2 is lost from the start, and with it every position the search reached.
    const Board lost = numbered(2);
    EXPECT_EQ(knowledge.decide(lost).outcome, Outcome::Lost);
    for (const MoveVerdict& m : knowledge.judgeMoves(lost)) EXPECT_EQ(m.outcome, Outcome::Lost);
    const size_t known = knowledge.size();
    EXPECT_GT(known, v.moves.size() + 1);

    // A move joins what is known: a lost position before it, a won one after it.
    Board start = numbered(3), next = start;
    const CardMove first = solve(start).moves.front();
    next.click(first.select());
    next.click(first.target);
    knowledge.learnMove(start, next);  // neither is known: nothing learnt
    EXPECT_EQ(knowledge.size(), known);
    EXPECT_EQ(knowledge.decide(next).outcome, Outcome::Won);
    knowledge.learnMove(numbered(4), start);  // no move joins them
    EXPECT_FALSE(knowledge.known(start));
    knowledge.learnMove(start, next);
    EXPECT_EQ(knowledge.known(start), Outcome::Won);
    EXPECT_EQ(knowledge.decide(start).positions, 0u);

    knowledge.clear();
    EXPECT_EQ(knowledge.size(), 0u);
    EXPECT_FALSE(knowledge.known(won));
}

TEST(Knowledge, CountsLegalAndWinnableMoves) {
    struct Case {
        const char* what;
        Board board;
        size_t legal, winnable;
    };
    // trap: the king goes to the eight pile places of rows 1 to 4; the queen
    // onto the jack below the aces (lost: neither moves again), onto the king,
    // to those eight places and the two of row 5; the jack home, onto the queen
    // and to the same ten places. stuck: only the king moves, onto the queen
    // lying on the jack or to a pile place, and nothing can win any more.
    const Case cases[] = {
        {"trap", boardFrom({{"JH", 4920, 6360}, {"QH", 7800, 6360}, {"KH", 120, 120}}), 32, 31},
        {"stuck", boardFrom({{"JH", 4920, 6360}, {"QH", 4920, "+"}, {"KH", 120, 120}}), 9, 0},
    };
    for (const Case& c : cases) {
        Knowledge knowledge;
        const std::vector<MoveVerdict> moves = knowledge.judgeMoves(c.board);
        size_t winnable = 0;
        for (const MoveVerdict& m : moves) winnable += m.outcome == Outcome::Won ? 1 : 0;
        EXPECT_EQ(moves.size(), c.legal) << c.what;
        EXPECT_EQ(winnable, c.winnable) << c.what;
    }
}

// Pinned figures: a change to the search's order, the seeds or the formula
// that moves them re-grades deals, and must come with a new version.
TEST(Difficulty, PinnedDealsKeepTheirFigures) {
    ASSERT_EQ(kDifficultyVersion, 1) << "the figures below are version 1's";
    const struct {
        DealNumber deal;
        Outcome outcome;
        int32_t milliBits;
        Grade grade;
    } deals[] = {
        {6, Outcome::Won, 9'821, Grade::Easy},    {1, Outcome::Won, 15'689, Grade::Medium},
        {14, Outcome::Won, 20'023, Grade::Hard},  {3, Outcome::Won, 25'663, Grade::VeryHard},
        {10, Outcome::Won, 30'581, Grade::Expert}, {2, Outcome::Lost, 0, Grade::Easy},  // lost from the start
    };
    for (const auto& d : deals) {
        const Difficulty measured = measureDifficulty(numbered(d.deal));
        EXPECT_EQ(measured.outcome, d.outcome) << "deal " << d.deal;
        EXPECT_EQ(measured.milliBits, d.milliBits) << "deal " << d.deal;
        EXPECT_EQ(measured.grade, d.grade) << "deal " << d.deal;
    }
}

TEST(Difficulty, GradesChangeAtTheThresholds) {
    EXPECT_EQ(gradeOf(0), Grade::Easy);
    for (int g = 0; g < kGradeCount - 1; ++g) {
        const int32_t t = kGradeThresholds[static_cast<size_t>(g)];
        EXPECT_EQ(gradeOf(t - 1), static_cast<Grade>(g)) << t;
        EXPECT_EQ(gradeOf(t), static_cast<Grade>(g + 1)) << t;
    }
    // The bits of a position come from an integer table: it must be round(1000 log2 k).
    for (uint32_t k = 1; k < 256; ++k)
        ASSERT_EQ(milliLog2(k), std::lround(1000 * std::log2(static_cast<double>(k)))) << k;
}

TEST(DailyDeal, AWeekOfDatesHasItsDealsAndGrades) {
    using namespace std::chrono;
    const struct {
        Date date;
        Grade grade;
        DealNumber deal;
    } days[] = {
        {2026y / November / 23, Grade::Easy, 1'690'383'196},  // a Monday
        {2026y / November / 24, Grade::Easy, 3'070'342'196},
        {2026y / November / 25, Grade::Medium, 1'225'833'875},
        {2026y / November / 26, Grade::Hard, 92'999'610},
        {2026y / November / 27, Grade::VeryHard, 3'894'610'525},
        {2026y / November / 28, Grade::Expert, 1'723'716'831},
        {2026y / November / 29, Grade::Expert, 2'378'564'667},
    };
    for (const auto& day : days) {
        EXPECT_EQ(dailyGrade(day.date), day.grade) << formatDate(day.date);
        EXPECT_EQ(dailyDeal(day.date), day.deal) << formatDate(day.date);
        const Difficulty d = measureDifficulty(numbered(day.deal));
        EXPECT_TRUE(d.outcome == Outcome::Won && d.grade == day.grade) << formatDate(day.date);
    }
}

TEST(DailyDeal, DatesAreReadStrictly) {
    for (const char* odd : {"2026-02-30", "2025-02-29", "26-1-1", "2026-1-01", "", " 2026-01-01", "2026-01-01 ",
                            "2026-13-01", "2026-00-10", "2026-01-00", "0000-01-01", "2026/01/01", "2026-01-0a",
                            "2026-01-011", "+026-01-01"})
        EXPECT_FALSE(parseDate(odd)) << '"' << odd << '"';
    for (const char* date : {"2024-02-29", "1970-01-01", "9999-12-31"}) {
        const std::optional<Date> read = parseDate(date);
        ASSERT_TRUE(read) << date;
        EXPECT_EQ(formatDate(*read), date);
    }
}

}  // namespace
}  // namespace vorn
