// winAbout: the program's icon, name, version and copyright line.
#pragma once

#include <QFont>
#include <QLabel>
#include <QString>

#include "framework/ui/window.h"

namespace sumlet {

class winAbout final : public Window {
 public:
  // The open window, or else a new one. It deletes itself when closed.
  static winAbout& Instance();

  [[nodiscard]] QLabel& stApp() const { return *stApp_; }
  [[nodiscard]] QLabel& stVersion() const { return *stVersion_; }
  [[nodiscard]] QLabel& stCopyright() const { return *stCopyright_; }

 protected:
  void Layout() override;
  void CreateControls() override;

 private:
  winAbout();

  QLabel* CreateLabel(const QString& text, const QRect& bounds, QFont::Weight weight);

  QWidget* cIcon_ = nullptr;
  QLabel* stApp_ = nullptr;
  QLabel* stVersion_ = nullptr;
  QLabel* stCopyright_ = nullptr;
};

}  // namespace sumlet
