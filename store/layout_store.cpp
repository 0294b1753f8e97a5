#include "store/layout_store.h"

#include "store/codepage.h"
#include "store/file_io.h"

namespace vorn::store {
namespace {

constexpr const char* kStore = "save.txt";
constexpr const char* kCurrentDeal = "save1.txt";
constexpr const char* kHandOver = "load.txt";

// The store is read whole, but a file grown past any sensible size is read only
// this far rather than filling the memory; the hand-over file holds one short line.
constexpr std::size_t kStoreLimit = 64u << 20;
constexpr std::size_t kHandOverLimit = 64u << 10;

// One line of a file as the game writes it: Windows-1251, one line, CR LF.
std::string fileLine(std::string_view utf8) { return toCp1251(oneLine(utf8)) + "\r\n"; }

void addProblem(std::string& all, const std::string& one) {
    if (!all.empty()) all += "; ";
    all += one;
}

}  // namespace

bool LayoutStore::fail(const std::string& what) {
    error_ = what;
    return false;
}

bool LayoutStore::openAtStartup() {
    // Every file is tried even when an earlier one fails: whatever can work, does.
    std::string problems;
    if (auto p = writeFile(path(kCurrentDeal), "", WriteMode::Replace, false)) addProblem(problems, *p);
    if (auto p = writeFile(path(kStore), "", WriteMode::Append, false)) addProblem(problems, *p);
    if (auto p = writeFile(path(kHandOver), "", WriteMode::Replace, false)) addProblem(problems, *p);
    error_ = problems;
    return problems.empty();
}

bool LayoutStore::rewriteCurrentDeal(std::string_view raskl) {
    if (auto p = writeFile(path(kCurrentDeal), fileLine(raskl), WriteMode::Replace, true)) return fail(*p);
    error_.clear();
    return true;
}

bool LayoutStore::appendRecord(std::string_view raskl, std::string_view nameUtf8) {
    if (nameUtf8.empty()) return fail(path(kStore).string() + ": nothing saved: the name is empty");
    std::string record = toCp1251(oneLine(raskl));
    record += ", ";
    record += toCp1251(plainName(nameUtf8));
    record += ", \r\n";
    // Append only; a store whose last line has no line end gets one first (writeFile).
    if (auto p = writeFile(path(kStore), record, WriteMode::Append, true)) return fail(*p);
    error_.clear();
    return true;
}

std::vector<std::string> LayoutStore::readRecords() const {
    std::vector<std::string> records;
    const auto bytes = readPrefix(path(kStore), kStoreLimit);
    if (!bytes) return records;
    for (const std::string& line : splitLines(*bytes)) records.push_back(fromCp1251(line));
    return records;
}

bool LayoutStore::writeHandOver(std::string_view layoutUtf8) {
    if (auto p = writeFile(path(kHandOver), fileLine(layoutUtf8), WriteMode::Replace, false)) return fail(*p);
    error_.clear();
    return true;
}

bool LayoutStore::emptyHandOver() {
    if (auto p = writeFile(path(kHandOver), "", WriteMode::Replace, false)) return fail(*p);
    error_.clear();
    return true;
}

std::string LayoutStore::readHandOver() const {
    const auto bytes = readPrefix(path(kHandOver), kHandOverLimit);
    if (!bytes) return {};
    const std::string_view text(*bytes);
    return fromCp1251(text.substr(0, text.find_first_of("\r\n")));
}

void LayoutStore::shutdown() {
    std::string problems;
    if (auto p = removeFile(path(kCurrentDeal))) addProblem(problems, *p);
    if (auto p = removeFile(path(kHandOver))) addProblem(problems, *p);
    error_ = problems;
}

std::vector<std::string> splitLines(std::string_view bytes) {
    std::vector<std::string> lines;
    std::size_t start = 0;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const char c = bytes[i];
        if (c != '\r' && c != '\n') continue;
        lines.emplace_back(bytes.substr(start, i - start));
        if (c == '\r' && i + 1 < bytes.size() && bytes[i + 1] == '\n') ++i;
        start = i + 1;
    }
    if (start < bytes.size()) lines.emplace_back(bytes.substr(start));
    return lines;
}

namespace {

std::string spacedOut(std::string_view text, bool controlsToo) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto c = static_cast<unsigned char>(text[i]);
        const bool lineBreak = c == '\r' || c == '\n';
        if (!lineBreak && (!controlsToo || (c >= 0x20 && c != 0x7F))) {
            out += static_cast<char>(c);
            continue;
        }
        // A CR LF pair is one line break and becomes one space.
        if (c == '\r' && i + 1 < text.size() && text[i + 1] == '\n') ++i;
        out += ' ';
    }
    return out;
}

}  // namespace

std::string oneLine(std::string_view text) { return spacedOut(text, false); }

std::string plainName(std::string_view text) { return spacedOut(text, true); }

}  // namespace vorn::store
