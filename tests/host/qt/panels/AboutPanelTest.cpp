#include "host/qt/panels/AboutPanel.h"

#include <gtest/gtest.h>

#include <QtCore/QEventLoop>
#include <QtWidgets/QApplication>
#include <array>
#include <string>

#include "fixtures/Subprocess.h"
#include "host/qt/QtApplication.h"

// Each test has a process of its own, in which no window has been active yet.
namespace tarnwell::host_qt {
namespace {

std::unique_ptr<QtApplication> started() {
  static std::string name = "test";
  static std::array<char*, 2> arguments = {name.data(), nullptr};
  return QtApplication::create(1, arguments.data());
}

TEST(AboutPanelTest, doesNotBringTheProgramToTheFront) {
  EXPECT_EQ(fixtures::exitStatusOf([] {
              const auto application = started();
              AboutPanel panel({.name = "Tarnwell", .version = "1", .copyright = "©"});
              panel.orderFront(Panel::Manner::quiet);
              return panel.isVisible() && panel.testAttribute(Qt::WA_ShowWithoutActivating) ? 0 : 1;
            }),
            0);
}

TEST(AboutPanelTest, takesTheKeyboardWhereTheProgramIsInFront) {
  EXPECT_EQ(fixtures::exitStatusOf([] {
              const auto application = started();
              AboutPanel panel({.name = "Tarnwell", .version = "1", .copyright = "©"});
              panel.orderFront(Panel::Manner::inFront);
              return panel.isVisible() && !panel.testAttribute(Qt::WA_ShowWithoutActivating) ? 0 : 1;
            }),
            0);
}

}  // namespace
}  // namespace tarnwell::host_qt
