// Card names.
#include "notation.h"

#include <array>

namespace vorn {

namespace {

constexpr std::string_view kSuitLetters = "HSDC";
constexpr std::array<std::string_view, 14> kRankNames{"", "A", "2", "3", "4", "5", "6", "7",
                                                      "8", "9", "10", "J", "Q", "K"};

}  // namespace

std::string cardName(Card c) {
    if (!isCard(c.suit, c.rank)) return "??";
    return std::string(kRankNames[static_cast<size_t>(c.rank)]) + kSuitLetters[static_cast<size_t>(c.suit - 1)];
}

std::optional<Card> parseCard(std::string_view name) {
    for (int16_t s = 1; s <= kSuits; ++s)
        for (int16_t r = 1; r <= kRanks; ++r)
            if (cardName({s, r}) == name) return Card{s, r};
    return std::nullopt;
}

}  // namespace vorn
