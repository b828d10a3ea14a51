// RepeatedAlerts: while it lives, an alert that is among those shown is not shown again. A damaged list can hold
// thousands of damaged records, and the user learns nothing from being told of each.
#pragma once

#include <memory>
#include <set>

#include "framework/message.h"

namespace sumlet {

class RepeatedAlerts {
 public:
  // Takes from `shown` what has been shown before, and adds what it shows.
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
