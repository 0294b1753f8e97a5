#include "store/record.h"

#include <array>

namespace vorn::store {
namespace {

constexpr int kLayoutCommas = 48;  // 47 inside the layout string, one after it
constexpr int kRecordCommas = kLayoutCommas + 1;

}  // namespace

RecordView parseRecord(std::string_view line) {
    // Positions (from 0) of the first 49 commas.
    std::array<std::size_t, kRecordCommas> comma{};
    RecordView view;
    std::size_t from = 0;
    while (view.commas < kRecordCommas) {
        const std::size_t at = line.find(',', from);
        if (at == std::string_view::npos) break;
        comma[static_cast<std::size_t>(view.commas++)] = at;
        from = at + 1;
    }

    if (view.commas < kLayoutCommas) {
        view.layout = line;
        return view;
    }
    const std::size_t c48 = comma[kLayoutCommas - 1];
    view.layout = line.substr(0, c48);

    // The name begins two characters after the 48th comma, past the ", " that
    // Save writes there (whatever a hand-edited line has in that place), and ends
    // at the 49th comma; a line without a 49th comma has its name run to the end.
    const std::size_t begin = c48 + 2;
    const std::size_t end = view.commas == kRecordCommas ? comma[kRecordCommas - 1] : line.size();
    if (begin < end) view.name = line.substr(begin, end - begin);
    return view;
}

}  // namespace vorn::store
