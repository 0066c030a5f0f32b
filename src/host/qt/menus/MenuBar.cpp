#include "host/qt/menus/MenuBar.h"

#include <QtGui/QKeyEvent>

#include "host/qt/look/Conversions.h"
#include "host/qt/look/Theme.h"
#include "host/qt/menus/MenuWidget.h"
#include "host/qt/menus/ThemedMenuStyle.h"
#include "kit/application/Application.h"

namespace tarnwell::host_qt {
namespace {

// `title` with an ampersand before the first letter that no other title has taken.
QString withMnemonic(QString title, QString& taken) {
  for (int i = 0; i < title.size(); ++i) {
    if (title.at(i).isLetter() && !taken.contains(title.at(i), Qt::CaseInsensitive)) {
      taken += title.at(i);
      return title.insert(i, '&');
    }
  }
  return title;
}

}  // namespace

MenuBar::MenuBar(kit::Application& application, const Theme& theme, QWidget& window)
    : QMenuBar(&window), application_(application), theme_(theme) {
  auto* look = new ThemedMenuStyle(theme);
  look->setParent(this);
  setStyle(look);
  setNativeMenuBar(false);
  takeFont();
  window.installEventFilter(this);
  changes_ = application.mainMenu().observe([this] { rebuild(); });
  rebuild();
}

void MenuBar::takeFont() { setFont(theme_.font(kit::FontRole::body)); }

bool MenuBar::eventFilter(QObject* object, QEvent* event) {
  if (object == window() && event->type() == QEvent::KeyPress) {
    const auto& key = *static_cast<QKeyEvent*>(event);
    if (key.key() == Qt::Key_F10 && key.modifiers() == Qt::NoModifier && !actions().isEmpty()) {
      setActiveAction(actions().constFirst());
      return true;
    }
  }
  return QMenuBar::eventFilter(object, event);
}

void MenuBar::rebuild() {
  for (QAction* action : actions()) {
    removeAction(action);
    action->menu()->deleteLater();
  }
  QString taken;
  for (const auto& item : application_.mainMenu().items()) {
    if (item->submenu()) {
      addTopMenu(*item, taken);
    }
  }
}

void MenuBar::addTopMenu(const kit::MenuItem& item, QString& taken) {
  auto* menu = new MenuWidget(application_, *item.submenu(), theme_, this);
  menu->setTitle(withMnemonic(toQString(item.title()), taken));
  connect(menu, &QMenu::aboutToShow, this, [&application = application_, opened = item.submenu()]() noexcept {
    application.responders().menuNeedsUpdate(*opened);
  });
  addMenu(menu);
}

}  // namespace tarnwell::host_qt
