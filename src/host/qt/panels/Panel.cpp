#include "host/qt/panels/Panel.h"

#include <QtGui/QKeyEvent>

#include "host/qt/look/Conversions.h"
#include "kit/application/Event.h"

namespace tarnwell::host_qt {
namespace {

// There is nothing to minimize it to, and nothing to gain from more room.
constexpr Qt::WindowFlags panelFlags =
    Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;

}  // namespace

Panel::Panel() : QWidget(nullptr, panelFlags) {}

void Panel::keyPressEvent(QKeyEvent* event) {
  const kit::KeyEvent key = toKeyEvent(*event);
  if (event->matches(QKeySequence::Cancel) || event->matches(QKeySequence::Close)) {
    close();
  } else if ((key.modifierFlags & kit::commandFlag) != 0 && keys_) {
    keys_(key);
  } else {
    QWidget::keyPressEvent(event);
  }
}

}  // namespace tarnwell::host_qt
