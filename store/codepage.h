// The game's files are single-byte Windows-1251 text; inside the program every
// string is UTF-8. These two functions are the only crossing between the two.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vorn::store {

// UTF-8 to Windows-1251. A character the code page cannot hold, and every
// malformed UTF-8 sequence, becomes '?'.
std::string toCp1251(std::string_view utf8);

// The characters of UTF-8 text that toCp1251 would turn into '?', each once, in
// the order they first appear (a malformed sequence counts as its bytes).
std::vector<std::string> outsideCp1251(std::string_view utf8);

// Windows-1251 to UTF-8. The one unassigned byte (0x98) becomes U+FFFD.
std::string fromCp1251(std::string_view bytes);

}  // namespace vorn::store
