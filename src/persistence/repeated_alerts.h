// RepeatedAlerts: while it lives, an alert that has been shown is not shown again. A damaged list can hold thousands of
// damaged records, and the user learns nothing from being told of each.
#pragma once

#include <memory>
#include <set>

#include "framework/message.h"

namespace sumlet {

class RepeatedAlerts {
 public:
  RepeatedAlerts() {
    previous_ = SetMessageHandler([this](std::string_view text) {
      if (shown_.emplace(text).second && previous_) previous_(text);
    });
  }
  RepeatedAlerts(const RepeatedAlerts&) = delete;
  RepeatedAlerts& operator=(const RepeatedAlerts&) = delete;
  ~RepeatedAlerts() { SetMessageHandler(std::move(previous_)); }

 private:
  MessageHandler previous_;
  std::set<String> shown_;
};

}  // namespace sumlet
