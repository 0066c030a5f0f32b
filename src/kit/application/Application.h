#pragma once

#include <any>
#include <map>
#include <memory>
#include <typeindex>

#include "kit/application/ResponderChain.h"
#include "kit/events/EventQueue.h"
#include "kit/turn/NotificationCenter.h"

namespace tarnwell::kit {

class Platform;

/// The one application object, the end of the responder chain. What exists once a process is held here, so that each
/// test has its own.
class Application final : public Object {
 public:
  /// The platform is borrowed and outlives the application.
  static std::shared_ptr<Application> create(Platform& platform);
  ~Application() override;

  /// The application of this process: the last one created. Asking for one that has gone is a fault.
  static Application& shared();
  static bool isThere();

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
  EventQueue& events() { return events_; }
  WindowList& windows() { return windows_; }
  Menu& mainMenu() { return mainMenu_; }
  ResponderChain& responders() { return responders_; }
  NotificationCenter& notificationCenter() { return notifications_; }

  std::shared_ptr<Object> delegate() const { return delegate_.lock(); }
  void setDelegate(const std::shared_ptr<Object>& delegate) { delegate_ = delegate; }

  // What the host tells.

  /// The application runs: the delegate hears of it. Once, before the event loop.
  void finishLaunching();
  /// The user starts the application that runs already, or clicks its icon in the Dock: what observes that hears of it.
  void reopen();
  /// The application ends, asked by `Platform::terminate` or not, and nothing can keep it: the delegate hears of it,
  /// the first time.
  void willTerminate();

  /// About, terminate (which asks the platform to end the application), and what the delegate responds to.
  bool respondsToSelector(const Selector& selector) const override;
  void perform(const Selector& selector, Object* sender) override;

 private:
  explicit Application(Platform& platform);

  void tellDelegate(const Selector& selector, Object* sender);

  Platform& platform_;
  Turn turn_;
  EventQueue events_;
  WindowList windows_;
  Menu mainMenu_;
  ResponderChain responders_{turn_, windows_, mainMenu_, *this};
  NotificationCenter notifications_;
  std::weak_ptr<Object> delegate_;
  std::map<std::type_index, std::any> singles_;
  bool ends_ = false;
};

}  // namespace tarnwell::kit
