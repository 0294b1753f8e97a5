// What the board and solver tests share: deals, clicks by card name, every thing a click
// can reach, random play, and click scripts checked against the cells.
#pragma once

#include <gtest/gtest.h>

#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "board/board.h"
#include "board/history.h"
#include "board/notation.h"
#include "board/reachables.h"
#include "support/board_from.h"
#include "support/describe.h"

namespace vorn::testing {

// A number in [0, 1) that the deal turns into exactly this place number.
inline double drawOf(int place) { return (place - 0.5) / kPlaces; }

// The deal in which the i-th card of layout order gets place 49 - i. The board reads:
//   row 1: KC QC JC 10C 9C | AH | 8C 7C 6C 5C 4C
//   row 2: 3C 2C KD QD JD  | AS | 10D 9D 8D 7D 6D
//   row 3: 5D 4D 3D 2D KS  | AD | QS JS 10S 9S 8S
//   row 4: 7S 6S 5S 4S 3S  | AC | 2S KH QH JH 10H
//   row 5: -  9H 8H 7H 6H  | .. | 5H 4H 3H 2H  -
inline std::vector<double> reverseDraws() {
    std::vector<double> draws;
    for (int i = 1; i <= kPlaces; ++i) draws.push_back(drawOf(49 - i));
    return draws;
}
inline Board dealt(Random& random) {
    Board b = Board::loaded();
    b.rasklad(random);
    return b;
}
inline Board reverseDeal() {
    ScriptedRandom random(reverseDraws());
    return dealt(random);
}
inline Board seededDeal(uint64_t seed) {
    SeededRandom random(seed);
    return dealt(random);
}

inline Reaction clickOn(Board& b, std::string_view name) {
    if (name.size() >= 2 && name[0] == 'P') return b.clickPile(std::stoi(std::string(name.substr(1))));
    const Card c = card(name);
    EXPECT_FALSE(c.empty()) << "no card " << name;
    return b.clickCard(c.suit, c.rank);
}
inline Spot spotOf(const Board& b, const char* name) { return b.spot(card(name)); }
inline uint32_t zOf(const Board& b, std::string_view name) {
    const Card c = card(name);
    return b.zorder(c.suit, c.rank);
}

inline constexpr Reaction kNone{};
inline constexpr Reaction kWrong{Message::WrongMove, false, false};
inline constexpr Reaction kCannot{Message::CannotSelect, false, false};
inline constexpr Reaction kNewGame{Message::NewGameFirst, false, false};
inline constexpr Reaction kMoved{Message::None, false, true};
// A position written with boardFrom that lists no king has all four kings home,
// so every move that a grid click makes there finds the game won.
inline constexpr Reaction kMovedHome{Message::None, true, true};

// A click of random play: now and then any click at all; else, with nothing
// selected, a card that some target then takes, and with a card selected, a
// target that takes it (or the card itself, to let it go).
inline Hit randomClick(const Board& b, std::mt19937_64& rng) {
    std::vector<Hit> options;  // the cards that show and the bare pile places
    for (const Reachable& r : reachables(b)) options.push_back(r.hit);
    if (rng() % 6 == 0) return options[rng() % options.size()];
    std::vector<Hit> acting;
    for (const Hit& first : options) {
        Board trial = b;
        if (b.vybor == 2) {
            if (trial.click(first).moved) acting.push_back(first);
            continue;
        }
        trial.click(first);
        if (trial.vybor != 2) continue;
        for (const Hit& second : options) {
            Board played = trial;
            if (played.click(second).moved) {
                acting.push_back(first);
                break;
            }
        }
    }
    if (acting.empty()) return b.vybor == 2 ? Hit{Hit::Kind::Card, b.karta1, 0} : options[rng() % options.size()];
    return acting[rng() % acting.size()];
}

// A click script: a position, clicks by card name (P1..P11 for the pile
// places), what the last click answers, and what must hold afterwards:
//   7S@4.11+   the 7S lies in row 4, column 11, on the cell's base card (no '+': is it)
//   7S*        the 7S is the selected card (with its border); 0* nothing is selected
//   5D<6D<7D   stacking order, back to front
//   P5 / -P5   the pile place Image5 is seen / hidden
// A refused last click must leave the picture as it was.
struct Script {
    const char* what;
    std::vector<Placed> position;
    const char* clicks;
    Reaction last;
    const char* after;
};

inline void expectAfter(const Board& b, const std::string& fact, const char* what) {
    const std::string where = std::string(what) + ": " + fact + "\n" + describe(b);
    if (fact == "0*") {
        EXPECT_EQ(b.vybor, 1) << where;
    } else if (fact[0] == 'P' || fact[0] == '-') {
        EXPECT_EQ(b.pileVisible(std::stoi(fact.substr(fact[0] == '-' ? 2 : 1))), fact[0] == 'P') << where;
    } else if (fact.back() == '*') {
        EXPECT_TRUE(b.isSelected(card(fact.substr(0, fact.size() - 1)))) << where;
    } else if (const size_t at = fact.find('@'); at != std::string::npos) {
        const size_t dot = fact.find('.', at);
        const Cell expected{static_cast<int8_t>(std::stoi(fact.substr(at + 1, dot - at - 1))),
                            static_cast<int8_t>(std::stoi(fact.substr(dot + 1))), fact.back() == '+'};
        EXPECT_EQ(b.cell(card(fact.substr(0, at))), expected) << where;
    } else {
        std::istringstream order(fact);
        std::string front, next;
        std::getline(order, front, '<');
        while (std::getline(order, next, '<')) {
            EXPECT_LT(zOf(b, front), zOf(b, next)) << where;
            front = next;
        }
    }
}

inline void runScripts(const std::vector<Script>& scripts) {
    for (const Script& s : scripts) {
        Board b = boardFrom(s.position);
        std::istringstream clicks(s.clicks);
        std::string name;
        Board before = b;
        Reaction last{};
        while (clicks >> name) {
            before = b;
            last = clickOn(b, name);
        }
        EXPECT_EQ(last, s.last) << s.what << "\n" << describe(before);
        if (!last.moved) {
            EXPECT_TRUE(Snapshot::of(b) == Snapshot::of(before)) << s.what << ": a click that moved nothing";
        }
        std::istringstream facts(s.after);
        for (std::string fact; facts >> fact;) expectAfter(b, fact, s.what);
    }
}

}  // namespace vorn::testing

namespace vorn {
// Lets a failing EXPECT_EQ print positions, cells and reactions readably.
inline void PrintTo(const Spot& s, std::ostream* os) { *os << "(" << s.left << ", " << s.top << ")"; }
inline void PrintTo(const Card& c, std::ostream* os) { *os << cardName(c); }
inline void PrintTo(const Cell& c, std::ostream* os) {
    *os << "row " << int(c.row) << ", column " << int(c.col) << (c.stacked ? ", stacked" : "");
}
inline void PrintTo(const Board& b, std::ostream* os) { *os << "\n" << describe(b); }
inline void PrintTo(const Reaction& r, std::ostream* os) {
    *os << "{message " << static_cast<int>(r.message) << ", won " << r.won << ", moved " << r.moved << "}";
}
}  // namespace vorn
