// Date: a day and a time of day, as a clock on the wall shows them.
#pragma once

#include <string_view>

#include "framework/text/text.h"

namespace sumlet {

struct Date {
  // The present moment in the system's time zone.
  Date();

  Int32 Year;
  Int32 Month;  // 1 to 12
  Int32 Day;    // 1 to 31
  Int32 Hour;   // 0 to 23
  Int32 Minute;
  Int32 Second;

  // "YYYY-MM-DD HH:MM:SS"
  [[nodiscard]] String SQLDateTime() const;
  // Takes that form and "YYYY-MM-DDTHH:MM:SSZ", the one of property lists, whose numbers are taken as they stand: no
  // time zone is converted. False for anything else, also for a 30th of February; the date is then unchanged.
  bool SetSQLDateTime(std::string_view text);
};

}  // namespace sumlet
