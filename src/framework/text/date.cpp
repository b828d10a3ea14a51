#include "framework/text/date.h"

#include <array>
#include <chrono>
#include <cstdio>
#include <ctime>

#include "framework/text/utf8.h"

namespace sumlet {
namespace {

// Whether `text` has a digit wherever `pattern` has a "0", and the pattern's own character elsewhere.
bool HasForm(std::string_view text, std::string_view pattern) {
  if (text.size() != pattern.size()) return false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (pattern[i] == '0' ? !IsDigit(text[i]) : text[i] != pattern[i]) return false;
  }
  return true;
}

Int32 NumberAt(std::string_view text, std::size_t begin, std::size_t length) {
  Int32 number = 0;
  for (const char digit : text.substr(begin, length)) number = number * 10 + (digit - '0');
  return number;
}

bool IsDay(Int32 year, Int32 month, Int32 day) {
  const auto part = [](Int32 n) { return static_cast<unsigned>(n); };
  return std::chrono::year_month_day(std::chrono::year(year), std::chrono::month(part(month)),
                                     std::chrono::day(part(day)))
      .ok();
}

std::tm LocalTime(std::time_t moment) {
  std::tm parts = {};
#if defined(_WIN32)
  localtime_s(&parts, &moment);
#else
  localtime_r(&moment, &parts);
#endif
  return parts;
}

}  // namespace

Date::Date() {
  const std::tm now = LocalTime(std::time(nullptr));
  Year = now.tm_year + 1900;
  Month = now.tm_mon + 1;
  Day = now.tm_mday;
  Hour = now.tm_hour;
  Minute = now.tm_min;
  Second = now.tm_sec;
}

String Date::SQLDateTime() const {
  std::array<char, 80> text;  // room for six numbers of any Int32
  const int length =
      std::snprintf(text.data(), text.size(), "%04d-%02d-%02d %02d:%02d:%02d", Year, Month, Day, Hour, Minute, Second);
  return {text.data(), static_cast<std::size_t>(length)};
}

bool Date::SetSQLDateTime(std::string_view text) {
  if (!HasForm(text, "0000-00-00 00:00:00") && !HasForm(text, "0000-00-00T00:00:00Z")) return false;
  const Int32 year = NumberAt(text, 0, 4);
  const Int32 month = NumberAt(text, 5, 2);
  const Int32 day = NumberAt(text, 8, 2);
  const Int32 hour = NumberAt(text, 11, 2);
  const Int32 minute = NumberAt(text, 14, 2);
  const Int32 second = NumberAt(text, 17, 2);
  if (!IsDay(year, month, day) || hour > 23 || minute > 59 || second > 60) return false;  // 60 in a leap second
  Year = year;
  Month = month;
  Day = day;
  Hour = hour;
  Minute = minute;
  Second = second;
  return true;
}

}  // namespace sumlet
