#include "about/AboutWindow.h"

#include <gtest/gtest.h>

#include "fixtures/ExpectDump.h"
#include "host/headless/HeadlessPlatform.h"
#include "kit/Printing.h"
#include "kit/application/Application.h"
#include "view/Dump.h"
#include "view/scenes/Panel.h"

namespace tarnwell::about {
namespace {

TEST(AboutWindow, readsAsDesigned) {
  host_headless::HeadlessPlatform platform({.name = "Tarnwell", .version = "1.2", .copyright = "© 2026 Its makers"});
  const auto application = kit::Application::create(platform);
  orderFrontAboutWindow(*application, true);
  const auto panel = application->single<view::Panel>([] { return std::shared_ptr<view::Panel>(); });
  EXPECT_EQ(panel->window().contentSize(), (kit::Size{.width = 300, .height = 234}));
  fixtures::expectDump("about/AboutWindow.dump", view::dump(panel->tree().root()));
}

}  // namespace
}  // namespace tarnwell::about
