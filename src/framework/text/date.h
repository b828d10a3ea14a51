// Date: a calendar date and a time of day, without a time zone.
#pragma once

#include <string_view>

#include "framework/text/text.h"

namespace sumlet {

struct Date {
  // The current time in the system's time zone.
  Date();

  Int32 Year;
  Int32 Month;  // 1 to 12
  Int32 Day;    // 1 to 31
  Int32 Hour;   // 0 to 23
  Int32 Minute;
  Int32 Second;

  // "YYYY-MM-DD HH:MM:SS"
  [[nodiscard]] String SQLDateTime() const;
  // Parses that format and "YYYY-MM-DDTHH:MM:SSZ", the format of property lists, without converting the time zone.
  // Returns false, and leaves the date unchanged, for anything else, including a 30th of February.
  bool SetSQLDateTime(std::string_view text);
};

}  // namespace sumlet
