// PushButton: a button whose caption is drawn smaller where it does not fit. It takes the focus by Tab, not by a click:
// a click leaves the selection, or the caret, of the control being worked on where it is.
//
// Looks the same in every style as far as a user must recognise it: an outline marks the default button, a ring inside
// it the focus.
#pragma once

#include <QString>
#include <QPushButton>

#include "framework/text/text.h"

namespace sumlet {

class PushButton : public QPushButton {
 public:
  PushButton(const QString& caption, QWidget* parent);

  // The size of the caption in pixels, where it fits. At start it is that of the desktop's font.
  void SetTextSize(Int32 pixels);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace sumlet
