// Place numbers and fixed positions of the card table.
#include "geometry.h"

namespace vorn {

std::optional<int16_t> ztop1(int nomkart) {
    if (nomkart >= 1 && nomkart <= 10) return int16_t{120};
    if (nomkart >= 11 && nomkart <= 20) return int16_t{1680};
    if (nomkart >= 21 && nomkart <= 30) return int16_t{3240};
    if (nomkart >= 31 && nomkart <= 40) return int16_t{4800};
    if (nomkart >= 41 && nomkart <= 48) return int16_t{6360};
    return std::nullopt;
}

std::optional<int16_t> zleft1(int nomkart) {
    if (nomkart < 1 || nomkart > kPlaces) return std::nullopt;
    if (nomkart <= 40) {
        // Rows 1..4: ten places each, the middle column left out.
        const int k = (nomkart - 1) % 10 + 1;
        return kColumnLefts[static_cast<size_t>(k <= 5 ? k - 1 : k)];
    }
    // Row 5: columns 2..5 and 7..10.
    const int k = nomkart - 40;
    return kColumnLefts[static_cast<size_t>(k <= 4 ? k : k + 1)];
}

namespace {

// Place number a card of rank 2..13 has in the ordered deck.
int startPlace(int suit, int rank) {
    if (rank <= 11) return (suit - 1) * 10 + (rank - 1);
    if (rank == 12) return 40 + suit;
    return 44 + suit;
}

}  // namespace

Spot startSpot(int suit, int rank) {
    if (suit < 1 || suit > kSuits || rank < 1 || rank > kRanks) return {};
    if (rank == 1) return {kMiddleLeft, aceTop(suit)};
    const int place = startPlace(suit, rank);
    return {zleft1(place).value_or(0), ztop1(place).value_or(0)};
}

std::array<FramePlace, 38> framePlaces() {
    std::array<FramePlace, 38> frames{};
    size_t n = 0;
    auto add = [&](int row, int k) {
        const int place = (row - 1) * 10 + k;
        frames[n++] = {row, k, zleft1(place).value_or(0), ztop1(place).value_or(0)};
    };
    for (int row = 1; row <= 4; ++row)
        for (int k : {1, 2, 3, 4, 7, 8, 9, 10}) add(row, k);
    for (int k : {1, 2, 3, 6, 7, 8}) add(5, k);
    return frames;
}

}  // namespace vorn
