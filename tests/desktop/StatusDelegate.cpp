#include <cstdlib>

#include "host/headless/HeadlessLog.h"
#include "host/headless/HeadlessLoginItem.h"
#include "host/headless/Journal.h"
#include "host/qt/platform/QtApplication.h"
#include "host/qt/platform/QtPlatform.h"
#include "kit/application/Application.h"
#include "kit/turn/ClassRegistry.h"

using namespace tarnwell;

// A program whose application has the delegate that the released one leaves alone.
int main(int argc, char** argv) {  // NOLINT(bugprone-exception-escape): what is thrown past here is a fault
  const auto toolkit = host_qt::QtApplication::create(argc, argv);
  if (!toolkit) {
    return EXIT_FAILURE;
  }
  host_headless::Journal journal;
  host_headless::HeadlessLoginItem loginItem(journal);
  host_headless::HeadlessLog log;
  host_qt::QtPlatform platform(*toolkit, {.product = {.name = "Tarnwell"}, .loginItem = &loginItem, .log = &log});
  const auto application = kit::Application::create(platform);
  platform.showMainMenu(*application);
  const auto delegate = kit::ClassRegistry::make("AppDelegate", *application);
  application->setDelegate(delegate);
  const int status = platform.run(*application);
  application->setDelegate(nullptr);
  return status;
}
