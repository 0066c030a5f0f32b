#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/headless/HeadlessLog.h"
#include "host/headless/HeadlessLoginItem.h"
#include "host/headless/Journal.h"
#include "host/qt/platform/QtPlatform.h"
#include "kit/application/Application.h"
#include "kit/control/Control.h"
#include "kit/control/Window.h"

class QMenu;
class QMenuBar;

namespace tarnwell::host_qt {

/// The toolkit's application of this test program. It lives as long as the tests run, on a session bus of their own.
QtApplication& testApplication();

/// Lets everything happen that waits, until `condition` holds; false when it does not by the deadline.
bool becomes(const std::function<bool()>& condition);

/// An application on a desktop, with a window that carries the main menu.
class Desktop {
 public:
  static constexpr const char* menuWindow = "settings";

  Desktop();
  Desktop(const Desktop&) = delete;
  Desktop& operator=(const Desktop&) = delete;
  ~Desktop();

  QtPlatform& platform() { return platform_; }
  kit::Application& application() { return *application_; }

  /// Adds a menu to the main menu.
  std::shared_ptr<kit::Menu> addMenu(const std::string& title, std::vector<std::shared_ptr<kit::MenuItem>> items);

  /// Made when it is first asked for, with the main menu as it is then; the key window of the application.
  kit::Window& window();
  /// Shows it and waits until it is the active one.
  void showWindow();

  template <class C>
  C& add(std::unique_ptr<C> control, const kit::Rect& frame) {
    C& added = *control;
    put(std::move(control), frame);
    return added;
  }

  QMenuBar& menuBar();
  QMenu& menu(int index);

 private:
  void put(std::unique_ptr<kit::Control> control, const kit::Rect& frame);

  host_headless::Journal journal_;
  host_headless::HeadlessLoginItem loginItem_;
  host_headless::HeadlessLog log_;
  QtPlatform platform_;
  std::shared_ptr<kit::Application> application_;
  std::unique_ptr<kit::Window> window_;
  std::vector<std::unique_ptr<kit::Control>> controls_;
};

/// An entry that runs a closure.
std::shared_ptr<kit::MenuItem> entry(const std::string& title, kit::Action handler,
                                     kit::MenuItem::KeyEquivalent key = {});

/// Entries as a user sees them: "title|keys", "(title)" where it cannot be chosen, "-" for a line between two.
std::vector<std::string> linesOf(const QMenu& menu);

}  // namespace tarnwell::host_qt
