// The code-page crossing: any bytes read from a file decode to valid UTF-8 and
// encode back to the same bytes (the one unassigned byte 0x98 comes back as '?');
// any text the program holds encodes to bytes that survive the same round trip.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "fuzz_check.h"
#include "store/codepage.h"

namespace {

// Strict UTF-8: shortest forms only, no surrogates, nothing above U+10FFFF.
bool isValidUtf8(std::string_view text) {
    size_t i = 0;
    while (i < text.size()) {
        const auto lead = static_cast<unsigned char>(text[i]);
        size_t length = 0;
        char32_t code = 0;
        if (lead < 0x80) {
            ++i;
            continue;
        } else if (lead >= 0xC2 && lead <= 0xDF) {
            length = 2, code = lead & 0x1Fu;
        } else if (lead >= 0xE0 && lead <= 0xEF) {
            length = 3, code = lead & 0x0Fu;
        } else if (lead >= 0xF0 && lead <= 0xF4) {
            length = 4, code = lead & 0x07u;
        } else {
            return false;
        }
        if (i + length > text.size()) return false;
        for (size_t k = 1; k < length; ++k) {
            const auto next = static_cast<unsigned char>(text[i + k]);
            if ((next & 0xC0u) != 0x80u) return false;
            code = (code << 6) | (next & 0x3Fu);
        }
        if ((length == 3 && code < 0x800) || (length == 4 && code < 0x10000)) return false;
        if ((code >= 0xD800 && code <= 0xDFFF) || code > 0x10FFFF) return false;
        i += length;
    }
    return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    using vorn::store::fromCp1251;
    using vorn::store::toCp1251;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);

    // The input as file bytes.
    const std::string decoded = fromCp1251(bytes);
    FUZZ_EXPECT(isValidUtf8(decoded));
    std::string expected(bytes);
    for (char& c : expected)
        if (static_cast<unsigned char>(c) == 0x98) c = '?';
    FUZZ_EXPECT(toCp1251(decoded) == expected);

    // The input as text inside the program (usually not valid UTF-8).
    const std::string encoded = toCp1251(bytes);
    FUZZ_EXPECT(encoded.size() <= bytes.size());
    FUZZ_EXPECT(encoded.find('\x98') == std::string::npos);
    FUZZ_EXPECT(toCp1251(fromCp1251(encoded)) == encoded);
    bool ascii = true;
    for (char c : bytes) ascii = ascii && static_cast<unsigned char>(c) < 0x80;
    if (ascii) FUZZ_EXPECT(encoded == bytes);
    return 0;
}
