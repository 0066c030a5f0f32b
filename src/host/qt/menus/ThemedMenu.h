#pragma once

#include <QtWidgets/QMenu>

#include "host/qt/menus/TypeAhead.h"

namespace tarnwell::host_qt {

class Theme;

/// A menu of the toolkit that looks as the theme says, and finds its entries by their first letters.
class ThemedMenu : public QMenu {
 public:
  /// The theme is borrowed.
  explicit ThemedMenu(const Theme& theme, QWidget* parent = nullptr);

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  TypeAhead typeAhead_;
};

}  // namespace tarnwell::host_qt
