#include "store/codepage.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace vorn::store {
namespace {

std::string byte(int b) { return std::string(1, static_cast<char>(b)); }

// Characters whose byte is known by heart, spread over the whole upper half.
struct Known {
    const char* utf8;
    int byte;
};

constexpr Known kKnown[] = {
    {"Ђ", 0x80}, {"‚", 0x82}, {"…", 0x85}, {"€", 0x88}, {"‰", 0x89}, {"Џ", 0x8F},
    {"ђ", 0x90}, {"—", 0x97}, {"™", 0x99}, {"џ", 0x9F}, {"\u00A0", 0xA0}, {"Ў", 0xA1},
    {"Ґ", 0xA5}, {"§", 0xA7}, {"Ё", 0xA8}, {"Є", 0xAA}, {"«", 0xAB}, {"Ї", 0xAF},
    {"°", 0xB0}, {"І", 0xB2}, {"і", 0xB3}, {"ґ", 0xB4}, {"ё", 0xB8}, {"№", 0xB9},
    {"є", 0xBA}, {"»", 0xBB}, {"ї", 0xBF}, {"А", 0xC0}, {"Й", 0xC9}, {"Я", 0xDF},
    {"а", 0xE0}, {"п", 0xEF}, {"р", 0xF0}, {"я", 0xFF},
};

TEST(Codepage, KnownCharactersMapToTheirBytesAndBack) {
    for (const Known& k : kKnown) {
        SCOPED_TRACE(k.utf8);
        EXPECT_EQ(toCp1251(k.utf8), byte(k.byte));
        EXPECT_EQ(fromCp1251(byte(k.byte)), k.utf8);
    }
}

TEST(Codepage, EveryUpperByteRoundTrips) {
    for (int b = 0x80; b <= 0xFF; ++b) {
        if (b == 0x98) continue;
        SCOPED_TRACE(b);
        const std::string utf8 = fromCp1251(byte(b));
        EXPECT_GE(utf8.size(), 2u);  // never passed through as a raw byte
        EXPECT_EQ(toCp1251(utf8), byte(b));
    }
}

TEST(Codepage, UpperBytesAreAllDifferentCharacters) {
    std::set<std::string> seen;
    for (int b = 0x80; b <= 0xFF; ++b) seen.insert(fromCp1251(byte(b)));
    EXPECT_EQ(seen.size(), 128u);
}

TEST(Codepage, UnassignedByteBecomesReplacementCharacter) {
    EXPECT_EQ(fromCp1251("a\x98z"), "a\uFFFDz");
    EXPECT_EQ(toCp1251("\uFFFD"), "?");
}

TEST(Codepage, AsciiIsUnchangedBothWays) {
    std::string ascii;
    for (int c = 0; c < 0x80; ++c) ascii += static_cast<char>(c);
    EXPECT_EQ(toCp1251(ascii), ascii);
    EXPECT_EQ(fromCp1251(ascii), ascii);
}

TEST(Codepage, CyrillicWordsConvert) {
    EXPECT_EQ(toCp1251("Ёлка №5"), "\xA8\xEB\xEA\xE0 \xB9" "5");
    EXPECT_EQ(fromCp1251("\xD0\xE0\xF1\xEA\xEB\xE0\xE4"), "Расклад");
    EXPECT_EQ(toCp1251("Расклад"), "\xD0\xE0\xF1\xEA\xEB\xE0\xE4");
}

TEST(Codepage, UnmappableCharacterBecomesOneQuestionMarkEach) {
    EXPECT_EQ(toCp1251("日本"), "??");
    EXPECT_EQ(toCp1251("a🂡b"), "a?b");  // four-byte character
    EXPECT_EQ(toCp1251("é"), "?");       // Latin-1, not in this code page
    EXPECT_EQ(toCp1251("\u0080"), "?");  // a C1 control
}

TEST(Codepage, TellsWhichCharactersWouldBeLost) {
    using Lost = std::vector<std::string>;
    EXPECT_EQ(outsideCp1251("Café? Ёж №5"), Lost{"é"});  // a '?' typed is kept as it is
    EXPECT_EQ(outsideCp1251("日本日"), (Lost{"日", "本"}));
    EXPECT_EQ(outsideCp1251("a\xD0z"), Lost{"\xD0"});
    EXPECT_EQ(outsideCp1251("Расклад"), Lost{});
}

struct Malformed {
    const char* label;
    std::string input;
    std::string expected;
};

class CodepageMalformed : public ::testing::TestWithParam<Malformed> {};

TEST_P(CodepageMalformed, BecomesQuestionMarks) {
    EXPECT_EQ(toCp1251(GetParam().input), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Table, CodepageMalformed,
    ::testing::Values(Malformed{"StrayContinuation", "a\x80z", "a?z"},
                      Malformed{"TwoStrayContinuations", "\x80\xBF", "??"},
                      Malformed{"LeadAtTheEnd", "ab\xD0", "ab?"},
                      Malformed{"LeadBeforeAscii", "\xD0z", "?z"},
                      Malformed{"TruncatedThreeByte", "\xE2\x82z", "?z"},
                      Malformed{"TruncatedFourByteAtEnd", "\xF0\x9F\x82", "?"},
                      Malformed{"OverlongSlash", "\xC0\xAF", "??"},
                      Malformed{"OverlongThreeByte", "\xE0\x80\xAF", "???"},
                      Malformed{"Surrogate", "\xED\xA0\x80", "???"},
                      Malformed{"PastUnicode", "\xF4\x90\x80\x80", "????"},
                      Malformed{"InvalidLeads", "\xF5\xFE\xFF", "???"},
                      Malformed{"LeadThenCyrillic", "\xD0\xD0\x90", "?\xC0"}),
    [](const auto& info) { return std::string(info.param.label); });

}  // namespace
}  // namespace vorn::store
