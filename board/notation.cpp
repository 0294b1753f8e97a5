// Positions written as text, and the board printed as text.
#include "notation.h"

#include <algorithm>
#include <map>
#include <stdexcept>
#include <vector>

namespace vorn {

namespace {

constexpr std::string_view kSuitLetters = "HSDC";
constexpr std::array<std::string_view, 14> kRankNames{"", "A", "2", "3", "4", "5", "6", "7",
                                                      "8", "9", "10", "J", "Q", "K"};

std::string entryText(const Placed& p) {
    return "{\"" + std::string(p.card) + "\", " + std::to_string(p.left) + ", " +
           (p.onStack || p.badStackMark ? std::string("\"+\"") : std::to_string(p.top)) + "}";
}

}  // namespace

std::optional<Card> parseCard(std::string_view name) {
    if (name.size() < 2) return std::nullopt;
    const size_t suit = kSuitLetters.find(name.back());
    if (suit == std::string_view::npos) return std::nullopt;
    const std::string_view rank = name.substr(0, name.size() - 1);
    for (size_t r = 1; r < kRankNames.size(); ++r)
        if (kRankNames[r] == rank) return Card{static_cast<int16_t>(suit + 1), static_cast<int16_t>(r)};
    return std::nullopt;
}

std::string cardName(Card c) {
    if (!isCard(c.suit, c.rank)) return "??";
    return std::string(kRankNames[static_cast<size_t>(c.rank)]) + kSuitLetters[static_cast<size_t>(c.suit - 1)];
}

Board boardFrom(std::initializer_list<Placed> cards) { return boardFrom(std::vector<Placed>(cards)); }

Board boardFrom(const std::vector<Placed>& cards) {
    Board b = Board::loaded();
    b.rezhim = 2;
    // Every card home first: aces in place, the rest on their foundations.
    b.zcounter = 0;
    for (int s = 1; s <= kSuits; ++s)
        for (int r = 1; r <= kRanks; ++r) {
            const Spot home = spotOf(r == 1 ? foundationOf(s).base() : foundationOf(s));
            b.kartleft(s, r) = home.left;
            b.karttop(s, r) = home.top;
            b.zorder(s, r) = ++b.zcounter;
        }
    Table<uint8_t> listed{};
    std::map<int, int> lastTopAtLeft;  // Left -> Top of the card listed last there
    for (const Placed& p : cards) {
        const std::optional<Card> c = parseCard(p.card);
        if (!c) throw std::invalid_argument("boardFrom: no such card in " + entryText(p));
        if (p.badStackMark) throw std::invalid_argument("boardFrom: a stacked entry needs \"+\" in " + entryText(p));
        if (listed(c->suit, c->rank)) throw std::invalid_argument("boardFrom: listed twice: " + entryText(p));
        listed(c->suit, c->rank) = 1;
        int top = p.top;
        if (p.onStack) {
            const auto below = lastTopAtLeft.find(p.left);
            const Cell under = below == lastTopAtLeft.end() ? Cell{} : cellOf(p.left, below->second);
            if (!under.onGrid()) throw std::invalid_argument("boardFrom: nothing to stack onto in " + entryText(p));
            Cell onIt = under;
            onIt.stacked = true;
            top = spotOf(onIt).top;
        }
        b.kartleft(c->suit, c->rank) = static_cast<int16_t>(p.left);
        b.karttop(c->suit, c->rank) = static_cast<int16_t>(top);
        b.zorder(c->suit, c->rank) = ++b.zcounter;
        lastTopAtLeft[p.left] = top;
    }
    return b;
}

std::string describe(const Board& b) {
    struct Entry {
        Card card;
        uint32_t z;
    };
    // (row, column) -> base cards and stacked cards
    std::map<std::pair<int, int>, std::pair<std::vector<Entry>, std::vector<Entry>>> cells;
    std::vector<Entry> offGrid;
    for (int s = 1; s <= kSuits; ++s)
        for (int r = 1; r <= kRanks; ++r) {
            const Entry e{Card{static_cast<int16_t>(s), static_cast<int16_t>(r)}, b.zorder(s, r)};
            const Cell at = b.cell(e.card);
            if (!at.onGrid()) {
                offGrid.push_back(e);
                continue;
            }
            auto& cell = cells[{at.row, at.col}];
            (at.stacked ? cell.second : cell.first).push_back(e);
        }
    auto names = [&](std::vector<Entry> v, const char* sep) {
        std::sort(v.begin(), v.end(), [](const Entry& x, const Entry& y) { return x.z < y.z; });
        std::string out;
        for (size_t i = 0; i < v.size(); ++i) {
            if (i) out += sep;
            out += cardName(v[i].card);
            if (b.isSelected(v[i].card)) out += '*';
        }
        return out;
    };
    std::string text;
    for (int row = 1; row <= kRowCount; ++row) {
        text += "row " + std::to_string(row) + " (" + std::to_string(kRowTops[static_cast<size_t>(row - 1)]) + "):";
        bool first = true;
        for (int col = 1; col <= kColumnCount; ++col) {
            const auto it = cells.find({row, col});
            if (it == cells.end()) continue;
            text += first ? " c" : " | c";
            first = false;
            text += std::to_string(col) + " " + names(it->second.first, "/");
            if (!it->second.second.empty()) text += "+" + names(it->second.second, "+");
        }
        text += '\n';
    }
    if (!offGrid.empty()) {
        text += "off the grid:";
        for (const Entry& e : offGrid)
            text += " " + cardName(e.card) + "@(" + std::to_string(b.kartleft(e.card.suit, e.card.rank)) + "," +
                    std::to_string(b.karttop(e.card.suit, e.card.rank)) + ")";
        text += '\n';
    }
    text += "rezhim " + std::to_string(b.rezhim) + ", vybor " + std::to_string(b.vybor) + ", karta1 " +
            cardName(b.karta1) + "\n";
    return text;
}

}  // namespace vorn
