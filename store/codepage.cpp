#include "store/codepage.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace vorn::store {
namespace {

// The characters of bytes 0x80..0xFF in Windows-1251; 0 marks 0x98, the one
// byte the code page leaves unassigned. Bytes below 0x80 are ASCII.
constexpr std::array<char32_t, 128> kUpperHalf = {
    0x0402, 0x0403, 0x201A, 0x0453, 0x201E, 0x2026, 0x2020, 0x2021,  // 80
    0x20AC, 0x2030, 0x0409, 0x2039, 0x040A, 0x040C, 0x040B, 0x040F,  // 88
    0x0452, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,  // 90
    0x0000, 0x2122, 0x0459, 0x203A, 0x045A, 0x045C, 0x045B, 0x045F,  // 98
    0x00A0, 0x040E, 0x045E, 0x0408, 0x00A4, 0x0490, 0x00A6, 0x00A7,  // A0
    0x0401, 0x00A9, 0x0404, 0x00AB, 0x00AC, 0x00AD, 0x00AE, 0x0407,  // A8
    0x00B0, 0x00B1, 0x0406, 0x0456, 0x0491, 0x00B5, 0x00B6, 0x00B7,  // B0
    0x0451, 0x2116, 0x0454, 0x00BB, 0x0458, 0x0405, 0x0455, 0x0457,  // B8
    0x0410, 0x0411, 0x0412, 0x0413, 0x0414, 0x0415, 0x0416, 0x0417,  // C0 А..
    0x0418, 0x0419, 0x041A, 0x041B, 0x041C, 0x041D, 0x041E, 0x041F,  // C8
    0x0420, 0x0421, 0x0422, 0x0423, 0x0424, 0x0425, 0x0426, 0x0427,  // D0
    0x0428, 0x0429, 0x042A, 0x042B, 0x042C, 0x042D, 0x042E, 0x042F,  // D8 ..Я
    0x0430, 0x0431, 0x0432, 0x0433, 0x0434, 0x0435, 0x0436, 0x0437,  // E0 а..
    0x0438, 0x0439, 0x043A, 0x043B, 0x043C, 0x043D, 0x043E, 0x043F,  // E8
    0x0440, 0x0441, 0x0442, 0x0443, 0x0444, 0x0445, 0x0446, 0x0447,  // F0
    0x0448, 0x0449, 0x044A, 0x044B, 0x044C, 0x044D, 0x044E, 0x044F,  // F8 ..я
};

constexpr char32_t kReplacement = 0xFFFD;

char toByte(char32_t c) {
    if (c < 0x80) return static_cast<char>(c);
    if (c >= 0x0410 && c <= 0x044F) return static_cast<char>(0xC0 + (c - 0x0410));
    for (std::size_t i = 0; i < 0x40; ++i) {
        if (kUpperHalf[i] == c) return static_cast<char>(0x80 + i);
    }
    return '?';
}

void appendUtf8(std::string& out, char32_t c) {
    if (c < 0x80) {
        out += static_cast<char>(c);
    } else if (c < 0x800) {
        out += static_cast<char>(0xC0 | (c >> 6));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else {
        out += static_cast<char>(0xE0 | (c >> 12));
        out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    }
}

// The range the second byte of a sequence must fall in, by its lead byte; this
// is what rules out overlong forms, surrogates and code points past U+10FFFF.
struct Lead {
    int length = 0;  // 0: the byte cannot start a character
    uint8_t low = 0x80, high = 0xBF;
};

Lead leadOf(uint8_t b) {
    if (b >= 0xC2 && b <= 0xDF) return {2};
    if (b == 0xE0) return {3, 0xA0, 0xBF};
    if (b == 0xED) return {3, 0x80, 0x9F};
    if (b >= 0xE1 && b <= 0xEF) return {3};
    if (b == 0xF0) return {4, 0x90, 0xBF};
    if (b >= 0xF1 && b <= 0xF3) return {4};
    if (b == 0xF4) return {4, 0x80, 0x8F};
    return {};
}

}  // namespace

namespace {

// Walks UTF-8 text one character at a time and hands each one's Windows-1251
// byte to `take`, with the text it came from.
template <class Take>
void eachCharacter(std::string_view utf8, Take take) {
    std::size_t i = 0;
    while (i < utf8.size()) {
        const auto b = static_cast<uint8_t>(utf8[i]);
        if (b < 0x80) {
            take(static_cast<char>(b), utf8.substr(i, 1));
            ++i;
            continue;
        }
        const Lead lead = leadOf(b);
        char32_t c = b & (0x7F >> lead.length);
        std::size_t used = 1;
        bool whole = lead.length > 0;
        // A broken sequence becomes one '?' covering its lead byte and every
        // continuation byte that was still acceptable before it broke off.
        for (; whole && used < static_cast<std::size_t>(lead.length); ++used) {
            if (i + used >= utf8.size()) {
                whole = false;
                break;
            }
            const auto next = static_cast<uint8_t>(utf8[i + used]);
            const uint8_t low = used == 1 ? lead.low : 0x80;
            const uint8_t high = used == 1 ? lead.high : 0xBF;
            if (next < low || next > high) {
                whole = false;
                break;
            }
            c = (c << 6) | (next & 0x3F);
        }
        take(whole ? toByte(c) : '?', utf8.substr(i, used));
        i += used;
    }
}

}  // namespace

std::string toCp1251(std::string_view utf8) {
    std::string out;
    out.reserve(utf8.size());
    eachCharacter(utf8, [&out](char byte, std::string_view) { out += byte; });
    return out;
}

std::vector<std::string> outsideCp1251(std::string_view utf8) {
    std::vector<std::string> lost;
    eachCharacter(utf8, [&lost](char byte, std::string_view from) {
        if (byte != '?' || from == "?") return;
        if (std::find(lost.begin(), lost.end(), from) == lost.end()) lost.emplace_back(from);
    });
    return lost;
}

std::string fromCp1251(std::string_view bytes) {
    std::string out;
    out.reserve(bytes.size() * 2);
    for (const char ch : bytes) {
        const auto b = static_cast<uint8_t>(ch);
        if (b < 0x80) {
            out += ch;
            continue;
        }
        const char32_t c = kUpperHalf[b - 0x80];
        appendUtf8(out, c == 0 ? kReplacement : c);
    }
    return out;
}

}  // namespace vorn::store
