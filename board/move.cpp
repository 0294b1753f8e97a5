// Moves written and read.
#include "move.h"

#include <charconv>

#include "notation.h"

namespace vorn {

std::string moveText(const Move& move) {
    std::string text = cardName(move.card) + '>';
    if (move.target.kind == Hit::Kind::Pile) return text + 'P' + std::to_string(move.target.pile);
    return text + cardName(move.target.card);
}

std::optional<Move> parseMove(std::string_view text) {
    const size_t arrow = text.find('>');
    if (arrow == std::string_view::npos) return std::nullopt;
    const std::optional<Card> card = parseCard(text.substr(0, arrow));
    const std::string_view target = text.substr(arrow + 1);
    if (!card) return std::nullopt;
    if (target.size() >= 2 && target.front() == 'P') {
        int pile = 0;
        const auto [end, error] = std::from_chars(target.data() + 1, target.data() + target.size(), pile);
        if (error != std::errc{} || end != target.data() + target.size() || pile < 1 || pile > kPileCount)
            return std::nullopt;
        return Move{*card, {Hit::Kind::Pile, {}, pile}};
    }
    const std::optional<Card> onto = parseCard(target);
    if (!onto) return std::nullopt;
    return Move{*card, {Hit::Kind::Card, *onto, 0}};
}

std::string lineText(const std::vector<Move>& moves) {
    std::string text;
    for (const Move& move : moves) {
        if (!text.empty()) text += ' ';
        text += moveText(move);
    }
    return text;
}

std::optional<std::vector<Move>> parseLine(std::string_view text) {
    std::vector<Move> moves;
    while (!text.empty()) {
        const size_t space = text.find(' ');
        const std::string_view word = text.substr(0, space);
        text = space == std::string_view::npos ? std::string_view{} : text.substr(space + 1);
        if (word.empty()) continue;
        const std::optional<Move> move = parseMove(word);
        if (!move) return std::nullopt;
        moves.push_back(*move);
    }
    return moves;
}

}  // namespace vorn
