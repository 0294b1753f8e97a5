// One move of the game and its written form.
//
// A move is what the player does with two clicks: the first picks up a free
// card, the second plays it onto a card of its suit or into a bare pile place.
// Written, a move is the card, '>' and where it went: "7S>8S", "2H>AH",
// "10C>P9" (pile places are P1 to P11, for Image1 to Image11). A line of
// moves is the moves joined by spaces; the game record keeps each game's line
// in this form, so that it can be played again.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "board.h"

namespace vorn {

struct Move {
    Card card{};  // the card the first click picks up
    Hit target{};  // what the second click plays it onto: a card or a pile place
    Hit select() const { return {Hit::Kind::Card, card, 0}; }
    friend bool operator==(const Move&, const Move&) = default;
};

std::string moveText(const Move& move);
// Reads what moveText writes; nothing for anything else.
std::optional<Move> parseMove(std::string_view text);

std::string lineText(const std::vector<Move>& moves);
// Reads a line of moves; nothing when any of them cannot be read.
std::optional<std::vector<Move>> parseLine(std::string_view text);

}  // namespace vorn
