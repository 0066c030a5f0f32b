#include "host/headless/HeadlessPlatform.h"

#include "kit/application/Application.h"

namespace tarnwell::host_headless {

void HeadlessPlatform::launch(kit::Application& application, const kit::AppleEvent& event) {
  traits_.currentAppleEvent = event;
  application.finishLaunching();
  traits_.currentAppleEvent.reset();
}

void HeadlessPlatform::runUntilIdle(kit::Application& application) {
  while (!terminated_ && std::exchange(turnIsDue_, false)) {
    application.runTurn();
  }
}

void HeadlessPlatform::wakeUp(kit::Application& /*application*/) { turnIsDue_ = true; }

void HeadlessPlatform::activate() { journal().note("activate"); }

void HeadlessPlatform::terminate() {
  journal().note("terminate");
  terminated_ = true;
}

void HeadlessPlatform::orderFrontStandardAboutPanel() { journal().note("about panel"); }

void HeadlessPlatform::openUrl(const std::string& address) { journal().note("open " + address); }

void HeadlessPlatform::showMainMenu(kit::Menu& menu) {
  journal().note("main menu shown");
  mainMenu_ = &menu;
}

std::unique_ptr<kit::StatusItemPeer> HeadlessPlatform::peer(kit::StatusItem& item) {
  return std::make_unique<HeadlessStatusItemPeer>(journal(), statusBar_, item);
}

std::unique_ptr<kit::UpdaterController> HeadlessPlatform::makeUpdaterController(
    const kit::UpdaterControllerArguments& arguments) {
  journal().note(arguments.startingUpdater ? "updater controller made" : "updater controller made, not started");
  return std::make_unique<HeadlessUpdaterController>(updater_);
}

}  // namespace tarnwell::host_headless
