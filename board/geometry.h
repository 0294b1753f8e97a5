// The card table measured as the window draws it: in twips, 15 to the pixel.
// Every position names the top-left corner of a card. The rules do not read
// twips; they ask grid.h which cell a card lies in.
#pragma once

#include <array>
#include <cstdint>
#include <optional>

namespace vorn {

inline constexpr int kSuits = 4;    // 1 hearts, 2 spades, 3 diamonds, 4 clubs
inline constexpr int kRanks = 13;   // 1 ace ... 11 jack, 12 queen, 13 king
inline constexpr int kPlaces = 48;  // numbered places a deal fills
inline constexpr int kPileCount = 11;

inline constexpr int kTwipsPerPixel = 15;
inline constexpr int16_t kCardWidth = 750;    // 50 px
inline constexpr int16_t kCardHeight = 1125;  // 75 px
inline constexpr int16_t kBoardWidth = 10605;   // 707 px
inline constexpr int16_t kBoardHeight = 7890;   // 526 px

inline constexpr int16_t kStackOffset = 240;  // a card lying on another sits this much lower
inline constexpr int16_t kMiddleLeft = 4920;    // Left of the aces' column
inline constexpr int16_t kBottomRowTop = 6360;  // Top of row 5

inline constexpr std::array<int16_t, 5> kRowTops{120, 1680, 3240, 4800, 6360};
inline constexpr std::array<int16_t, 5> kStackedTops{360, 1920, 3480, 5040, 6600};
inline constexpr std::array<int16_t, 11> kColumnLefts{120,  1080, 2040, 3000, 3960, 4920,
                                                      5880, 6840, 7800, 8760, 9720};

// Does (suit, rank) name one of the 52 cards?
constexpr bool isCard(int suit, int rank) {
    return suit >= 1 && suit <= kSuits && rank >= 1 && rank <= kRanks;
}

constexpr bool isRowTop(int top) {
    for (int t : kRowTops)
        if (t == top) return true;
    return false;
}

// Top of the ace of a suit, the base of that suit's foundation.
constexpr int16_t aceTop(int suit) { return kRowTops[static_cast<size_t>(suit - 1)]; }

// Place number (1..48) to Top / Left; nullopt for anything else (callers turn it into 0).
std::optional<int16_t> ztop1(int nomkart);
std::optional<int16_t> zleft1(int nomkart);

// Where a card lies before anything is dealt: an ordered deck.
struct Spot {
    int16_t left = 0;
    int16_t top = 0;
    friend bool operator==(const Spot&, const Spot&) = default;
};
Spot startSpot(int suit, int rank);

// The eleven pile places Image1..Image11: Left, Top of the base card, and what they take.
struct PilePlace {
    int16_t left;
    int16_t top;
    bool rowFiveOnly;  // Image10, Image11: only a card lying in row 5
    bool singleOnly;   // Image9: the selected card alone, never its cell
};
inline constexpr std::array<PilePlace, kPileCount> kPilePlaces{{
    {3960, 120, false, false},   // Image1, place 5
    {5880, 120, false, false},   // Image2, place 6
    {3960, 1680, false, false},  // Image3, place 15
    {5880, 1680, false, false},  // Image4, place 16
    {3960, 3240, false, false},  // Image5, place 25
    {5880, 3240, false, false},  // Image6, place 26
    {3960, 4800, false, false},  // Image7, place 35
    {5880, 4800, false, false},  // Image8, place 36
    {4920, 6360, false, true},   // Image9, below the aces
    {3960, 6360, true, false},   // Image10, place 44
    {5880, 6360, true, false},   // Image11, place 45
}};
inline const PilePlace& pilePlace(int image) { return kPilePlaces[static_cast<size_t>(image - 1)]; }

// The 38 placeholder frames r<row>_<k>: every numbered place not marked by a pile image.
struct FramePlace {
    int row;
    int k;
    int16_t left;
    int16_t top;
};
std::array<FramePlace, 38> framePlaces();

// Layout order: suit 1 ranks 2..13, then suits 2, 3, 4. i runs 1..48.
constexpr int layoutSuit(int i) { return (i - 1) / 12 + 1; }
constexpr int layoutRank(int i) { return (i - 1) % 12 + 2; }

}  // namespace vorn
