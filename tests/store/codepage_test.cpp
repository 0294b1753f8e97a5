// Windows-1251 in the files, UTF-8 inside the game.
#include "store/codepage.h"

#include <set>

#include "folder.h"

namespace vorn::store {
namespace {

std::string byte(int b) { return std::string(1, static_cast<char>(b)); }

TEST(Codepage, EveryByteIsACharacterOfItsOwnAndComesBack) {
    const std::pair<const char*, int> known[] = {
        {"Ђ", 0x80}, {"‚", 0x82}, {"€", 0x88}, {"Џ", 0x8F}, {"ђ", 0x90}, {"—", 0x97}, {"™", 0x99}, {"\u00A0", 0xA0},
        {"Ґ", 0xA5}, {"Ё", 0xA8}, {"Ї", 0xAF}, {"°", 0xB0}, {"ё", 0xB8}, {"№", 0xB9}, {"ї", 0xBF}, {"А", 0xC0},
        {"Я", 0xDF}, {"а", 0xE0}, {"я", 0xFF},
    };
    for (const auto& [utf8, b] : known) {
        EXPECT_EQ(toCp1251(utf8), byte(b)) << utf8;
        EXPECT_EQ(fromCp1251(byte(b)), utf8) << b;
    }
    std::set<std::string> seen;
    for (int b = 0; b <= 0xFF; ++b) {
        const std::string utf8 = fromCp1251(byte(b));
        seen.insert(utf8);
        if (b != 0x98) {
            EXPECT_EQ(toCp1251(utf8), byte(b)) << b;
        }
    }
    EXPECT_EQ(seen.size(), 256u);
    EXPECT_EQ(fromCp1251("a\x98z"), "a\uFFFDz");  // the one byte without a character
}

TEST(Codepage, WhatItCannotHoldBecomesAQuestionMarkAndIsNamedFirst) {
    const std::pair<std::string, std::string> cases[] = {
        {"日本", "??"},           {"a🂡b", "a?b"},          {"é", "?"},         {"\u0080", "?"},
        {"a\x80z", "a?z"},        {"ab\xD0", "ab?"},        {"\xE2\x82z", "?z"}, {"\xF0\x9F\x82", "?"},
        {"\xC0\xAF", "??"},       {"\xE0\x80\xAF", "???"},  {"\xED\xA0\x80", "???"}, {"\xF4\x90\x80\x80", "????"},
        {"\xF5\xFE\xFF", "???"},  {"\xD0\xD0\x90", "?\xC0"}, {"\xDF\xBFz", "?z"},
    };
    for (const auto& [utf8, bytes] : cases) EXPECT_EQ(toCp1251(utf8), bytes) << utf8;
    using Lost = std::vector<std::string>;
    EXPECT_EQ(outsideCp1251("Café? Ёж №5"), Lost{"é"});  // a '?' typed is kept as it is
    EXPECT_EQ(outsideCp1251("日本日"), (Lost{"日", "本"}));
    EXPECT_EQ(outsideCp1251("a\xD0z"), Lost{"\xD0"});
    EXPECT_EQ(outsideCp1251("Расклад"), Lost{});
}

}  // namespace
}  // namespace vorn::store
