#pragma once

#import <AppKit/AppKit.h>

#include <functional>
#include <memory>
#include <optional>

#include "host/macos/MacHost.h"
#include "host/macos/look/ActionTarget.h"
#include "host/macos/look/Retained.h"
#include "host/macos/menus/MenuMirror.h"
#include "host/macos/system/ApplicationDelegate.h"
#include "kit/application/Platform.h"
#include "kit/ports/Updater.h"

namespace tarnwell::host_macos {

/// macOS as the application sees it. One a process, made before anything else of the platform's is used.
class MacPlatform final : public kit::Platform {
 public:
  /// What a test answers in the system's place. Pointers are borrowed; nothing may be null or empty.
  struct Services {
    kit::SystemVersion systemVersion = {};
    std::shared_ptr<const kit::NumberFormat> numberFormat = {};
    kit::LoginItem* loginItem = nullptr;
    kit::Log* log = nullptr;
    std::function<std::unique_ptr<kit::UpdaterController>(kit::Application&, const kit::UpdaterControllerArguments&)>
        makeUpdaterController = {};
    /// Gives an address to what shows it.
    std::function<void(NSURL*)> open = {};
    /// Has this program started once more, by a process that ends now.
    kit::Action startAgain = {};
  };

  MacPlatform(kit::Product product, Services services);
  MacPlatform(const MacPlatform&) = delete;
  MacPlatform& operator=(const MacPlatform&) = delete;
  ~MacPlatform() override;

  MacHost& host() override { return host_; }
  const kit::Product& product() const override { return product_; }
  kit::SystemVersion systemVersion() const override { return services_.systemVersion; }
  std::shared_ptr<const kit::NumberFormat> numberFormat() const override { return services_.numberFormat; }
  /// Does not return: the platform ends the process.
  int run(kit::Application& application) override;
  kit::Subscription watch(int descriptor, kit::Action readable) override;
  void wakeUp(kit::Application& application) override;
  kit::Subscription whenReady(const kit::Action& open) override;
  void activateIgnoringOtherApps() override;
  void terminate(kit::Application& application) override;
  void startAgainAtEnd() override { startsAgain_ = true; }
  void orderFrontStandardAboutPanel(kit::Application& application) override;
  void openUrl(const std::string& address) override;
  void showMainMenu(kit::Application& application) override;
  bool hidesApplications() const override { return true; }
  std::unique_ptr<kit::StatusItemPeer> peer(kit::StatusItem& item) override;
  std::unique_ptr<kit::UpdaterController> makeUpdaterController(
      kit::Application& application, const kit::UpdaterControllerArguments& arguments) override;
  kit::LoginItem& mainAppService() override { return *services_.loginItem; }
  std::optional<kit::AppleEvent> currentAppleEvent() const override;
  kit::Log& log() override { return *services_.log; }

 private:
  void launched();
  void terminates();
  void runTurn();

  kit::Product product_;
  Services services_;
  MacHost host_;
  Retained<TWApplicationDelegate*> delegate_;
  ActionTarget turn_{[this] { runTurn(); }};
  std::unique_ptr<MenuMirror> mainMenu_;
  std::shared_ptr<kit::Action> open_;
  bool hasLaunched_ = false;
  bool turnIsDue_ = false;
  bool startsAgain_ = false;
};

}  // namespace tarnwell::host_macos
