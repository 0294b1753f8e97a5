// ini.txt: the one thing remembered between runs, the language.
// One line, "1" for English or "2" for Russian, with CR LF.
#pragma once

#include <filesystem>
#include <string>

namespace vorn::store {

class Settings {
public:
    explicit Settings(std::filesystem::path folder) : folder_(std::move(folder)) {}

    // English if and only if the first line is exactly "1". A missing, empty,
    // unreadable or odd file means Russian.
    bool readEnglish() const;

    // Replaces the file with "1\r\n" or "2\r\n". Returns false (and leaves errorText
    // set) when the file cannot be written; the caller decides how loud to be.
    bool write(bool english);

    const std::string& errorText() const { return error_; }
    std::filesystem::path path() const { return folder_ / "ini.txt"; }

private:
    std::filesystem::path folder_;
    std::string error_;
};

}  // namespace vorn::store
