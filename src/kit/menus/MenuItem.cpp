#include "kit/menus/MenuItem.h"

#include <utility>

namespace tarnwell::kit {
namespace {

// Caps lock and the keypad say nothing about what was meant. Shift is in the character, so it may be held anyway.
bool holds(unsigned held, unsigned wanted) {
  constexpr unsigned meant = commandFlag | optionFlag | controlFlag;
  return (held & meant) == (wanted & meant) && ((held & shiftFlag) != 0 || (wanted & shiftFlag) == 0);
}

}  // namespace

std::shared_ptr<MenuItem> MenuItem::create(std::string title, Selector action, std::string keyEquivalent) {
  auto item = std::make_shared<MenuItem>();
  item->title_ = std::move(title);
  item->action_ = std::move(action);
  item->keyEquivalent_.key = std::move(keyEquivalent);
  return item;
}

std::shared_ptr<MenuItem> MenuItem::platformItem(std::string title, Selector action, KeyEquivalent keyEquivalent) {
  auto item = create(std::move(title), std::move(action), {});
  item->keyEquivalent_ = std::move(keyEquivalent);
  item->platforms_ = true;
  return item;
}

std::shared_ptr<MenuItem> MenuItem::separatorItem() {
  auto item = std::make_shared<MenuItem>();
  item->separator_ = true;
  item->enabled_ = false;
  return item;
}

std::shared_ptr<MenuItem> MenuItem::withSubmenu(std::string title, std::shared_ptr<Menu> submenu) {
  auto item = create(std::move(title), {}, {});
  item->submenu_ = std::move(submenu);
  return item;
}

void MenuItem::setTitle(std::string title) {
  if (title != title_) {
    title_ = std::move(title);
    changed();
  }
}

void MenuItem::setKeyEquivalent(KeyEquivalent equivalent) {
  if (equivalent != keyEquivalent_) {
    keyEquivalent_ = std::move(equivalent);
    changed();
  }
}

bool MenuItem::matches(const KeyEvent& event) const {
  const std::string& key = keyEquivalent_.key;
  return !key.empty() && (key == event.charactersIgnoringModifiers || key == event.shownInMenus) &&
         holds(event.modifierFlags, keyEquivalent_.modifierFlags);
}

void MenuItem::setEnabled(bool enabled) {
  if (std::exchange(enabled_, enabled) != enabled) {
    changed();
  }
}

void MenuItem::changed() const {
  if (const Action action = changed_) {
    action();
  }
}

}  // namespace tarnwell::kit
