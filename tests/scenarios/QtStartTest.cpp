#include <gtest/gtest.h>

#include <QtCore/QEvent>
#include <algorithm>
#include <optional>

#include "host/qt/Desktop.h"
#include "host/qt/WidgetDriver.h"
#include "host/qt/controls/containers/ScrollBarOverlay.h"
#include "host/qt/session/FakePortal.h"
#include "host/qt/tray/PanelThread.h"
#include "host/qt/tray/TrayNotice.h"
#include "scenarios/QtStartedTarnwell.h"

namespace tarnwell::scenarios {
namespace {

using host_qt::PanelThread;
using Answers = PanelThread::Answers;

/// For a desktop that answers, however busy the machine is.
constexpr std::chrono::seconds wait{60};
/// For one that does not.
constexpr std::chrono::milliseconds shortWait{100};
/// Of the short wait. A busy machine may be much later than that, yet not as late as the bus gives a program up.
constexpr std::chrono::milliseconds tooEarly{95};
constexpr std::chrono::milliseconds latestReading{15000};

/// How often a window has been given a size.
class Resizes final : public QObject {
 public:
  explicit Resizes(QObject& window) { window.installEventFilter(this); }
  bool eventFilter(QObject* /*object*/, QEvent* event) noexcept override {
    count += event->type() == QEvent::Resize ? 1 : 0;
    return false;
  }

  int count = 0;
};

std::string busAddress() { return qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS").toStdString(); }

const QWidget& noticeIn(const QWidget& window) {
  for (QObject* child : window.children()) {
    if (const auto* notice = dynamic_cast<host_qt::TrayNotice*>(child)) {
      return *notice;
    }
  }
  throw std::logic_error("the window has no notice");
}

bool scrolls(const QWidget& window) {
  const auto children = window.findChildren<QWidget*>();
  return std::any_of(children.begin(), children.end(), [](const QWidget* child) {
    return dynamic_cast<const host_qt::ScrollBarOverlay*>(child) != nullptr && child->isVisible();
  });
}

TEST(QtStart, theIconIsInTheTrayBeforeASettingIsRead) {
  const PanelThread panel(Answers::inTime);
  int icons = 0;
  QtStartedTarnwell tarnwell(wait, [&] { icons = panel.icons(); });
  ASSERT_TRUE(tarnwell.showsSettings());
  EXPECT_EQ(icons, 1);
}

TEST(QtStart, aDesktopThatDoesNotAnswerIsWaitedForOnceAndNotForLong) {
  const PanelThread panel(Answers::whenTold);
  host_qt::FakePortal portal(busAddress());
  portal.setSilent();
  int icons = 0;
  QtStartedTarnwell tarnwell(shortWait, [&] { icons = panel.icons(); });
  ASSERT_TRUE(tarnwell.showsSettings());
  EXPECT_EQ(icons, 0);
  EXPECT_GE(tarnwell.timeUntilReading(), tooEarly);
  EXPECT_LT(tarnwell.timeUntilReading(), latestReading);
}

TEST(QtStart, anAnswerThatComesLateBringsTheIconAndLeavesTheWindowAsItStands) {
  PanelThread panel(Answers::whenTold);
  QtStartedTarnwell tarnwell(shortWait);
  ASSERT_TRUE(tarnwell.showsSettings());
  const Resizes resizes(tarnwell.settings());
  panel.answer();
  ASSERT_TRUE(host_qt::becomes([&panel] { return panel.icons() == 1; }));
  EXPECT_EQ(resizes.count, 0);
  EXPECT_FALSE(tarnwell.hasChangedItsLook());
}

TEST(QtStart, aDarkDesktopSeesNoLightWindow) {
  host_qt::FakePortal portal(busAddress());
  portal.set("color-scheme", 1U);
  QtStartedTarnwell tarnwell(wait);
  ASSERT_TRUE(tarnwell.showsSettings());
  host_qt::driver::settle();
  EXPECT_TRUE(tarnwell.pictures().front().isDark);
  EXPECT_FALSE(tarnwell.hasChangedItsLook());
}

TEST(QtStart, theWindowIsPaintedOnceWithATrayAndWithout) {
  std::optional<PanelThread> panel(Answers::inTime);
  for (const bool hasTray : {true, false}) {
    if (!hasTray) {
      panel.reset();
    }
    QtStartedTarnwell tarnwell(wait);
    ASSERT_TRUE(tarnwell.showsSettings());
    host_qt::driver::settle();
    EXPECT_EQ(noticeIn(tarnwell.settings()).isVisible(), !hasTray);
    EXPECT_EQ(tarnwell.pictures().size(), 1U) << hasTray;
  }
}

TEST(QtStart, theNoticeTakesNoMoreOfTheWindowThanItsLines) {
  QtStartedTarnwell tarnwell(wait);
  ASSERT_TRUE(tarnwell.showsSettings());
  ASSERT_TRUE(noticeIn(tarnwell.settings()).isVisible());
  constexpr int tallest = 700;
  EXPECT_TRUE(tarnwell.settings().height() == tallest || !scrolls(tarnwell.settings())) << tarnwell.settings().height();
}

TEST(QtStart, theNoticeThatThereIsNoTrayIsInTheWindowFromTheStart) {
  QtStartedTarnwell tarnwell(wait);
  ASSERT_TRUE(tarnwell.showsSettings());
  host_qt::driver::settle();
  EXPECT_TRUE(noticeIn(tarnwell.settings()).isVisible());
  EXPECT_FALSE(tarnwell.hasChangedItsLook());
}

}  // namespace
}  // namespace tarnwell::scenarios
