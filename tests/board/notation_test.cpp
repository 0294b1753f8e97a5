// What a click at a point reaches, and clicks at what is no card or place.
#include "board/move.h"
#include "support/fixtures.h"

namespace vorn {
namespace {

using namespace vorn::testing;

TEST(HitAt, TheFrontMostCardTakesTheClickElseABarePileElseNothing) {
    const Board b = boardFrom({{"9C", 1080, 120}, {"8C", 1080, "+"}, {"7D", 2040, 120}});
    const Hit nine{Hit::Kind::Card, card("9C"), 0};
    const Hit eight{Hit::Kind::Card, card("8C"), 0};
    const std::tuple<int, int, Hit> cases[] = {
        {1080, 120, nine},           {1080 + 749, 120 + 239, nine},  {1080, 360, eight},       {1080 + 749, 360 + 1124, eight},
        {1080 + 750, 360, Hit{}},    {1080, 360 + 1125, Hit{}},      {1079, 500, Hit{}},       {3960 + 10, 130, {Hit::Kind::Pile, {}, 1}},
        {5880 + 749, 6360 + 1124, {Hit::Kind::Pile, {}, 11}},        {130, 6370, Hit{}},       {-5, -5, Hit{}},
    };
    for (const auto& [x, y, hit] : cases) EXPECT_EQ(b.hitAt(x, y), hit) << x << ", " << y;
    EXPECT_EQ(b.hitAt(1080 + 10, 360 + 10, card("8C")), nine) << "a dragged card is looked through";
    Board clicked = b;
    EXPECT_EQ(clicked.click(b.hitAt(1080 + 5, 360 + 5)), kNone);
    EXPECT_TRUE(clicked.isSelected(card("8C")));
    EXPECT_EQ(clicked.click(Hit{}), kNone);
    EXPECT_EQ(clicked.click(b.hitAt(3960 + 5, 120 + 5)), kMoved);
}

TEST(BadInput, IsIgnoredRatherThanTrusted) {
    Board b = reverseDeal();
    const Board before = b;
    for (auto [s, r] : {std::pair{0, 5}, {5, 5}, {1, 0}, {1, 14}}) EXPECT_EQ(b.clickCard(s, r), kNone);
    for (int image : {0, 12}) EXPECT_EQ(b.clickPile(image), kNone);
    EXPECT_EQ(b, before);
    Board blank;  // never loaded: the selected card names no card
    blank.vybor = 2;
    EXPECT_EQ(blank.clickPile(1), kNone);
}

}  // namespace
}  // namespace vorn

namespace vorn {
namespace {

// The game record keeps each game's moves in this form and plays them back.
TEST(MoveText, WrittenAndReadBack) {
    const Move moves[] = {{card("7S"), {Hit::Kind::Card, card("8S"), 0}},
                          {card("10C"), {Hit::Kind::Pile, {}, 9}},
                          {card("2H"), {Hit::Kind::Card, card("AH"), 0}},
                          {card("KD"), {Hit::Kind::Pile, {}, 11}}};
    const std::vector<Move> line(std::begin(moves), std::end(moves));
    EXPECT_EQ(lineText(line), "7S>8S 10C>P9 2H>AH KD>P11");
    EXPECT_EQ(parseLine(lineText(line)), line);
    EXPECT_EQ(parseLine(""), std::vector<Move>{});
    for (const char* bad : {"7S8S", "7S>", ">8S", "XX>8S", "7S>P0", "7S>P12", "7S>P1x", "7S>P", "7S>8X"})
        EXPECT_FALSE(parseMove(bad)) << bad;
    EXPECT_FALSE(parseLine("7S>8S 7S>P12")) << "one bad move spoils the line";
}

}  // namespace
}  // namespace vorn
