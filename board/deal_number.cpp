// Deal numbers: reading them, drawing them, dealing them.
#include "deal_number.h"

#include <algorithm>
#include <cmath>

namespace vorn {

std::optional<DealNumber> parseDealNumber(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return std::nullopt;
    text.remove_prefix(first);
    text.remove_suffix(text.size() - (text.find_last_not_of(' ') + 1));
    if (text.empty() || text.size() > 10) return std::nullopt;
    uint64_t value = 0;
    for (const char c : text) {
        if (c < '0' || c > '9') return std::nullopt;
        value = value * 10 + static_cast<uint64_t>(c - '0');
    }
    if (value < kFirstDealNumber || value > kLastDealNumber) return std::nullopt;
    return static_cast<DealNumber>(value);
}

void dealNumbered(Board& board, DealNumber number) {
    SeededRandom numbers(number);
    board.rasklad(numbers);
}

DealNumber drawDealNumber(Random& chance) {
    chance.reseed();
    // u in [0, 1) spread over the numbers 1 .. kLastDealNumber.
    const double u = chance.next();
    const auto offset = static_cast<uint64_t>(std::floor(u * static_cast<double>(kLastDealNumber)));
    return static_cast<DealNumber>(std::min<uint64_t>(offset, kLastDealNumber - 1) + 1);
}

}  // namespace vorn
