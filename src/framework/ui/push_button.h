// PushButton: a button that shrinks its caption to fit. Tab moves the focus to it but a click does not, so that the
// control with the focus keeps its selection and caret.
//
// In every style, an outline marks the default button, and a ring inside it marks the focus.
#pragma once

#include <QPushButton>
#include <QString>

#include "framework/text/text.h"

namespace sumlet {

class PushButton : public QPushButton {
 public:
  PushButton(const QString& caption, QWidget* parent);

  // Sets the largest size of the caption, in pixels. Initially that of the desktop's font.
  void SetTextSize(Int32 pixels);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace sumlet
