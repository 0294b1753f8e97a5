// The layout store: three text files in the game's folder.
//   save.txt   one record line per stored layout; only ever appended to
//   save1.txt  the layout string of the latest New game; removed at the end
//   load.txt   the line the load dialog hands back to the main window; removed at the end
// Files are Windows-1251 with CR LF; readers accept CR LF, LF or a lone CR.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace vorn::store {

class LayoutStore {
public:
    explicit LayoutStore(std::filesystem::path folder) : folder_(std::move(folder)) {}

    // Start-up, in this order: save1.txt emptied (or created), save.txt created if
    // missing (never emptied), load.txt emptied (or created).
    bool openAtStartup();

    // save1.txt := raskl + CR LF, on disk when this returns.
    bool rewriteCurrentDeal(std::string_view raskl);

    // Appends raskl + ", " + name + ", " + CR LF to save.txt and syncs it to disk.
    // The name is UTF-8; it is stored as Windows-1251, line breaks and other
    // control characters replaced by spaces (plainName) so one record stays one
    // line. raskl is stored as it is, but for line breaks.
    bool appendRecord(std::string_view raskl, std::string_view nameUtf8);

    // Every line of save.txt in file order, decoded to UTF-8.
    std::vector<std::string> readRecords() const;

    // load.txt := line + CR LF (the load dialog's hand-over); readHandOver gives its
    // first line back, empty when there is none. emptyHandOver leaves load.txt with
    // no bytes at all, as it stays while the load dialog is open.
    bool writeHandOver(std::string_view layoutUtf8);
    bool emptyHandOver();
    std::string readHandOver() const;

    // The end of the run: save1.txt and load.txt are deleted, save.txt stays.
    void shutdown();

    const std::string& errorText() const { return error_; }
    std::filesystem::path path(const char* name) const { return folder_ / name; }

private:
    bool fail(const std::string& what);
    std::filesystem::path folder_;
    std::string error_;
};

// Splits file bytes into lines at CR LF, LF or a lone CR. A final line without a
// line end counts; a file that ends with a line end has no empty last line.
std::vector<std::string> splitLines(std::string_view bytes);

// Replaces line breaks (CR LF, a lone CR or LF) by spaces: the text stays one
// line of a file, every other byte as it was.
std::string oneLine(std::string_view text);

// oneLine, with every other control character made a space too: a typed name as
// save.txt stores it.
std::string plainName(std::string_view text);

}  // namespace vorn::store
