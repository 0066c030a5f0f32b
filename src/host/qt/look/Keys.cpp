#include "host/qt/look/Keys.h"

#include <QtGui/QKeyEvent>
#include <array>
#include <string_view>

#include "host/qt/look/Conversions.h"
#include "kit/host/KeyEvent.h"

namespace tarnwell::host_qt {
namespace {

std::string charactersOf(const QKeyEvent& event) {
  switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return kit::returnKey;
    case Qt::Key_Escape:
      return kit::escapeKey;
    case Qt::Key_Up:
      return kit::upArrowKey;
    case Qt::Key_Down:
      return kit::downArrowKey;
    case Qt::Key_Left:
      return kit::leftArrowKey;
    case Qt::Key_Right:
      return kit::rightArrowKey;
    case Qt::Key_Home:
      return kit::homeKey;
    case Qt::Key_End:
      return kit::endKey;
    case Qt::Key_PageUp:
      return kit::pageUpKey;
    case Qt::Key_PageDown:
      return kit::pageDownKey;
    default:
      break;
  }
  // A letter with Control held has no text, so the key itself is asked. Shift is no modifier that is left out.
  if (event.key() >= Qt::Key_Space && event.key() < Qt::Key_Escape) {
    const QString key(QChar(event.key()));
    return (event.modifiers().testFlag(Qt::ShiftModifier) ? key : key.toLower()).toStdString();
  }
  return event.text().toStdString();
}

/// As menus show it: a letter in upper case, as on the key.
QString keyShownInMenus(std::string_view key) { return toQString(key).toUpper(); }

struct Modifier {
  unsigned flag = 0;
  const char* shown = "";
  const char* name = "";
};

// In the order in which desktops write them.
constexpr std::array<Modifier, 4> shownModifiers = {
    Modifier{.flag = kit::commandFlag, .shown = "Ctrl", .name = "Control"},
    Modifier{.flag = kit::controlFlag, .shown = "Meta", .name = "Super"},
    Modifier{.flag = kit::optionFlag, .shown = "Alt", .name = "Alt"},
    Modifier{.flag = kit::shiftFlag, .shown = "Shift", .name = "Shift"}};

QStringList parts(const kit::MenuItem::KeyEquivalent& equivalent, const char* Modifier::*wording) {
  if (equivalent.key.empty()) {
    return {};
  }
  QStringList parts;
  for (const Modifier& modifier : shownModifiers) {
    if ((equivalent.modifierFlags & modifier.flag) != 0) {
      parts += QString::fromLatin1(modifier.*wording);
    }
  }
  return parts + QStringList{keyShownInMenus(equivalent.key)};
}

}  // namespace

kit::KeyEvent toKeyEvent(const QKeyEvent& event) {
  const Qt::KeyboardModifiers modifiers = event.modifiers();
  unsigned flags = 0;
  flags |= modifiers.testFlag(Qt::ShiftModifier) ? kit::shiftFlag : 0;
  flags |= modifiers.testFlag(Qt::ControlModifier) ? kit::commandFlag : 0;
  flags |= modifiers.testFlag(Qt::AltModifier) ? kit::optionFlag : 0;
  flags |= modifiers.testFlag(Qt::MetaModifier) ? kit::controlFlag : 0;
  const std::string characters = charactersOf(event);
  return {.charactersIgnoringModifiers = characters,
          .modifierFlags = flags,
          .shownInMenus = keyShownInMenus(characters).toStdString()};
}

QString keyEquivalentText(const kit::MenuItem::KeyEquivalent& equivalent) {
  return parts(equivalent, &Modifier::shown).join('+');
}

QStringList keyEquivalentNames(const kit::MenuItem::KeyEquivalent& equivalent) {
  return parts(equivalent, &Modifier::name);
}

}  // namespace tarnwell::host_qt
