// RepeatedAlerts: suppresses repeated alerts during its lifetime. A damaged list can contain thousands of damaged
// records and would show the same alert for each.
#pragma once

#include <memory>
#include <set>

#include "framework/desktop.h"

namespace sumlet {

class RepeatedAlerts {
 public:
  // Does not show the alerts in `shown`, and adds those that it shows.
  explicit RepeatedAlerts(std::set<String>& shown)
      : handler_(MsgBox.Set([show = MsgBox.Current(), &shown](std::string_view text) {
          if (shown.emplace(text).second && show) show(text);
        })) {}

 private:
  HookGuard handler_;
};

}  // namespace sumlet
