// The deal of the day.
#include "daily_deal.h"

#include <array>
#include <cstdio>

namespace vorn {

namespace {

constexpr std::array<Grade, 7> kWeekdayGrades{  // ISO order: Monday first
    Grade::Easy, Grade::Easy, Grade::Medium, Grade::Hard, Grade::VeryHard, Grade::Expert, Grade::Expert};

// More candidates than a day ever needs (about one in six deals is winnable of
// a given grade).
constexpr uint32_t kMaxCandidates = 10'000;

int64_t dayCount(const Date& date) { return std::chrono::sys_days(date).time_since_epoch().count(); }

// The date's n-th candidate: splitmix64 of the day and the index, its top 32
// bits (0 taken as 1).
DealNumber dailyCandidate(const Date& date, uint32_t n) {
    uint64_t x = static_cast<uint64_t>(dayCount(date)) * 0x9E3779B97F4A7C15ull + n * 0xD1B54A32D192ED03ull;
    x ^= x >> 30;
    x *= 0xBF58476D1CE4E5B9ull;
    x ^= x >> 27;
    x *= 0x94D049BB133111EBull;
    x ^= x >> 31;
    const auto number = static_cast<DealNumber>(x >> 32);
    return number == 0 ? kFirstDealNumber : number;
}

}  // namespace

std::optional<Date> parseDate(std::string_view text) {
    if (text.size() != 10 || text[4] != '-' || text[7] != '-') return std::nullopt;
    auto number = [&](size_t from, size_t length) {
        int value = 0;
        for (size_t i = from; i < from + length; ++i) {
            if (text[i] < '0' || text[i] > '9') return -1;
            value = value * 10 + (text[i] - '0');
        }
        return value;
    };
    const int year = number(0, 4), month = number(5, 2), day = number(8, 2);
    if (year < 1 || month < 0 || day < 0) return std::nullopt;
    const Date date{std::chrono::year{year}, std::chrono::month{static_cast<unsigned>(month)},
                    std::chrono::day{static_cast<unsigned>(day)}};
    if (!date.ok()) return std::nullopt;
    return date;
}

std::string formatDate(const Date& date) {
    char text[16];
    std::snprintf(text, sizeof text, "%04d-%02u-%02u", static_cast<int>(date.year()),
                  static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()));
    return text;
}

Date todayUtc() { return Date{std::chrono::floor<std::chrono::days>(std::chrono::system_clock::now())}; }

Grade dailyGrade(const Date& date) {
    return kWeekdayGrades[std::chrono::weekday(std::chrono::sys_days(date)).iso_encoding() - 1];
}

FoundDeal findDailyDeal(const Date& date) {
    const auto candidate = [&date](uint32_t n) { return dailyCandidate(date, n); };
    if (const auto found = findDealAmong(candidate, dailyGrade(date), kMaxCandidates)) return *found;
    // Never seen: no candidate of the day's grade. Any winnable one, else the first.
    if (const auto found = findDealAmong(candidate, std::nullopt, kMaxCandidates)) return *found;
    return FoundDeal{dailyCandidate(date, 0), {}, kMaxCandidates};
}

}  // namespace vorn
