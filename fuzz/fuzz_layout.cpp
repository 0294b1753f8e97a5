// The layout-string reader: whatever line load.txt hands back, laying it out
// either refuses and leaves the board exactly as it was, or puts every card of
// rank 2..13 on the grid spot of the place number it read (or at (0, 0) for a
// number that names no place), leaving the aces and the selection alone; and
// clicks on the board it gives never fail.
#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>

#include "board/board.h"
#include "fuzz_check.h"

namespace {

// A board in the middle of a game: dealt from a fixed seed, with the outermost
// card of row 1 selected, so a load has borders and a selection to keep.
vorn::Board playedBoard() {
    vorn::Board b = vorn::Board::loaded();
    vorn::SeededRandom random(20240601);
    b.rasklad(random);
    for (int i = 1; i <= vorn::kPlaces; ++i) {
        const int s = vorn::layoutSuit(i), r = vorn::layoutRank(i);
        if (b.mesta(s, r) == 1) b.clickCard(s, r);
    }
    FUZZ_EXPECT(b.vybor == 2);
    return b;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const vorn::Board before = playedBoard();
    const std::string_view line(reinterpret_cast<const char*>(data), size);

    std::array<int16_t, 49> places{};
    const vorn::LayoutProblem read = vorn::readLayout(line, places);

    vorn::Board b = before;
    const vorn::LayoutProblem shown = b.showLayout(line);

    if (line.empty() || shown != vorn::LayoutProblem::None) {
        if (!line.empty()) FUZZ_EXPECT(shown == read);
        // Refused: nothing at all may change.
        FUZZ_EXPECT(b == before);
        return 0;
    }

    FUZZ_EXPECT(read == vorn::LayoutProblem::None);
    FUZZ_EXPECT(b.raskl == line);
    for (int i = 1; i <= vorn::kPlaces; ++i) {
        const int s = vorn::layoutSuit(i), r = vorn::layoutRank(i);
        const int16_t place = places[static_cast<size_t>(i)];
        FUZZ_EXPECT(b.mesta(s, r) == place);
        const vorn::Spot spot{vorn::zleft1(place).value_or(0), vorn::ztop1(place).value_or(0)};
        FUZZ_EXPECT(b.spot({static_cast<int16_t>(s), static_cast<int16_t>(r)}) == spot);
        FUZZ_EXPECT(spot == vorn::Spot{} || (vorn::isRowTop(spot.top) && spot.left != vorn::kMiddleLeft));
    }
    // Only positions, the layout and the layout string may differ from before.
    vorn::Board expected = before;
    expected.kartleft = b.kartleft;
    expected.karttop = b.karttop;
    expected.mesta = b.mesta;
    expected.raskl = b.raskl;
    FUZZ_EXPECT(b == expected);

    // Play on. A layout like this one can put cards off the grid or two on one
    // place; the rules must still never fail, and the aces never move.
    uint64_t state = std::hash<std::string_view>{}(line);
    for (int click = 0; click < 16; ++click) {
        state = state * 6364136223846793005u + 1442695040888963407u;
        const auto pick = static_cast<int>(state >> 33);
        if (pick % 8 == 0)
            b.clickPile(1 + pick / 8 % vorn::kPileCount);
        else
            b.clickCard(1 + pick / 8 % vorn::kSuits, 1 + pick / 32 % vorn::kRanks);
    }
    for (int s = 1; s <= vorn::kSuits; ++s)
        FUZZ_EXPECT((b.spot({static_cast<int16_t>(s), 1}) == vorn::Spot{vorn::kMiddleLeft, vorn::aceTop(s)}));
    return 0;
}
