#pragma once

#include <QtCore/QObject>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "host/qt/platform/QtApplication.h"
#include "host/qt/session/PortalSettings.h"
#include "host/qt/session/StartupBarrier.h"
#include "host/qt/tray/TrayWatch.h"
#include "kit/application/Platform.h"

namespace tarnwell::host_qt {

/// A Linux desktop as the application sees it: windows that carry the main menu, status icons in whatever tray there
/// is, the panel about the application.
class QtPlatform final : public kit::Platform {
 public:
  /// What a desktop's toolkit cannot answer. What is pointed to is borrowed, and never null.
  struct Services {
    kit::Product product = {};
    kit::SystemVersion systemVersion = {};
    std::shared_ptr<const kit::NumberFormat> numberFormat = {};
    kit::LoginItem* loginItem = nullptr;
    kit::Log* log = nullptr;
    std::function<std::unique_ptr<kit::UpdaterController>(kit::Application&, const kit::UpdaterControllerArguments&)>
        makeUpdaterController = {};
    /// With which the system has started this process.
    kit::AppleEvent launchEvent = {.eventID = kit::openApplicationEvent};
    /// Has this program started once more when it has ended; nothing where it is empty.
    kit::Action startAgainAtEnd = {};
    /// The identifier of the window that carries the main menu.
    std::string menuWindow = {};
    /// For what the desktop is asked when the application starts.
    std::chrono::milliseconds longestWait{100};
  };

  /// The application is borrowed and outlives the platform.
  QtPlatform(QtApplication& application, Services services);
  QtPlatform(const QtPlatform&) = delete;
  QtPlatform& operator=(const QtPlatform&) = delete;
  ~QtPlatform() override;

  /// Ends the launch.
  void launch(kit::Application& application);

  /// Another start wants to see the application, with an activation token that may be empty.
  void reopen(const std::string& token);

  QtHost& host() override { return application_.host(); }
  const kit::Product& product() const override { return services_.product; }
  int run(kit::Application& application) override;
  kit::Subscription watch(int descriptor, kit::Action readable) override;
  kit::SystemVersion systemVersion() const override { return services_.systemVersion; }
  std::shared_ptr<const kit::NumberFormat> numberFormat() const override { return services_.numberFormat; }
  void wakeUp(kit::Application& application) override;
  kit::Subscription whenReady(const kit::Action& open) override { return startup_.whenOver(open); }
  void activateIgnoringOtherApps() override;
  void terminate(kit::Application& application) override;
  void startAgainAtEnd() override;
  void orderFrontStandardAboutPanel(kit::Application& application) override;
  void openUrl(const std::string& address) override;
  /// In windows that are made from now on. Keys are matched with it from now on.
  void showMainMenu(kit::Application& application) override;
  std::unique_ptr<kit::StatusItemPeer> peer(kit::StatusItem& item) override;
  std::unique_ptr<kit::UpdaterController> makeUpdaterController(
      kit::Application& application, const kit::UpdaterControllerArguments& arguments) override;
  kit::LoginItem& mainAppService() override { return *services_.loginItem; }
  std::optional<kit::AppleEvent> currentAppleEvent() const override { return currentEvent_; }
  kit::Log& log() override { return *services_.log; }

 private:
  std::optional<WindowChrome> makeChrome(kit::Window& window, QWidget& parent);

  QtApplication& application_;
  Services services_;
  StartupBarrier startup_;
  PortalSettings portal_;
  TrayWatch tray_;
  QObject context_;  // Ends what was queued, and what listens to the toolkit.
  std::optional<kit::AppleEvent> currentEvent_;
  bool turnIsDue_ = false;
};

}  // namespace tarnwell::host_qt
