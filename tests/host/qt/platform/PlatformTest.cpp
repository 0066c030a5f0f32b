#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QtCore/QTimer>
#include <QtGui/QWindow>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMenu>

#include "host/qt/Desktop.h"
#include "host/qt/WidgetDriver.h"
#include "kit/application/StatusItem.h"
#include "kit/menus/Menu.h"
#include "view/scenes/Panel.h"

namespace tarnwell::host_qt {
namespace {

class RecordingDelegate final : public kit::Object {
 public:
  explicit RecordingDelegate(Desktop& desktop) {
    respondTo("applicationDidFinishLaunching:",
              [this, &desktop](kit::Object* /*sender*/) { event = desktop.platform().currentAppleEvent(); });
  }

  std::optional<kit::AppleEvent> event;
};

/// Once it was shown.
kit::Window& aboutWindow(Desktop& desktop) {
  return desktop.application().single<view::Panel>([] { return std::shared_ptr<view::Panel>(); })->window();
}

TEST(PlatformTest, queuedWorkRunsFromTheEventLoop) {
  Desktop desktop;
  int runs = 0;
  desktop.application().events().async([&runs] { ++runs; });
  desktop.application().events().async([&runs] { ++runs; });
  EXPECT_EQ(runs, 0);
  QApplication::processEvents();
  EXPECT_EQ(runs, 2);
}

TEST(PlatformTest, queuedWorkRunsWhileAMenuIsOpen) {
  Desktop desktop;
  const auto menu = std::make_shared<kit::Menu>();
  menu->addItem(entry("Entry", [] {}));
  bool ranInside = false;
  bool isOpen = false;
  kit::StatusItem item(desktop.application(), kit::StatusItem::variableLength, "Item");
  item.setMenu(menu);
  desktop.application().events().async([&] {
    ranInside = isOpen;
    QApplication::activePopupWidget()->close();
  });
  isOpen = true;
  item.performClick();
  isOpen = false;
  EXPECT_TRUE(ranInside);
}

TEST(PlatformTest, workOfAnApplicationThatIsGoneIsNotRun) {
  Desktop desktop;
  bool ran = false;
  auto second = kit::Application::create(desktop.platform());
  second->events().async([&ran] { ran = true; });
  second.reset();
  QApplication::processEvents();
  EXPECT_FALSE(ran);
}

TEST(PlatformTest, terminatingEndsTheEventLoop) {
  Desktop desktop;
  QTimer::singleShot(0, [&desktop] { desktop.application().perform("terminate:", nullptr); });
  EXPECT_EQ(testApplication().run(), 0);
}

TEST(PlatformTest, terminatingBeforeTheEventLoopBeginsEndsItAtOnce) {
  Desktop desktop;
  desktop.application().perform("terminate:", nullptr);
  EXPECT_EQ(testApplication().run(), 0);
}

TEST(PlatformTest, terminatingFromAnOpenMenuEndsAllLoops) {
  Desktop desktop;
  const auto menu = std::make_shared<kit::Menu>();
  menu->addItem(kit::MenuItem::create("Quit", "terminate:", "Q"));
  kit::StatusItem item(desktop.application(), kit::StatusItem::variableLength, "Item");
  item.setMenu(menu);
  QTimer::singleShot(0, [&item] { item.performClick(); });
  desktop.application().events().async([&] {
    desktop.application().events().async([&] { desktop.application().responders().choose(menu->items().front()); });
  });
  EXPECT_EQ(testApplication().run(), 0);
  EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

TEST(PlatformTest, eventOfTheStartIsTheCurrentOneDuringTheLaunchAlone) {
  Desktop desktop;
  const auto delegate = std::make_shared<RecordingDelegate>(desktop);
  desktop.application().setDelegate(delegate);
  desktop.platform().launch(desktop.application());
  ASSERT_TRUE(delegate->event.has_value());
  EXPECT_EQ(delegate->event->eventID, kit::openApplicationEvent);
  EXPECT_FALSE(desktop.platform().currentAppleEvent().has_value());
}

TEST(PlatformTest, programIsKnownByItsIdentifier) {
  const Desktop desktop;
  EXPECT_EQ(QApplication::desktopFileName(), "example.tarnwell.Tarnwell");
  EXPECT_EQ(QApplication::applicationVersion(), "1.2.3");
  EXPECT_FALSE(QApplication::windowIcon().isNull());
}

TEST(PlatformTest, theActiveWindowIsTheKeyWindow) {
  Desktop desktop;
  desktop.showWindow();
  kit::Window second("second", "Second");
  second.setContentSize({.width = 100, .height = 100});
  second.attach(desktop.platform().host().peer(second));
  desktop.application().windows().add(second);
  second.setVisible(true);
  ASSERT_TRUE(becomes([&] { return desktop.application().windows().keyWindow() == &second; }));
  desktop.window().peer()->orderFront();
  EXPECT_TRUE(becomes([&] { return desktop.application().windows().keyWindow() == &desktop.window(); }));
  desktop.application().windows().remove(second);
  second.attach(nullptr);
}

TEST(PlatformTest, windowsGoOutOfTheWayAndComeBack) {
  Desktop desktop;
  desktop.showWindow();
  desktop.window().peer()->miniaturize();
  EXPECT_TRUE(driver::widget(desktop.window()).isMinimized());
  desktop.window().peer()->orderFront();
  EXPECT_FALSE(driver::widget(desktop.window()).isMinimized());
}

TEST(PlatformTest, aWindowOfOneSizeDoesNotStayMaximized) {
  bool hasGone = false;
  Desktop desktop;
  desktop.showWindow();
  const QWidget& widget = driver::widget(desktop.window());
  QObject::connect(widget.windowHandle(), &QWindow::visibleChanged, [&](bool visible) { hasGone |= !visible; });
  widget.windowHandle()->setWindowStates(Qt::WindowMaximized);
  EXPECT_TRUE(becomes([&] { return hasGone && widget.isVisible() && widget.updatesEnabled(); }));
  EXPECT_FALSE(widget.isMaximized());
  EXPECT_EQ(widget.size(), widget.minimumSize());
}

TEST(PlatformTest, aWindowOfOneSizeDoesNotStayMaximizedWhenThatIsAskedAgainAtOnce) {
  int came = 0;
  Desktop desktop;
  desktop.showWindow();
  const QWidget& widget = driver::widget(desktop.window());
  QObject::connect(widget.windowHandle(), &QWindow::visibleChanged, [&](bool visible) { came += visible ? 1 : 0; });
  widget.windowHandle()->setWindowStates(Qt::WindowMaximized);
  ASSERT_TRUE(becomes([&] { return came == 1 && widget.updatesEnabled(); }));
  widget.windowHandle()->setWindowStates(Qt::WindowMaximized);
  EXPECT_TRUE(becomes([&] { return came == 2 && widget.updatesEnabled(); }));
  EXPECT_FALSE(widget.isMaximized());
}

TEST(PlatformTest, aDesktopThatInsistsOnMaximizingGetsItsSize) {
  Desktop desktop;
  desktop.showWindow();
  const QWidget& widget = driver::widget(desktop.window());
  QWindow* window = widget.windowHandle();
  QTimer desire;
  QObject::connect(&desire, &QTimer::timeout, [&] { window->setWindowStates(Qt::WindowMaximized); });
  desire.start(0);
  EXPECT_TRUE(becomes([&] {
    return widget.isMaximized() && widget.updatesEnabled() && widget.maximumWidth() > widget.minimumWidth();
  }));
}

TEST(PlatformTest, aWindowOfAHigherLevelStaysOnTop) {
  Desktop desktop;
  desktop.showWindow();
  const QWidget& widget = driver::widget(desktop.window());
  desktop.window().setLevel(3);
  EXPECT_TRUE(widget.windowHandle()->flags().testFlag(Qt::WindowStaysOnTopHint));
  EXPECT_TRUE(widget.isVisible());
  desktop.window().setLevel(kit::Window::normalLevel);
  EXPECT_FALSE(widget.windowHandle()->flags().testFlag(Qt::WindowStaysOnTopHint));
}

TEST(PlatformTest, aboutLeavesTheKeyboardToAnotherProgram) {
  Desktop desktop;
  desktop.platform().orderFrontStandardAboutPanel(desktop.application());
  EXPECT_FALSE(aboutWindow(desktop).takesKeyboard());
  desktop.showWindow();
  driver::settle();
  desktop.platform().orderFrontStandardAboutPanel(desktop.application());
  EXPECT_TRUE(aboutWindow(desktop).takesKeyboard());
  EXPECT_TRUE(becomes([&] { return desktop.application().windows().keyWindow() == &aboutWindow(desktop); }));
}

TEST(PlatformTest, aPanelDoesNotStayMaximized) {
  bool hasGone = false;
  Desktop desktop;
  desktop.showWindow();
  desktop.platform().orderFrontStandardAboutPanel(desktop.application());
  const QWidget& panel = driver::widget(aboutWindow(desktop));
  QObject::connect(panel.windowHandle(), &QWindow::visibleChanged, [&](bool visible) { hasGone |= !visible; });
  panel.windowHandle()->setWindowStates(Qt::WindowMaximized);
  EXPECT_TRUE(becomes([&] { return hasGone && panel.isVisible() && panel.updatesEnabled(); }));
  EXPECT_FALSE(panel.isMaximized());
}

}  // namespace
}  // namespace tarnwell::host_qt
