// The deal of the day: one deal a day, the same on every machine, chosen from
// the UTC date alone. It is proven winnable, and its grade follows the
// weekday: Monday and Tuesday Easy, Wednesday Medium, Thursday Hard, Friday
// Very hard, Saturday and Sunday Expert.
//
// The day's candidates are deal numbers mixed from the count of days since
// 1970-01-01 and the candidate's index; the first winnable one of the day's
// grade is the deal. Its searches stop at counts of positions, so the choice
// does not depend on the machine's speed.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

#include "difficulty.h"

namespace vorn {

using Date = std::chrono::year_month_day;

// Reads a date written YYYY-MM-DD: exactly four digits, two and two, joined by
// '-', naming a day of the calendar (year 1 onwards). Anything else (2026-02-30,
// 26-1-1, spaces, more characters, nothing) is no date.
std::optional<Date> parseDate(std::string_view text);
// YYYY-MM-DD.
std::string formatDate(const Date& date);
// Today, in UTC.
Date todayUtc();

Grade dailyGrade(const Date& date);
// The date's deal: its number, its difficulty, how many candidates were tried.
FoundDeal findDailyDeal(const Date& date);
inline DealNumber dailyDeal(const Date& date) { return findDailyDeal(date).number; }

}  // namespace vorn
