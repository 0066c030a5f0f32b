#include "host/qt/look/KeyEquivalentText.h"

#include <array>

#include "host/qt/look/Conversions.h"
#include "kit/events/Event.h"

namespace tarnwell::host_qt {
namespace {

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

QString keyShownInMenus(std::string_view key) { return toQString(key).toUpper(); }

QString keyEquivalentText(const kit::MenuItem::KeyEquivalent& equivalent) {
  return parts(equivalent, &Modifier::shown).join('+');
}

QStringList keyEquivalentNames(const kit::MenuItem::KeyEquivalent& equivalent) {
  return parts(equivalent, &Modifier::name);
}

}  // namespace tarnwell::host_qt
