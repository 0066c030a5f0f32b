#include "kit/application/Application.h"

#include <algorithm>
#include <utility>

#include "kit/application/Platform.h"
#include "kit/controls/Window.h"

namespace tarnwell::kit {
namespace {

Application* sharedApplication = nullptr;

}  // namespace

std::shared_ptr<Application> Application::create(Platform& platform) {
  std::shared_ptr<Application> application(new Application(platform));
  sharedApplication = application.get();
  return application;
}

Application::~Application() {
  if (sharedApplication == this) {
    sharedApplication = nullptr;
  }
}

Application* Application::shared() { return sharedApplication; }

Application::Application(Platform& platform) : platform_(platform), mainQueue_([this] { platform_.wakeUp(*this); }) {}

void Application::addWindow(Window& window) {
  keyWindow_ = &window;
  if (std::find(windows_.begin(), windows_.end(), &window) == windows_.end()) {
    windows_.push_back(&window);
    windowObservers_.tell(*this);
  }
}

void Application::removeWindow(Window& window) {
  if (std::erase(windows_, &window) == 0) {
    return;
  }
  if (keyWindow_ == &window) {
    keyWindow_ = windows_.empty() ? nullptr : windows_.back();
  }
  windowObservers_.tell(*this);
}

Subscription Application::observeWindows(const std::function<void(Application&)>& changed, Observation observation) {
  Subscription subscription = windowObservers_.add(changed);
  if (observation == Observation::initialToo) {
    changed(*this);
  }
  return subscription;
}

std::optional<Event> Application::makeEvent(Event event) const {
  return platform_.makesEvents() ? std::optional(std::move(event)) : std::nullopt;
}

void Application::postEvent(const Event& event, bool atStart) {
  if (atStart) {
    events_.push_front(event);
  } else {
    events_.push_back(event);
  }
  platform_.wakeUp(*this);
}

void Application::sendEvent(const Event& event, const Action& handle) {
  turn_.perform([&] {
    const Event* outer = std::exchange(currentEvent_, &event);
    handle();
    currentEvent_ = outer;
  });
}

void Application::runTurn() {
  if (!events_.empty()) {
    const Event event = std::move(events_.front());
    events_.pop_front();
    if (event.type == Event::Type::keyDown) {
      sendEvent(event, [this, &event] { performKeyEquivalent(event.key()); });
    }
  }
  if (!mainQueue_.isEmpty()) {
    // An event of its own: the work finds what the first one opened.
    turn_.perform([this] { mainQueue_.drain(); });
  }
  if (hasWork()) {
    platform_.wakeUp(*this);
  }
}

std::shared_ptr<MenuItem> Application::itemMatching(const KeyEvent& event) const {
  const auto isOffered = [this](const MenuItem& found) { return canChoose(found); };
  auto item = openMenus_.empty() ? nullptr : openMenus_.back()->itemMatching(event, isOffered);
  return item ? item : mainMenu_.itemMatching(event, isOffered);
}

bool Application::performKeyEquivalent(const KeyEvent& event) {
  if (const auto item = itemMatching(event)) {
    choose(item);
    return true;
  }
  return giveToKeyWindow(event);
}

bool Application::giveToKeyWindow(const KeyEvent& event) {
  bool meant = false;
  const Action give = [&] { meant = keyWindow_ != nullptr && keyWindow_->keyDown(event); };
  if (turn_.isPerforming()) {
    // A posted key. It is an event of its own for the window, which needs what a commit changes to settle.
    turn_.nestedLoop(give);
  } else {
    give();
  }
  return meant;
}

void Application::menuOpens(Menu& menu) {
  if (std::ranges::find(openMenus_, &menu) == openMenus_.end()) {
    turn_.perform([&menu] { menu.willOpen(); });
  }
  openMenus_.push_back(&menu);
}

void Application::trackMenu(Menu& menu, const Action& show) {
  menuOpens(menu);
  turn_.nestedLoop(show);
  menuCloses();
}

bool Application::sendAction(const Selector& action, const std::shared_ptr<Object>& target, Object* sender) {
  Object* receiver = target ? target.get() : responderFor(action);
  if (receiver == nullptr || !receiver->respondsToSelector(action)) {
    return false;
  }
  // The action may make its owner let go of it.
  const auto keptAlive = receiver->weak_from_this().lock();
  turn_.perform([&] { receiver->perform(action, sender); });
  return true;
}

bool Application::canChoose(const MenuItem& item) const {
  if (!item.isEnabled() || item.isSeparator()) {
    return false;
  }
  if (item.handler() || item.submenu()) {
    return true;
  }
  const auto target = item.target();
  return target ? target->respondsToSelector(item.action()) : responderFor(item.action()) != nullptr;
}

void Application::choose(const std::shared_ptr<MenuItem>& item) {
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

void Application::finishLaunching() {
  turn_.perform([this] { tellDelegate("applicationDidFinishLaunching:", this); });
}

void Application::reopen() {
  turn_.perform([reopen = reopen_] {
    if (reopen) {
      reopen();
    }
  });
}

void Application::activateIgnoringOtherApps(bool /*flag*/) { platform_.activate(); }

void Application::terminate(Object* sender) {
  tellDelegate("applicationWillTerminate:", sender);
  platform_.terminate();
}

void Application::orderFrontStandardAboutPanel(Object* /*sender*/) { platform_.orderFrontStandardAboutPanel(*this); }

bool Application::respondsToSelector(const Selector& selector) const {
  return selector == "terminate:" || selector == "orderFrontStandardAboutPanel:";
}

void Application::perform(const Selector& selector, Object* sender) {
  if (selector == "terminate:") {
    terminate(sender);
  } else if (selector == "orderFrontStandardAboutPanel:") {
    orderFrontStandardAboutPanel(sender);
  }
}

Object* Application::responderFor(const Selector& action) const {
  const auto target = delegate();
  // The application is named here as what it is to others, a receiver of actions.
  for (Object* responder :
       {static_cast<Object*>(keyWindow_), const_cast<Object*>(static_cast<const Object*>(this)), target.get()}) {
    if (responder != nullptr && responder->respondsToSelector(action)) {
      return responder;
    }
  }
  return nullptr;
}

void Application::tellDelegate(const Selector& selector, Object* sender) {
  if (const auto target = delegate(); target && target->respondsToSelector(selector)) {
    target->perform(selector, sender);
  }
}

}  // namespace tarnwell::kit
