// The load dialog's record parser: any line of save.txt gives a name and a
// layout cut out of that very line, never reads past it, and finds the commas
// the line really has.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "fuzz_check.h"
#include "store/record.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view line(reinterpret_cast<const char*>(data), size);
    const vorn::store::RecordView record = vorn::store::parseRecord(line);

    const auto commas = static_cast<int>(std::count(line.begin(), line.end(), ','));
    FUZZ_EXPECT(record.commas == std::min(commas, 49));
    FUZZ_EXPECT(line.find(record.name) != std::string_view::npos);
    FUZZ_EXPECT(line.find(record.layout) != std::string_view::npos);

    if (commas < 48) {
        // No separator: the whole line is the layout, there is no name.
        FUZZ_EXPECT(record.layout == line);
        FUZZ_EXPECT(record.name.empty());
        return 0;
    }
    // The layout is everything before the 48th comma: a prefix with 47 commas.
    FUZZ_EXPECT(line.starts_with(record.layout));
    FUZZ_EXPECT(std::count(record.layout.begin(), record.layout.end(), ',') == 47);
    FUZZ_EXPECT(line[record.layout.size()] == ',');
    // The name lies after that comma and holds no comma of its own.
    FUZZ_EXPECT(record.name.find(',') == std::string::npos);
    if (!record.name.empty())
        FUZZ_EXPECT(line.substr(record.layout.size() + 1).find(record.name) != std::string_view::npos);
    return 0;
}
