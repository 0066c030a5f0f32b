#include "host/qt/menus/MenuWidget.h"

#include <QtGui/QKeyEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QStyleOption>
#include <algorithm>

#include "host/qt/look/Conversions.h"
#include "host/qt/look/Keys.h"
#include "kit/application/Application.h"

namespace tarnwell::host_qt {
namespace {

// An ampersand of a title is no mnemonic.
QString titleOf(const kit::MenuItem& item) { return toQString(item.title()).replace('&', "&&"); }

void closeOpenMenus() {
  while (QWidget* popup = QApplication::activePopupWidget()) {
    popup->close();
  }
}

}  // namespace

MenuWidget::MenuWidget(kit::Application& application, kit::Menu& menu, const Theme& theme, QWidget* parent)
    : ThemedMenu(theme, parent), application_(application), theme_(theme) {
  setTitle(toQString(menu.title()));
  changes_ = menu.observe([this, &menu] { follow(menu); });
  connect(this, &QMenu::aboutToShow, this, [this]() noexcept {
    for (const auto& [item, action] : rows_) {
      show(*item, *action);
    }
  });
  follow(menu);
}

void MenuWidget::keyPressEvent(QKeyEvent* event) {
  const kit::KeyEvent key = toKeyEvent(*event);
  if ((key.modifierFlags & kit::commandFlag) == 0) {
    ThemedMenu::keyPressEvent(event);
    return;
  }
  // The press of Control alone is one of these, and what chooses nothing leaves the menu open.
  if (const auto item = application_.responders().itemMatching(key)) {
    closeOpenMenus();
    application_.responders().choose(item);
  }
}

QString MenuWidget::keysOf(const QAction& action) const {
  const auto row = std::ranges::find(rows_, &action, &Row::second);
  return row != rows_.end() ? keyEquivalentText(row->first->keyEquivalent()) : QString();
}

void MenuWidget::initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const {
  ThemedMenu::initStyleOption(option, action);
  if (const QString keys = keysOf(*action); !keys.isEmpty()) {
    option->text += '\t' + keys;
  }
}

void MenuWidget::follow(const kit::Menu& menu) {
  const auto shows = [](const auto& row, const Item& item) { return row.first == item; };
  if (!std::ranges::equal(rows_, menu.items(), shows)) {
    rebuild(menu.items());
  }
  for (const auto& [item, action] : rows_) {
    show(*item, *action);
  }
}

void MenuWidget::rebuild(const std::vector<Item>& items) {
  for (const auto& [item, action] : rows_) {
    removeAction(action);
    // It may be what is being chosen.
    action->deleteLater();
  }
  rows_.clear();
  for (const Item& item : items) {
    rows_.emplace_back(item, item->isSeparator() ? addSeparator() : addEntry(item));
  }
}

QAction* MenuWidget::addEntry(const Item& item) {
  if (item->submenu()) {
    return addMenu(new MenuWidget(application_, *item->submenu(), theme_, this));
  }
  QAction* action = addAction(QString());
  connect(action, &QAction::triggered, this,
          [&application = application_, item]() noexcept { application.responders().choose(item); });
  return action;
}

void MenuWidget::show(const kit::MenuItem& item, QAction& action) const {
  if (!item.isSeparator()) {
    action.setText(titleOf(item));
    action.setEnabled(application_.responders().canChoose(item));
  }
}

}  // namespace tarnwell::host_qt
