#include "kit/application/ResponderChain.h"

#include <algorithm>

#include "kit/control/Window.h"

namespace tarnwell::kit {

std::shared_ptr<MenuItem> ResponderChain::itemMatching(const KeyEvent& event) const {
  const auto isOffered = [this](const MenuItem& found) { return canChoose(found); };
  auto item = openMenus_.empty() ? nullptr : openMenus_.back()->itemMatching(event, isOffered);
  return item ? item : mainMenu_.itemMatching(event, isOffered);
}

bool ResponderChain::performKeyEquivalent(const KeyEvent& event) {
  if (const auto item = itemMatching(event)) {
    choose(item);
    return true;
  }
  return giveToKeyWindow(event);
}

bool ResponderChain::giveToKeyWindow(const KeyEvent& event) {
  bool meant = false;
  const Action give = [&] { meant = windows_.keyWindow() != nullptr && windows_.keyWindow()->keyDown(event); };
  if (turn_.isPerforming()) {
    // A posted key. It is an event of its own for the window, which needs what a commit changes to settle.
    turn_.nestedLoop(give);
  } else {
    give();
  }
  return meant;
}

void ResponderChain::menuNeedsUpdate(Menu& menu) {
  if (std::ranges::find(openMenus_, &menu) == openMenus_.end()) {
    turn_.perform([&menu] { menu.willOpen(); });
  }
}

// Of two menus side by side the platform may open the next one before it closes the last.
void ResponderChain::menuCloses(Menu& menu) {
  const auto last = std::find(openMenus_.rbegin(), openMenus_.rend(), &menu);
  if (last != openMenus_.rend()) {
    openMenus_.erase(std::next(last).base());
  }
}

void ResponderChain::trackMenu(Menu& menu, const Action& show) {
  menuNeedsUpdate(menu);
  menuOpens(menu);
  turn_.nestedLoop(show);
  menuCloses(menu);
}

bool ResponderChain::sendAction(const Selector& action, const std::shared_ptr<Object>& target, Object* sender) {
  Object* receiver = target ? target.get() : responderFor(action);
  if (receiver == nullptr || !receiver->respondsToSelector(action)) {
    return false;
  }
  // The action may make its owner let go of it.
  const auto keptAlive = receiver->weak_from_this().lock();
  turn_.perform([&] { receiver->perform(action, sender); });
  return true;
}

bool ResponderChain::canChoose(const MenuItem& item) const {
  if (!item.isEnabled() || item.isSeparator()) {
    return false;
  }
  if (item.handler() || item.submenu()) {
    return true;
  }
  const auto target = item.target();
  return target ? target->respondsToSelector(item.action()) : responderFor(item.action()) != nullptr;
}

void ResponderChain::choose(const std::shared_ptr<MenuItem>& item) {
  turn_.perform([this, item] {
    if (!canChoose(*item)) {
      return;
    }
    if (const Action handler = item->handler()) {
      handler();
    } else {
      sendAction(item->action(), item->target(), item.get());
    }
  });
}

Object* ResponderChain::responderFor(const Selector& action) const {
  if (Window* window = windows_.keyWindow(); window != nullptr && window->respondsToSelector(action)) {
    return window;
  }
  return application_.respondsToSelector(action) ? &application_ : nullptr;
}

}  // namespace tarnwell::kit
