// RepeatedAlerts: suppresses repeated alerts during its lifetime. A damaged list can contain thousands of damaged
// records and would show the same alert for each.
#pragma once

#include <memory>
#include <set>

#include "framework/message.h"

namespace sumlet {

class RepeatedAlerts {
 public:
  // Does not show the alerts in `shown`, and adds those that it shows.
  explicit RepeatedAlerts(std::set<String>& shown) {
    previous_ = SetMessageHandler([this, &shown](std::string_view text) {
      if (shown.emplace(text).second && previous_) previous_(text);
    });
  }
  RepeatedAlerts(const RepeatedAlerts&) = delete;
  RepeatedAlerts& operator=(const RepeatedAlerts&) = delete;
  ~RepeatedAlerts() { SetMessageHandler(std::move(previous_)); }

 private:
  MessageHandler previous_;
};

}  // namespace sumlet
