// Deal numbers. Every New game deal is made from a number from 1 to
// 4,294,967,295: the number seeds the deal's source of chance in place of the
// clock, and the deal routine draws the places from it as always. The same
// number gives the same deal on every machine and every build, so players can
// share a deal by its number.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "board.h"
#include "random.h"

namespace vorn {

using DealNumber = uint32_t;
inline constexpr DealNumber kFirstDealNumber = 1;
inline constexpr DealNumber kLastDealNumber = 4'294'967'295u;

// Reads a deal number as a player types it: decimal digits only, spaces around
// them allowed, from 1 to kLastDealNumber. Anything else (a sign, a letter, 0,
// too large, nothing) is not a deal number.
std::optional<DealNumber> parseDealNumber(std::string_view text);

// Lays out the deal of `number` on the board, as New game deals: rasklad with
// the numbers that `number` seeds.
void dealNumbered(Board& board, DealNumber number);

// A deal number drawn at random for New game; `chance` is reseeded first, as
// every deal reseeds its source.
DealNumber drawDealNumber(Random& chance);

// Where New game's deals come from: which number it deals, and how a number
// becomes a layout. The game's own source draws the numbers from the clock and
// deals them with dealNumbered; a test may lay out layouts of its own under
// the numbers it hands out.
class DealSource {
public:
    virtual ~DealSource() = default;
    // The number of the next New game.
    virtual DealNumber draw() = 0;
    // Lays out deal `number` on the board; the same number always gives the
    // same layout.
    virtual void layOut(Board& board, DealNumber number) { dealNumbered(board, number); }
};

class ClockDeals final : public DealSource {
public:
    DealNumber draw() override { return drawDealNumber(clock_); }

private:
    ClockRandom clock_;
};

}  // namespace vorn
