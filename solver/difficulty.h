// How hard a deal is.
//
// A player who picks one of the legal moves of a position keeps the deal
// winnable with the chance w / l, l legal moves of which w keep it winnable.
// Each position thus asks for log2(l / w) bits of correct choice: none where
// every move is safe, one bit where half of them are, many where one move of
// many is right. The difficulty D of a winnable deal is the number of bits a
// way to the win asks for: the sum of log2(l / w) over the positions of a
// winning line, averaged over twelve winning lines: the ones the solver's
// search finds when moves that look equally promising are ordered by twelve
// fixed seeds. One line alone depends much on which way the search happens to
// find first (a roundabout line passes more narrow places); the average of
// twelve hardly does (bench/README.md, "Difficulty").
//
// D is counted in thousandths of a bit, with an integer table of
// round(1000 log2 k): the same figure on every machine. Every search it makes
// stops at a count of positions, never at a time, so the figure does not
// depend on the machine's speed either. A lost deal has no difficulty; a deal
// whose searches reach their limits has none either (Unknown).
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <stop_token>
#include <string_view>

#include "board/deal_number.h"
#include "knowledge.h"

namespace vorn {

// Raised whenever a change (the search's move order, the seeds, the limits,
// the formula) can change the figure of some deal: a figure stored with a game
// is comparable only with figures of its version.
inline constexpr int kDifficultyVersion = 1;

enum class Grade : uint8_t { Easy, Medium, Hard, VeryHard, Expert };
inline constexpr int kGradeCount = 5;

// The lowest D (thousandths of a bit) of Medium, Hard, Very hard and Expert:
// the quintiles of D over the first 10,000 winnable deals of the deal numbers
// 1, 2, 3, ... (they end at deal 13,099), found once with version 1 of the
// measure: the figures sorted, the ones at places 2,000, 4,000, 6,000 and 8,000
// (counted from 0). bench/README.md ("Difficulty") has the commands.
inline constexpr std::array<int32_t, kGradeCount - 1> kGradeThresholds{12'744, 17'879, 22'913, 29'442};

Grade gradeOf(int32_t milliBits);
// "easy", "medium", "hard", "very hard", "expert".
std::string_view gradeName(Grade grade);

// round(1000 log2 k) for 1 <= k <= 255, in integers only.
int32_t milliLog2(uint32_t k);

struct GradingLimits {
    uint64_t positionsPerSearch = 300'000;  // a search past this many positions: Unknown
    uint64_t positions = 5'000'000;         // all the searches of one deal together
    uint64_t firstSeed = 1;                 // the lines' seeds: firstSeed, firstSeed + 1, ...
    int lines = 12;
};

struct Difficulty {
    Outcome outcome = Outcome::Unknown;  // Won: milliBits and grade hold
    int32_t milliBits = 0;               // D, thousandths of a bit
    Grade grade = Grade::Easy;
    uint64_t positions = 0;  // positions searched
};

// The difficulty of the deal on the board (its position now, taken as a deal).
// What `knowledge` knows spares searches; what they find is added to it. The
// figure does not depend on what it knew: it keeps only proven verdicts, and
// the lines are found by searches that do not ask it. (Knowing more can only
// let a grading finish within its limits that would otherwise be Unknown.)
Difficulty measureDifficulty(const Board& board, Knowledge& knowledge, const GradingLimits& limits = {});
// The same with a knowledge of its own.
Difficulty measureDifficulty(const Board& board, const GradingLimits& limits = {});

// A deal found by findDeal: its number, its difficulty and how many deal
// numbers were tried.
struct FoundDeal {
    DealNumber number = 0;
    Difficulty difficulty;
    uint32_t candidates = 0;
};

// Tries the deals candidate(0), candidate(1), ... until one is proven winnable
// and, when `wanted` is given, of that grade. Gives up after `maxCandidates`
// numbers or when `stop` is requested.
std::optional<FoundDeal> findDealAmong(const std::function<DealNumber(uint32_t)>& candidate,
                                       std::optional<Grade> wanted, uint32_t maxCandidates, std::stop_token stop = {});
// The same over the deals start, start + 1, ... (after kLastDealNumber comes 1).
std::optional<FoundDeal> findDeal(DealNumber start, std::optional<Grade> wanted, uint32_t maxCandidates = 100'000,
                                  std::stop_token stop = {});

}  // namespace vorn
