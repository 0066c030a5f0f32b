#include "kit/menus/Menu.h"

#include <utility>

namespace tarnwell::kit {

// An entry may outlive its menu: the caller that chose it still holds it.
Menu::~Menu() { releaseItems(); }

void Menu::addItem(std::shared_ptr<MenuItem> item) {
  adopt(item);
  items_.push_back(std::move(item));
  observers_.tell();
}

void Menu::setItems(std::vector<std::shared_ptr<MenuItem>> items) {
  if (items == items_) {
    return;
  }
  releaseItems();
  items_ = std::move(items);
  for (const auto& item : items_) {
    adopt(item);
  }
  observers_.tell();
}

void Menu::willOpen() const {
  if (const Action action = willOpen_) {
    action();
  }
}

void Menu::adopt(const std::shared_ptr<MenuItem>& item) {
  item->setChangeAction([this] { observers_.tell(); });
}

void Menu::releaseItems() {
  for (const auto& item : items_) {
    item->setChangeAction({});
  }
}

}  // namespace tarnwell::kit
