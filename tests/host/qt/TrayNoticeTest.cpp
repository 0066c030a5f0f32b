#include "host/qt/TrayNotice.h"

#include <gtest/gtest.h>

#include "host/qt/Desktop.h"
#include "host/qt/FakePanel.h"
#include "host/qt/WidgetDriver.h"

namespace tarnwell::host_qt {
namespace {

QWidget& noticeIn(Desktop& desktop) {
  for (QObject* child : driver::widget(desktop.window()).children()) {
    if (auto* notice = dynamic_cast<TrayNotice*>(child)) {
      return *notice;
    }
  }
  throw std::logic_error("the window has no notice");
}

TEST(TrayNoticeTest, saysThatThereIsNoTray) {
  Desktop desktop;
  desktop.showWindow();
  ASSERT_TRUE(becomes([&desktop] { return noticeIn(desktop).isVisible(); }));
  const QWidget& notice = noticeIn(desktop);
  EXPECT_EQ(notice.geometry().bottom(), driver::widget(desktop.window()).rect().bottom());
  EXPECT_EQ(desktop.window().peer()->chromeHeight() + 300, driver::widget(desktop.window()).height());
  EXPECT_FALSE(notice.accessibleName().isEmpty());
}

TEST(TrayNoticeTest, goesWhenATrayComes) {
  Desktop desktop;
  desktop.showWindow();
  ASSERT_TRUE(becomes([&desktop] { return noticeIn(desktop).isVisible(); }));
  const int withNotice = driver::widget(desktop.window()).height();
  const FakePanel panel;
  ASSERT_TRUE(becomes([&desktop] { return !noticeIn(desktop).isVisible(); }));
  EXPECT_LT(driver::widget(desktop.window()).height(), withNotice);
}

TEST(TrayNoticeTest, aTrayThatShowsNothingYetIsNoReasonToSpeak) {
  FakePanel panel(FakePanel::Shows::nothing);
  Desktop desktop;
  desktop.showWindow();
  panel.beginToShow();
  driver::settle();
  EXPECT_FALSE(noticeIn(desktop).isVisible());
}

TEST(TrayNoticeTest, isSaidOnce) {
  Desktop desktop;
  desktop.showWindow();
  ASSERT_TRUE(becomes([&desktop] { return noticeIn(desktop).isVisible(); }));
  desktop.window().setVisible(false);
  desktop.window().setVisible(true);
  driver::settle();
  EXPECT_FALSE(noticeIn(desktop).isVisible());
  EXPECT_EQ(driver::widget(desktop.window()).height(), 300 + desktop.window().peer()->chromeHeight());
}

}  // namespace
}  // namespace tarnwell::host_qt
