#pragma once

#include <QtWidgets/QMenuBar>

#include "kit/menus/Menu.h"

namespace tarnwell::kit {
class Application;
}

namespace tarnwell::host_qt {

class Theme;

/// The main menu as a bar in a window. F10 opens it, Alt with a title's underlined letter opens that menu.
class MenuBar final : public QMenuBar {
 public:
  /// All are borrowed; `window` becomes the parent.
  MenuBar(kit::Application& application, const Theme& theme, QWidget& window);

  /// The fonts of the theme are new.
  void takeFont();

  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  void rebuild();
  void addTopMenu(const kit::MenuItem& item, QString& taken);

  kit::Application& application_;
  const Theme& theme_;
  kit::Subscription changes_;
};

}  // namespace tarnwell::host_qt
