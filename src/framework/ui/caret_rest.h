// CaretRest: stops the blinking of carets, leaving them visible, when the user pauses. An idle program then runs no
// timer and does not wake the processor.
#pragma once

#include <QObject>

#include "framework/text/text.h"
#include "framework/ui/timer.h"

namespace sumlet {

class CaretRest final : public QObject {
 public:
  // Time in ms from the last key, click or change of the focus until the carets stop blinking.
  static constexpr Int32 BlinkingTime = 10000;

  // Affects all carets of the application, which must exist, while this object lives. The desktop decides whether and
  // how fast carets blink.
  CaretRest();
  ~CaretRest() override;

  bool eventFilter(QObject* receiver, QEvent* event) override;

 private:
  Timer rest_;
};

}  // namespace sumlet
