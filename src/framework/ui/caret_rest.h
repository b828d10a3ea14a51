// CaretRest: carets blink while somebody works and stand still, in sight, when nobody has for a while. A program that
// is left alone then has no timer running and does not wake the processor.
#pragma once

#include <QObject>

#include "framework/ui/timer.h"

namespace sumlet {

class CaretRest final : public QObject {
 public:
  // In milliseconds from the last key, click or change of the focus.
  static constexpr Int32 BlinkingTime = 10000;

  // For all carets of the application, which has to exist, as long as this object lives. How fast they blink, and
  // whether they do, stays the desktop's business.
  CaretRest();
  ~CaretRest() override;

  bool eventFilter(QObject* receiver, QEvent* event) override;

 private:
  Timer rest_;
};

}  // namespace sumlet
