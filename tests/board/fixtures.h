// Shared helpers for the board tests: scripted deals and clicks by card name.
#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <vector>

#include "board/board.h"
#include "board/notation.h"

namespace vorn::testing {

// A number in [0, 1) that the deal turns into exactly this place number.
inline double drawOf(int place) { return (place - 0.5) / kPlaces; }

inline std::vector<double> drawsOf(std::initializer_list<int> places) {
    std::vector<double> out;
    for (int p : places) out.push_back(drawOf(p));
    return out;
}

// The deal in which the i-th card of layout order gets place 49 - i. The board reads:
//   row 1: KC QC JC 10C 9C | AH | 8C 7C 6C 5C 4C
//   row 2: 3C 2C KD QD JD  | AS | 10D 9D 8D 7D 6D
//   row 3: 5D 4D 3D 2D KS  | AD | QS JS 10S 9S 8S
//   row 4: 7S 6S 5S 4S 3S  | AC | 2S KH QH JH 10H
//   row 5: -  9H 8H 7H 6H  | .. | 5H 4H 3H 2H  -
inline Board reverseDeal() {
    std::vector<double> draws;
    for (int i = 1; i <= kPlaces; ++i) draws.push_back(drawOf(49 - i));
    ScriptedRandom random(draws);
    Board b = Board::loaded();
    b.rasklad(random);
    return b;
}

inline Board seededDeal(uint64_t seed) {
    SeededRandom random(seed);
    Board b = Board::loaded();
    b.rasklad(random);
    return b;
}

inline Reaction clickOn(Board& b, const char* name) {
    const Card c = card(name);
    EXPECT_FALSE(c.empty()) << "no card " << name;
    return b.clickCard(c.suit, c.rank);
}

inline Spot spotOf(const Board& b, const char* name) { return b.spot(card(name)); }

inline uint32_t zOf(const Board& b, const char* name) {
    const Card c = card(name);
    return b.zorder(c.suit, c.rank);
}

inline uint8_t borderOf(const Board& b, const char* name) {
    const Card c = card(name);
    return b.border(c.suit, c.rank);
}

// The parts of a board a player can see or that the next click depends on,
// leaving out the references the click handlers record on their way.
inline ::testing::AssertionResult samePicture(const Board& a, const Board& b) {
    if (a.kartleft == b.kartleft && a.karttop == b.karttop && a.border == b.border && a.zorder == b.zorder &&
        a.vybor == b.vybor && a.rezhim == b.rezhim && a.mesta == b.mesta && a.raskl == b.raskl &&
        a.karta1 == b.karta1)
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << "boards differ:\n" << describe(a) << "--- versus ---\n" << describe(b);
}

inline constexpr Reaction kNone{};
inline constexpr Reaction kWrong{Message::WrongMove, false, false};
inline constexpr Reaction kMoved{Message::None, false, true};
// A position written with boardFrom that lists no king has all four kings home,
// so every move that perexod1 makes there finds the game won.
inline constexpr Reaction kMovedHome{Message::None, true, true};

}  // namespace vorn::testing

namespace vorn {
// Lets a failing EXPECT_EQ print positions and reactions readably.
inline void PrintTo(const Spot& s, std::ostream* os) { *os << "(" << s.left << ", " << s.top << ")"; }
inline void PrintTo(const Card& c, std::ostream* os) { *os << cardName(c); }
inline void PrintTo(const Reaction& r, std::ostream* os) {
    *os << "{message " << static_cast<int>(r.message) << ", won " << r.won << ", moved " << r.moved << "}";
}
}  // namespace vorn
