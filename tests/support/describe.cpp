// The board as text.
#include "describe.h"

#include <algorithm>
#include <map>
#include <vector>

#include "board/notation.h"

namespace vorn {

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
