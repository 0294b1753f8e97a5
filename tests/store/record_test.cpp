// One line of save.txt as the load dialog reads it: the layout before the 48th
// comma, the name from the second character after it up to the 49th.
#include "store/record.h"

#include "folder.h"

namespace vorn::store {
namespace {

TEST(Record, SplitsNameAndLayout) {
    const std::string L = testing::dealtLayout();
    const std::string big(1 << 20, 'n');
    const std::tuple<std::string, std::string, std::string, int> cases[] = {
        // line, name, layout, commas found
        {L + ", Anna, ", "Anna", L, 49},
        {L + ", Smith, John, ", "Smith", L, 49},
        {L + ",   Anna , ", "  Anna ", L, 49},
        {L + ", Ёлка №5, ", "Ёлка №5", L, 49},
        {L + ",Anna, ", "nna", L, 49},
        {L + ",\tname, ", "name", L, 49},
        {L + ",, ", "", L, 49},
        {L + ", , ", "", L, 49},
        {L + ", Anna", "Anna", L, 48},
        {L + ",Anna", "nna", L, 48},
        {L + ",", "", L, 48},
        {L, "", L, 47},
        {" 1, 2, 3", "", " 1, 2, 3", 2},
        {"", "", "", 0},
        {std::string(60, ','), "", std::string(47, ','), 49},
        {std::string(47, ',') + ", Anna, ", "Anna", std::string(47, ','), 49},
        {L + ", " + big + ", ", big, L, 49},
    };
    for (const auto& [line, name, layout, commas] : cases) {
        const RecordView view = parseRecord(line);
        EXPECT_EQ(view.name, name) << line.substr(170, 30);
        EXPECT_EQ(view.layout, layout) << line.substr(170, 30);
        EXPECT_EQ(view.commas, commas) << line.substr(170, 30);
    }
}

}  // namespace
}  // namespace vorn::store
