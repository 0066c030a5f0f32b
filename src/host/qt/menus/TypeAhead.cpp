#include "host/qt/menus/TypeAhead.h"

#include <QtGui/QKeyEvent>
#include <QtWidgets/QMenu>
#include <algorithm>

namespace tarnwell::host_qt {
namespace {

constexpr quint64 longestPause = 1000;

// From row `first` on, beginning again at the top.
std::optional<int> beginningWith(const QString& prefix, const QStringList& titles, int first) {
  const int count = static_cast<int>(titles.size());
  for (int step = 0; step < count; ++step) {
    const int row = (first + step) % count;
    if (titles.at(row).startsWith(prefix, Qt::CaseInsensitive)) {
      return row;
    }
  }
  return std::nullopt;
}

// Empty where nothing can be chosen.
QString titleOf(const QAction& action) {
  const bool canBeChosen = action.isEnabled() && !action.isSeparator();
  return canBeChosen ? action.text().replace(QStringLiteral("&&"), QStringLiteral("&")) : QString();
}

}  // namespace

std::optional<int> TypeAhead::rowFor(const QKeyEvent& key, const QStringList& titles, int current) {
  const bool goesOn = this->goesOn(key);
  last_ = key.timestamp();
  typed_ = goesOn ? typed_ + key.text() : key.text();
  if (goesOn) {
    if (const auto same = beginningWith(typed_, titles, std::max(current, 0))) {
      return same;
    }
    typed_ = key.text();
  }
  return beginningWith(typed_, titles, current + 1);
}

bool TypeAhead::choose(const QKeyEvent& key, QMenu& menu) {
  const QList<QAction*> rows = menu.actions();
  QStringList titles;
  for (const QAction* row : rows) {
    titles += titleOf(*row);
  }
  if (!isTyping(key, titles)) {
    return false;
  }
  if (const auto row = rowFor(key, titles, static_cast<int>(rows.indexOf(menu.activeAction())))) {
    menu.setActiveAction(rows.at(*row));
  }
  return true;
}

bool TypeAhead::isTyping(const QKeyEvent& key, const QStringList& titles) const {
  const bool plain = (key.modifiers() & ~Qt::KeyboardModifiers(Qt::ShiftModifier | Qt::KeypadModifier)) == 0;
  const QString text = key.text();
  if (!plain || text.isEmpty()) {
    return false;
  }
  // Otherwise a blank presses what has the keyboard.
  const bool isWithin = text.at(0) == ' ' && goesOn(key) && beginningWith(typed_ + text, titles, 0);
  return isWithin || text.at(0).isLetterOrNumber();
}

bool TypeAhead::goesOn(const QKeyEvent& key) const {
  return !typed_.isEmpty() && key.timestamp() - last_ <= longestPause;
}

}  // namespace tarnwell::host_qt
