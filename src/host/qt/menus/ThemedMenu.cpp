#include "host/qt/menus/ThemedMenu.h"

#include "host/qt/look/Theme.h"
#include "host/qt/menus/ThemedMenuStyle.h"

namespace tarnwell::host_qt {

ThemedMenu::ThemedMenu(const Theme& theme, QWidget* parent) : QMenu(parent) {
  auto* look = new ThemedMenuStyle(theme);
  look->setParent(this);
  setStyle(look);
  connect(this, &QMenu::aboutToShow, this, [this, &theme]() noexcept { setFont(theme.font(kit::FontRole::body)); });
}

void ThemedMenu::keyPressEvent(QKeyEvent* event) {
  if (!typeAhead_.choose(*event, *this)) {
    QMenu::keyPressEvent(event);
  }
}

}  // namespace tarnwell::host_qt
