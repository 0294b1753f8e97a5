#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "store/layout_store.h"

namespace vorn::store {
namespace {

using Lines = std::vector<std::string>;

struct SplitCase {
    const char* label;
    std::string bytes;
    Lines lines;
};

class SplitLines : public ::testing::TestWithParam<SplitCase> {};

TEST_P(SplitLines, FindsTheLines) { EXPECT_EQ(splitLines(GetParam().bytes), GetParam().lines); }

INSTANTIATE_TEST_SUITE_P(
    Table, SplitLines,
    ::testing::Values(SplitCase{"CrLf", "a\r\nbb\r\n", {"a", "bb"}},
                      SplitCase{"Lf", "a\nbb\n", {"a", "bb"}},
                      SplitCase{"LoneCr", "a\rbb\r", {"a", "bb"}},
                      SplitCase{"Mixed", "a\r\nb\nc\rd", {"a", "b", "c", "d"}},
                      SplitCase{"NoFinalLineEnd", "a\r\nlast", {"a", "last"}},
                      SplitCase{"OneLineNoLineEnd", "only", {"only"}},
                      SplitCase{"Empty", "", {}},
                      SplitCase{"OneLineEnd", "\r\n", {""}},
                      SplitCase{"OnlyLineEnds", "\r\n\n\r", {"", "", ""}},
                      SplitCase{"LfCrIsTwoLineEnds", "a\n\rb", {"a", "", "b"}},
                      SplitCase{"CrCrLf", "a\r\r\nb", {"a", "", "b"}},
                      SplitCase{"BlankLinesKept", "a\r\n\r\nb\r\n", {"a", "", "b"}},
                      SplitCase{"SpacesKept", "  a  \r\n", {"  a  "}},
                      SplitCase{"NulInsideALine", std::string("a\0b\r\n", 5), {std::string("a\0b", 3)}}),
    [](const auto& info) { return std::string(info.param.label); });

TEST(SplitLines, HugeLineIsOneLine) {
    const std::string huge(1 << 20, ',');
    const Lines lines = splitLines(huge + "\r\nnext");
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0], huge);
    EXPECT_EQ(lines[1], "next");
}

// A line break always becomes a space; other control characters only in a name.
struct OneLineCase {
    const char* label;
    std::string text;
    std::string line;  // oneLine
    std::string name;  // plainName
};

class OneLine : public ::testing::TestWithParam<OneLineCase> {};

TEST_P(OneLine, ReplacesBreaksAndControls) {
    EXPECT_EQ(oneLine(GetParam().text), GetParam().line);
    EXPECT_EQ(plainName(GetParam().text), GetParam().name);
}

INSTANTIATE_TEST_SUITE_P(
    Table, OneLine,
    ::testing::Values(OneLineCase{"Plain", "Anna", "Anna", "Anna"},
                      OneLineCase{"SpacesKept", "  two  ", "  two  ", "  two  "},
                      OneLineCase{"CrLfIsOneBreak", "ab\r\ncd", "ab cd", "ab cd"},
                      OneLineCase{"Lf", "ab\ncd", "ab cd", "ab cd"},
                      OneLineCase{"LoneCr", "ab\rcd", "ab cd", "ab cd"},
                      OneLineCase{"LfCr", "ab\n\rcd", "ab  cd", "ab  cd"},
                      OneLineCase{"Tab", "a\tb", "a\tb", "a b"},
                      OneLineCase{"Nul", std::string("a\0b", 3), std::string("a\0b", 3), "a b"},
                      OneLineCase{"Escape", "a\x1b[1mb", "a\x1b[1mb", "a [1mb"},
                      OneLineCase{"Delete", "a\x7f", "a\x7f", "a "},
                      OneLineCase{"Cyrillic", "Ёлка\nпарк", "Ёлка парк", "Ёлка парк"},
                      OneLineCase{"Empty", "", "", ""}),
    [](const auto& info) { return std::string(info.param.label); });

}  // namespace
}  // namespace vorn::store
