#include <gtest/gtest.h>

#include <QtCore/QTimer>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMenu>

#include "fixtures/StandardOutputCapture.h"
#include "host/qt/Desktop.h"
#include "host/qt/WidgetDriver.h"
#include "host/qt/session/RunLater.h"
#include "host/qt/tray/FakePanel.h"
#include "kit/turn/ClassRegistry.h"
#include "statusmenu/AppDelegate.h"

namespace tarnwell::scenarios {
namespace {

using Lines = std::vector<std::string>;

/// The delegate that the program does not install, installed by its name on a desktop with a tray.
class QtStatusMenu : public testing::Test {
 protected:
  QtStatusMenu() {
    delegate = kit::ClassRegistry::make("AppDelegate", desktop.application());
    desktop.application().setDelegate(delegate);
    desktop.platform().launch(desktop.application());
  }
  ~QtStatusMenu() override { desktop.application().setDelegate(nullptr); }

  /// Releases a button over the icon and, once the menu stands there, does this with it and closes it. Returns what was
  /// printed until then.
  std::string click(const QString& button, const std::function<void(QMenu&)>& use = {}) {
    const fixtures::StandardOutputCapture output;
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, [&] {
      if (auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget())) {
        use(*menu);
        menu->close();
      }
    });
    watch.start(0);
    panel.press(button);
    EXPECT_TRUE(host_qt::becomes([&output] { return !output.text().empty(); }));
    EXPECT_TRUE(host_qt::becomes([] { return QApplication::activePopupWidget() == nullptr; }));
    return output.text();
  }

  host_qt::FakePanel panel;
  host_qt::Desktop desktop;
  std::shared_ptr<kit::Object> delegate;
};

TEST_F(QtStatusMenu, aLeftClickPrintsLAndOpensNothing) {
  ASSERT_TRUE(panel.hasIcon());
  EXPECT_EQ(click("Activate", [](QMenu&) { FAIL() << "a menu opened"; }), "L\n");
}

TEST_F(QtStatusMenu, aRightClickPrintsRAndShowsTheMenuWhichIsGoneAfterwards) {
  ASSERT_TRUE(panel.hasIcon());
  Lines shown;
  EXPECT_EQ(click("ContextMenu", [&shown](QMenu& menu) { shown = host_qt::linesOf(menu); }), "R\n");
  EXPECT_EQ(shown, (Lines{"Toggle Dock Autohide", "Toggle Scroll to Exposé", "-", "Settings...", "-", "Quit|Ctrl+Q"}));
  EXPECT_EQ(dynamic_cast<statusmenu::AppDelegate&>(*delegate).statusItem->menu(), nullptr);
  EXPECT_EQ(click("Activate", [](QMenu&) { FAIL() << "a menu opened"; }), "L\n");
}

TEST_F(QtStatusMenu, aToggleOnlyPrints) {
  ASSERT_TRUE(panel.hasIcon());
  const std::string printed = click("ContextMenu", [](QMenu& menu) {
    QTest::mouseClick(menu.windowHandle(), Qt::LeftButton, {}, menu.actionGeometry(menu.actions().at(1)).center());
  });
  EXPECT_EQ(printed, "R\nToggle Scroll to Exposé clicked\n");
}

TEST_F(QtStatusMenu, controlQInTheOpenMenuChoosesQuit) {
  ASSERT_TRUE(panel.hasIcon());
  QObject context;
  host_qt::runLater(context, [this] {
    click("ContextMenu", [](QMenu& menu) {
      QTest::keyPress(menu.windowHandle(), Qt::Key_Control);
      QTest::keyClick(menu.windowHandle(), Qt::Key_Q, Qt::ControlModifier);
    });
  });
  EXPECT_EQ(host_qt::testApplication().run(), 0);
}

TEST_F(QtStatusMenu, settingsReachTheSettingsEntryOfTheMainMenu) {
  int opened = 0;
  const auto settings = kit::MenuItem::create("Settings…", "", ",");
  settings->setHandler([&opened] { ++opened; });
  desktop.application().mainMenu().addItem(settings);
  ASSERT_TRUE(panel.hasIcon());
  click("ContextMenu", [](QMenu& menu) {
    QTest::mouseClick(menu.windowHandle(), Qt::LeftButton, {}, menu.actionGeometry(menu.actions().at(3)).center());
  });
  EXPECT_TRUE(host_qt::becomes([&opened] { return opened == 1; }));
}

}  // namespace
}  // namespace tarnwell::scenarios
