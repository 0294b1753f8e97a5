// Positions written as text, for the tests: card names read back, and a board
// built from a list of cards at their places.
//
//   auto b = boardFrom({{"7S", 120, 1680}, {"8S", 9720, 1680}, {"6S", 9720, "+"}});
//
// builds a full 52-card position:
//   - every listed card lies at the Left and Top given; "+" puts it on the cell of
//     the card listed last at that Left (same Left, that card's row top + 240);
//   - listed cards are brought to the front in listing order;
//   - an unlisted ace lies at its fixed place in the middle column;
//   - an unlisted card of rank 2..13 is already home: it lies on its suit's
//     foundation (Left 4920, stacked Top of the ace's row), higher ranks in front.
//     So a position that lists none of the kings is already won.
// The board is dealt and idle: rezhim 2, vybor 1, no borders, mesta all 0.
#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "board/board.h"
#include "board/notation.h"

namespace vorn {

struct Placed {
    Placed(std::string_view card, int left, int top) : card(card), left(left), top(top) {}
    // {"6S", 9720, "+"}: stacked onto the cell of the last card listed at that Left.
    Placed(std::string_view card, int left, std::string_view stacked) : card(card), left(left), top(0), onStack(true) {
        if (stacked != "+") throw std::invalid_argument("boardFrom: a stacked entry needs \"+\": " + std::string(card));
    }

    std::string_view card;
    int left;
    int top;
    bool onStack = false;
};

// Throws std::invalid_argument, naming the card, for a card name that does not
// parse, a card listed twice, or a "+" with no card before it at that Left.
Board boardFrom(const std::vector<Placed>& cards);

// "7S" -> {2, 7}, as cardName writes it; no card for anything that is not a card name.
inline Card card(std::string_view name) { return parseCard(name).value_or(Card{}); }

}  // namespace vorn
