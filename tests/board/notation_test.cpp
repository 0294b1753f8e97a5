// What a click at a point reaches, and clicks at what is no card or place.
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
