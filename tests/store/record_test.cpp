#include "store/record.h"

#include <gtest/gtest.h>

#include <string>

namespace vorn::store {
namespace {

// A layout string as a deal writes it: " 5, 17, ..." — 48 values, 47 commas.
std::string layout() {
    std::string text;
    for (int i = 0; i < 48; ++i) {
        if (!text.empty()) text += ",";
        text += " " + std::to_string((i * 7) % 48 + 1);
    }
    return text;
}

struct RecordCase {
    const char* label;
    std::string line;
    std::string name;
    std::string layout;
    int commas;
};

class ParseRecord : public ::testing::TestWithParam<RecordCase> {};

TEST_P(ParseRecord, SplitsNameAndLayout) {
    const RecordView view = parseRecord(GetParam().line);
    EXPECT_EQ(view.name, GetParam().name);
    EXPECT_EQ(view.layout, GetParam().layout);
    EXPECT_EQ(view.commas, GetParam().commas);
}

const std::string L = layout();

INSTANTIATE_TEST_SUITE_P(
    Table, ParseRecord,
    ::testing::Values(
        RecordCase{"SavedRecord", L + ", Anna, ", "Anna", L, 49},
        RecordCase{"NameWithComma", L + ", Smith, John, ", "Smith", L, 49},
        RecordCase{"LeadingSpacesAfterTheSeparator", L + ",   Anna , ", "  Anna ", L, 49},
        RecordCase{"CyrillicName", L + ", Ёлка №5, ", "Ёлка №5", L, 49},
        RecordCase{"NoSpaceAfterThe48thComma", L + ",Anna, ", "nna", L, 49},
        RecordCase{"TabAfterThe48thComma", L + ",\tname, ", "name", L, 49},
        RecordCase{"CommaRightAfterThe48th", L + ",, ", "", L, 49},
        RecordCase{"SpaceThenComma", L + ", , ", "", L, 49},
        RecordCase{"Exactly48Commas", L + ", Anna", "Anna", L, 48},
        RecordCase{"Exactly48CommasNoSpace", L + ",Anna", "nna", L, 48},
        RecordCase{"Exactly48CommasTrailingSpace", L + ", Anna ", "Anna ", L, 48},
        RecordCase{"48CommasLineEndsAtTheComma", L + ",", "", L, 48},
        RecordCase{"48CommasThenOneSpace", L + ", ", "", L, 48},
        RecordCase{"LayoutOnly", L, "", L, 47},
        RecordCase{"FewCommas", " 1, 2, 3", "", " 1, 2, 3", 2},
        RecordCase{"NoComma", "hello", "", "hello", 0},
        RecordCase{"Empty", "", "", "", 0},
        RecordCase{"Only48Commas", std::string(48, ','), "", std::string(47, ','), 48},
        RecordCase{"OnlyCommas", std::string(60, ','), "", std::string(47, ','), 49},
        RecordCase{"EmptyLayoutPart", std::string(47, ',') + ", Anna, ", "Anna", std::string(47, ','), 49},
        RecordCase{"HugeName", L + ", " + std::string(1 << 20, 'n') + ", ", std::string(1 << 20, 'n'), L, 49},
        RecordCase{"HugeLineWithoutCommas", std::string(1 << 20, 'x'), "", std::string(1 << 20, 'x'), 0}),
    [](const auto& info) { return std::string(info.param.label); });

TEST(ParseRecord, LayoutOfASavedRecordIsTheFull182Characters) {
    ASSERT_EQ(L.size(), 182u);
    const RecordView view = parseRecord(L + ", name, ");
    EXPECT_EQ(view.layout.size(), 182u);
    EXPECT_EQ(view.layout.front(), ' ');
    EXPECT_EQ(view.layout.back(), L.back());
}

}  // namespace
}  // namespace vorn::store
