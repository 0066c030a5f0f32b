#pragma once

#include <any>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <typeindex>
#include <vector>

#include "kit/application/Event.h"
#include "kit/application/Menu.h"
#include "kit/turn/MainQueue.h"
#include "kit/turn/NotificationCenter.h"
#include "kit/turn/Object.h"
#include "kit/turn/Observers.h"
#include "kit/turn/Turn.h"

namespace tarnwell::kit {

class Platform;
class Window;

/// The one application object: events, the work queue, windows, the main menu, and the end of the responder chain. What
/// exists once a process is held here, so that each test has its own.
class Application final : public Object {
 public:
  /// The platform is borrowed and outlives the application.
  static std::shared_ptr<Application> create(Platform& platform);
  ~Application() override;

  /// The application of this process: the last one created, null when it has gone.
  static Application* shared();

  /// The one object of type `T` that belongs to this application, made by `make` when it is first asked for.
  template <class T, class Make>
  std::shared_ptr<T> single(const Make& make) {
    std::any& object = singles_[typeid(T)];
    if (!object.has_value()) {
      object = std::shared_ptr<T>(make());
    }
    return std::any_cast<std::shared_ptr<T>>(object);
  }

  Platform& platform() const { return platform_; }
  Turn& turn() { return turn_; }
  MainQueue& mainQueue() { return mainQueue_; }
  NotificationCenter& notificationCenter() { return notifications_; }
  Menu& mainMenu() { return mainMenu_; }

  std::shared_ptr<Object> delegate() const { return delegate_.lock(); }
  void setDelegate(const std::shared_ptr<Object>& delegate) { delegate_ = delegate; }

  // Windows.

  /// Those on the screen, in the order in which they came.
  const std::vector<Window*>& windows() const { return windows_; }
  void addWindow(Window& window);
  void removeWindow(Window& window);
  enum class Observation { ofChanges, initialToo };

  /// Hears of each change of the list and, with `initialToo`, of the list as it is now, before this returns.
  [[nodiscard]] Subscription observeWindows(const std::function<void(Application&)>& changed,
                                            Observation observation = Observation::ofChanges);

  /// The one that keys go to: the last that came to the front. Null without windows, and while something that is no
  /// window of the application's own has the keyboard, such as a panel of the platform's.
  Window* keyWindow() const { return keyWindow_; }
  void setKeyWindow(Window& window) { keyWindow_ = &window; }
  void resignKeyWindow() { keyWindow_ = nullptr; }

  // Events.

  /// The event, or nothing where the platform cannot make one.
  std::optional<Event> makeEvent(Event event) const;
  /// Into the queue, to be handled in a later turn.
  void postEvent(const Event& event, bool atStart);
  const std::deque<Event>& postedEvents() const { return events_; }
  /// The event being handled; null between events.
  const Event* currentEvent() const { return currentEvent_; }
  /// Runs `handle` with `event` as the current one.
  void sendEvent(const Event& event, const Action& handle);

  /// One turn of the main loop: the first posted event, then the work that was queued. Everything settles after each.
  void runTurn();
  bool hasWork() const { return !events_.empty() || !mainQueue_.isEmpty(); }

  /// The entry that a key chooses: of the menu that opened last or of the main menu, each in order. Null without one.
  std::shared_ptr<MenuItem> itemMatching(const KeyEvent& event) const;
  /// Where keys that no focused control wants are matched: the entries of menus, then the key window.
  bool performKeyEquivalent(const KeyEvent& event);

  /// A menu that is not the main one opens: its entries are made, unless it is open already, and its keys come first.
  /// It must live until it closes; those close first that opened last.
  void menuOpens(Menu& menu);
  void menuCloses() { openMenus_.pop_back(); }

  /// For a host that shows menus itself: opens one and runs `show` as a nested loop, which ends when it has closed.
  void trackMenu(Menu& menu, const Action& show);

  // Actions.

  /// To `target` or, where that is null, to the first of the responder chain that responds: the key window's focused
  /// control, the key window, the application, its delegate. False when none did.
  bool sendAction(const Selector& action, const std::shared_ptr<Object>& target, Object* sender);

  /// Whether choosing the entry would do anything.
  bool canChoose(const MenuItem& item) const;
  void choose(const std::shared_ptr<MenuItem>& item);

  /// Tells the delegate that the application runs. A host calls it once, before its event loop.
  void finishLaunching();
  void activateIgnoringOtherApps(bool flag);

  /// What is done when the user starts the application that runs already, of which `reopen` tells. One at a time.
  void setReopenAction(Action reopen) { reopen_ = std::move(reopen); }
  void reopen();

  /// Tells the delegate, then ends the event loop.
  void terminate(Object* sender);
  void orderFrontStandardAboutPanel(Object* sender);

  bool respondsToSelector(const Selector& selector) const override;
  void perform(const Selector& selector, Object* sender) override;

 private:
  explicit Application(Platform& platform);

  bool giveToKeyWindow(const KeyEvent& event);
  Object* responderFor(const Selector& action) const;
  void tellDelegate(const Selector& selector, Object* sender);

  Platform& platform_;
  Turn turn_;
  MainQueue mainQueue_;
  NotificationCenter notifications_;
  Menu mainMenu_;
  std::weak_ptr<Object> delegate_;
  std::vector<Window*> windows_;
  Observers<Application&> windowObservers_;
  std::deque<Event> events_;
  const Event* currentEvent_ = nullptr;
  Window* keyWindow_ = nullptr;
  std::vector<Menu*> openMenus_;
  Action reopen_;
  std::map<std::type_index, std::any> singles_;
};

}  // namespace tarnwell::kit
