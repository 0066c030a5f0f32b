#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "host/headless/HeadlessHost.h"
#include "host/headless/HeadlessLog.h"
#include "host/headless/HeadlessLoginItem.h"
#include "host/headless/HeadlessStatusItemPeer.h"
#include "host/headless/HeadlessUpdater.h"
#include "host/headless/PointNumberFormat.h"
#include "kit/application/Platform.h"

namespace tarnwell::host_headless {

/// A system in memory, played by a test: it notes what it is asked in the host's journal, and turns run when the test
/// says so.
class HeadlessPlatform final : public kit::Platform {
 public:
  /// What the system is like; a test changes it at will.
  struct Traits {
    bool makesEvents = true;
    bool hasStatusButtons = true;
    bool hidesApplications = false;
    bool isInBackground = false;  // Another program has the keyboard, whatever window comes.
    kit::SystemVersion systemVersion = {};
    std::shared_ptr<const kit::NumberFormat> numberFormat = std::make_shared<const PointNumberFormat>();
    std::optional<kit::AppleEvent> currentAppleEvent = std::nullopt;
  };

  explicit HeadlessPlatform(kit::Product product = {});

  // For the test.

  Traits& traits() { return traits_; }
  Journal& journal() { return host_.journal(); }
  HeadlessLoginItem& loginItem() { return loginItem_; }
  HeadlessLog& keptLog() { return log_; }
  HeadlessUpdater& updater() { return updater_; }
  /// The icons that are there, oldest first.
  const std::vector<kit::StatusItem*>& statusItems() const { return statusBar_.items; }
  /// What the user does with each menu of an icon.
  void setMenuScript(MenuScript script) { statusBar_.script = std::move(script); }
  /// Null until it is shown.
  kit::Menu* shownMainMenu() const { return mainMenu_; }
  bool hasTerminated() const { return terminated_; }
  /// As at the end of a session.
  void end(kit::Application& application);

  /// Ends the launch, with `event` as the current one meanwhile.
  void launch(kit::Application& application, const kit::AppleEvent& event);
  /// Runs the turns that are due, and what descriptors that can be read are watched for, until there is nothing more to
  /// do or the application has ended.
  void runUntilIdle(kit::Application& application);

  // For the application.

  HeadlessHost& host() override { return host_; }
  const kit::Product& product() const override { return product_; }
  int run(kit::Application& application) override;
  kit::Subscription watch(int descriptor, kit::Action readable) override;
  kit::SystemVersion systemVersion() const override { return traits_.systemVersion; }
  std::shared_ptr<const kit::NumberFormat> numberFormat() const override { return traits_.numberFormat; }
  void wakeUp(kit::Application& application) override;
  void activateIgnoringOtherApps() override;
  void terminate(kit::Application& application) override;
  void startAgainAtEnd() override;
  void orderFrontStandardAboutPanel(kit::Application& application) override;
  void openUrl(const std::string& address) override;
  bool makesEvents() const override { return traits_.makesEvents; }
  void showMainMenu(kit::Application& application) override;
  bool hasStatusButtons() const override { return traits_.hasStatusButtons; }
  bool hidesApplications() const override { return traits_.hidesApplications; }
  std::unique_ptr<kit::StatusItemPeer> peer(kit::StatusItem& item) override;
  std::unique_ptr<kit::UpdaterController> makeUpdaterController(
      kit::Application& application, const kit::UpdaterControllerArguments& arguments) override;
  kit::LoginItem& mainAppService() override { return loginItem_; }
  std::optional<kit::AppleEvent> currentAppleEvent() const override { return traits_.currentAppleEvent; }
  kit::Log& log() override { return log_; }

 private:
  bool hearDescriptors();

  kit::Product product_;
  HeadlessHost host_;
  Traits traits_;
  HeadlessLoginItem loginItem_{host_.journal()};
  HeadlessLog log_;
  HeadlessUpdater updater_{host_.journal()};
  HeadlessStatusItemPeer::StatusBar statusBar_;
  kit::Menu* mainMenu_ = nullptr;
  std::map<int, kit::Action> watched_;
  bool turnIsDue_ = false;
  bool terminated_ = false;
};

}  // namespace tarnwell::host_headless
