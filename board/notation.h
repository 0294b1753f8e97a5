// Cards written as text, for tools, messages and tests.
//
// Cards are written as rank then suit: ranks A 2 3 ... 10 J Q K, suits H S D C
// (hearts, spades, diamonds, clubs = suits 1..4), e.g. "7S", "10D", "QH".
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "board.h"

namespace vorn {

// {2, 7} -> "7S"; "??" for a reference that names no card.
std::string cardName(Card card);
// "7S" -> {2, 7}; nothing for a text that names no card.
std::optional<Card> parseCard(std::string_view name);

}  // namespace vorn
