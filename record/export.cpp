// Every recorded game as CSV: UTF-8, a header row, one row per game in the
// order the games began, RFC 4180 quoting with CR LF line ends. An empty field
// is a value not known (or a game still in play). The columns:
//   id               the game's number in the record
//   started, ended   UTC, 2024-05-01T12:34:56.789Z; ended is empty while in play
//   played_ms        time played, in milliseconds
//   deal             the deal number, 1 to 4294967295; empty for a loaded layout
//   layout           the 182-character layout string of the deal
//   layout_name      the stored layout's name, for a loaded one
//   beginning        new, winnable-only, number, again, loaded or daily
//   daily_date       the deal of the day's date, YYYY-MM-DD
//   start_verdict    winnable, lost or unknown: the solver on the starting position
//   difficulty, grade, measure_version   the difficulty figure, its grade 0-4, the measure's version
//   moves, undos, hints, solution_moves, backs   moves made, undos, hints, moves made by
//                    Show solution, uses of Back to the last winnable position
//   result           won, given-up or lost; empty while in play
//   blunders, only_moves   the review's findings
//   line             the moves from the deal to the last position
// A text that a spreadsheet would take for a formula (it begins with =, +, -,
// @, a tab or a CR) is written with a ' before it.
#include <cerrno>
#include <cstring>
#include <fstream>
#include <ostream>

#include "record/impl.h"

namespace vorn::record {
namespace {

void writeField(std::ostream& out, std::string_view text, bool isText) {
    std::string field;
    if (isText && !text.empty() && std::string_view("=+-@\t\r").find(text.front()) != std::string_view::npos) field = "'";
    field += text;
    if (field.find_first_of(",\"\r\n") == std::string::npos) {
        out << field;
        return;
    }
    out << '"';
    for (const char c : field) out << (c == '"' ? "\"\"" : std::string_view(&c, 1));
    out << '"';
}

}  // namespace

bool Record::exportCsv(std::ostream& out) const {
    return guarded([&] {
        auto rows = impl_->exportAll.query();
        const int columns = rows->columns();
        for (int c = 0; c < columns; ++c) {
            if (c > 0) out << ',';
            writeField(out, rows->name(c), false);
        }
        out << "\r\n";
        while (rows.next()) {
            for (int c = 0; c < columns; ++c) {
                if (c > 0) out << ',';
                writeField(out, rows->text(c), rows->isText(c));
            }
            out << "\r\n";
        }
        if (!out.flush()) throw std::runtime_error("the export could not be written");
        return true;
    });
}

bool Record::exportCsv(const std::filesystem::path& file) const {
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    if (!out) {
        error_ = file.string() + ": " + std::strerror(errno);
        return false;
    }
    if (!exportCsv(out)) return false;
    out.close();
    if (!out) error_ = file.string() + ": the export could not be written";
    return error_.empty();
}

}  // namespace vorn::record
