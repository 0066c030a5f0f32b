#include "host/headless/HeadlessPlatform.h"

#include <poll.h>

#include <cstdlib>

#include "kit/application/Application.h"

namespace tarnwell::host_headless {

HeadlessPlatform::HeadlessPlatform(kit::Product product) : product_(std::move(product)) {
  host_.setKeyWindowAction([this](kit::Window* window) {
    if (kit::Application::isThere()) {
      kit::Application::shared().windows().setKeyWindow(traits_.isInBackground ? nullptr : window);
    }
  });
}

void HeadlessPlatform::launch(kit::Application& application, const kit::AppleEvent& event) {
  traits_.currentAppleEvent = event;
  application.finishLaunching();
  traits_.currentAppleEvent.reset();
}

int HeadlessPlatform::run(kit::Application& application) {
  launch(application, {.eventID = kit::openApplicationEvent});
  runUntilIdle(application);
  return EXIT_SUCCESS;
}

kit::Subscription HeadlessPlatform::watch(int descriptor, kit::Action readable) {
  watched_[descriptor] = std::move(readable);
  return kit::Subscription([this, descriptor] { watched_.erase(descriptor); });
}

void HeadlessPlatform::runUntilIdle(kit::Application& application) {
  while (!terminated_ && (turnIsDue_ || hearDescriptors())) {
    if (std::exchange(turnIsDue_, false)) {
      application.events().runTurn();
    }
  }
}

bool HeadlessPlatform::hearDescriptors() {
  for (const auto& [descriptor, readable] : watched_) {
    pollfd asked{.fd = descriptor, .events = POLLIN, .revents = 0};
    if (::poll(&asked, 1, 0) > 0) {
      // It may end its own subscription.
      const kit::Action heard = readable;
      heard();
      return true;
    }
  }
  return false;
}

void HeadlessPlatform::wakeUp(kit::Application& /*application*/) { turnIsDue_ = true; }

void HeadlessPlatform::activateIgnoringOtherApps() { journal().note("activate"); }

void HeadlessPlatform::startAgainAtEnd() { journal().note("startAgainAtEnd"); }

void HeadlessPlatform::terminate(kit::Application& application) {
  journal().note("terminate");
  end(application);
}

void HeadlessPlatform::end(kit::Application& application) {
  terminated_ = true;
  application.willTerminate();
}

void HeadlessPlatform::orderFrontStandardAboutPanel(kit::Application& /*application*/) {
  journal().note("about panel");
}

void HeadlessPlatform::openUrl(const std::string& address) { journal().note("open " + address); }

void HeadlessPlatform::showMainMenu(kit::Application& application) {
  journal().note("main menu shown");
  mainMenu_ = &application.mainMenu();
}

std::unique_ptr<kit::StatusItemPeer> HeadlessPlatform::peer(kit::StatusItem& item) {
  return std::make_unique<HeadlessStatusItemPeer>(journal(), statusBar_, item);
}

std::unique_ptr<kit::UpdaterController> HeadlessPlatform::makeUpdaterController(
    kit::Application& /*application*/, const kit::UpdaterControllerArguments& arguments) {
  journal().note(arguments.startingUpdater ? "updater controller made" : "updater controller made, not started");
  return std::make_unique<HeadlessUpdaterController>(updater_);
}

}  // namespace tarnwell::host_headless
