// Laying out a stored layout string again: the 48 place numbers of the cards of
// rank 2..13 in layout order, each " n", joined by ",". Anything after the 48th
// number and a further comma (a stored name, say) is ignored.
#include <limits>

#include "board.h"

namespace vorn {

namespace {

constexpr int kInt16Max = std::numeric_limits<int16_t>::max();

// What reading a layout string finds: the commas (zap) and the numbers (chisla).
struct Reading {
    LayoutProblem problem = LayoutProblem::None;
    std::array<int16_t, 49> zap{};     // [1..47] comma positions (from 1), [48] the length
    std::array<int16_t, 49> chisla{};  // [1..48] the place numbers
};

// The number a text gives: leading spaces skipped, then the decimal digits that
// follow; 0 when there are none. Returns -1 when it does not fit in 16 bits.
int numberOf(std::string_view text) {
    size_t i = 0;
    while (i < text.size() && text[i] == ' ') ++i;
    int value = 0;
    for (; i < text.size() && text[i] >= '0' && text[i] <= '9'; ++i) {
        value = value * 10 + (text[i] - '0');
        if (value > kInt16Max) return -1;
    }
    return value;
}

Reading read(std::string_view layout) {
    Reading out;
    if (layout.size() > static_cast<size_t>(kInt16Max)) {
        out.problem = LayoutProblem::NumberTooLarge;  // its comma positions do not fit in 16 bits
        return out;
    }
    // Comma search: each from just after the one before.
    size_t p = 0;
    for (int k = 1; k <= 47; ++k) {
        const size_t comma = layout.find(',', p);
        if (comma == std::string_view::npos) {
            out.problem = LayoutProblem::TooFewCommas;
            return out;
        }
        out.zap[static_cast<size_t>(k)] = static_cast<int16_t>(comma + 1);
        p = comma + 1;
    }
    // The 48th field always runs to the end of the string.
    out.zap[48] = static_cast<int16_t>(layout.size());
    for (int k = 1; k <= 48; ++k) {
        const size_t from = k == 1 ? 0 : static_cast<size_t>(out.zap[static_cast<size_t>(k - 1)]);
        const size_t to = k == 48 ? layout.size() : static_cast<size_t>(out.zap[static_cast<size_t>(k)] - 1);
        const int number = numberOf(layout.substr(from, to - from));
        if (number < 0) {
            out.problem = LayoutProblem::NumberTooLarge;
            return out;
        }
        out.chisla[static_cast<size_t>(k)] = static_cast<int16_t>(number);
    }
    return out;
}

}  // namespace

LayoutProblem readLayout(std::string_view layout, std::array<int16_t, 49>& places) {
    const Reading reading = read(layout);
    if (reading.problem == LayoutProblem::None) places = reading.chisla;
    return reading.problem;
}

LayoutProblem Board::vizraskl() {
    const Reading reading = read(raskl);
    if (reading.problem != LayoutProblem::None) return reading.problem;
    for (int i = 1; i <= kPlaces; ++i) mesta(layoutSuit(i), layoutRank(i)) = reading.chisla[static_cast<size_t>(i)];
    placeFromMesta();
    return LayoutProblem::None;
}

LayoutProblem Board::showLayout(std::string_view line) {
    if (line.empty()) return LayoutProblem::None;
    std::array<int16_t, 49> places{};
    const LayoutProblem problem = readLayout(line, places);
    if (problem != LayoutProblem::None) return problem;
    raskl = std::string(line);
    return vizraskl();
}

LayoutProblem Board::continueLayout(std::string_view line) {
    const LayoutProblem problem = line.empty() ? LayoutProblem::TooFewCommas : showLayout(line);
    if (problem == LayoutProblem::None) rezhim = 2;
    return problem;
}

}  // namespace vorn
