#include "host/qt/tray/TrayNotice.h"

#include <gtest/gtest.h>

#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusVirtualObject>
#include <utility>

#include "host/qt/Desktop.h"
#include "host/qt/WidgetDriver.h"
#include "host/qt/bus/Stranger.h"
#include "host/qt/tray/FakePanel.h"
#include "host/qt/tray/TrayWatch.h"

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
  EXPECT_EQ(desktop.window().peer()->chromeHeight(driver::widget(desktop.window()).width()) + 300,
            driver::widget(desktop.window()).height());
  EXPECT_FALSE(notice.accessibleName().isEmpty());
}

TEST(TrayNoticeTest, takesAsManyLinesAsItsWindowIsNarrow) {
  Desktop desktop;
  desktop.showWindow();
  ASSERT_TRUE(becomes([&desktop] { return noticeIn(desktop).isVisible(); }));
  const QWidget& notice = noticeIn(desktop);
  EXPECT_EQ(notice.height(), notice.heightForWidth(notice.width()));
  EXPECT_GT(notice.heightForWidth(200), notice.heightForWidth(2000));
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

TEST(TrayNoticeTest, onlyTheTrayItselfIsBelieved) {
  FakePanel panel(FakePanel::Shows::nothing);
  Desktop desktop;
  ASSERT_TRUE(becomes([&panel] { return panel.questions() == 1; }));
  const Stranger stranger;
  stranger.emitSignal("/StatusNotifierWatcher", "org.kde.StatusNotifierWatcher", "StatusNotifierHostRegistered", {});
  // Once the bus has answered us the signal is here as well, and what it leads to is said before the icon.
  QDBusConnection::sessionBus().call(QDBusMessage::createMethodCall("org.freedesktop.DBus", "/", {}, "GetId"));
  driver::settle();
  TrayWatch::announce("/Icon");
  ASSERT_TRUE(panel.hasIcon());
  EXPECT_EQ(panel.questions(), 1);
  panel.beginToShow();
  EXPECT_TRUE(becomes([&panel] { return panel.questions() == 2; }));
}

/// A tray that says something else where it should say whether it shows icons.
class StrangeTray final : public QDBusVirtualObject {
 public:
  explicit StrangeTray(QVariantList answer)
      : answer_(std::move(answer)),
        connection_(QDBusConnection::connectToBus(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"), "strange tray")) {
    connection_.registerVirtualObject("/StatusNotifierWatcher", this);
    connection_.registerService("org.kde.StatusNotifierWatcher");
  }
  StrangeTray(const StrangeTray&) = delete;
  StrangeTray& operator=(const StrangeTray&) = delete;
  ~StrangeTray() override {
    connection_.unregisterObject("/StatusNotifierWatcher");
    QDBusConnection::disconnectFromBus(connection_.name());
  }

  QString introspect(const QString& /*path*/) const override { return {}; }
  bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override {
    return connection.send(message.createReply(answer_));
  }

 private:
  QVariantList answer_;
  QDBusConnection connection_;
};

TEST(TrayNoticeTest, aTrayThatAnswersStrangelyIsOneThatShowsIcons) {
  const auto variant = [](const QVariant& value) { return QVariant::fromValue(QDBusVariant(value)); };
  const QList<QVariantList> answers = {{},
                                       {false},
                                       {variant(0)},
                                       {variant("no")},
                                       {variant(QVariantList{false})},
                                       {variant(variant(false))},
                                       {variant(QVariantMap{{"no", false}})}};
  for (const QVariantList& answer : answers) {
    Desktop desktop;
    desktop.showWindow();
    ASSERT_TRUE(becomes([&desktop] { return noticeIn(desktop).isVisible(); }));
    const StrangeTray tray(answer);
    EXPECT_TRUE(becomes([&desktop] { return !noticeIn(desktop).isVisible(); })) << answers.indexOf(answer);
  }
}

TEST(TrayNoticeTest, staysInAWindowThatGoesForAMoment) {
  Desktop desktop;
  desktop.showWindow();
  ASSERT_TRUE(becomes([&desktop] { return noticeIn(desktop).isVisible(); }));
  driver::widget(desktop.window()).hide();
  driver::widget(desktop.window()).show();
  EXPECT_TRUE(noticeIn(desktop).isVisible());
}

TEST(TrayNoticeTest, isSaidOnce) {
  Desktop desktop;
  desktop.showWindow();
  ASSERT_TRUE(becomes([&desktop] { return noticeIn(desktop).isVisible(); }));
  desktop.window().setVisible(false);
  desktop.window().setVisible(true);
  driver::settle();
  EXPECT_FALSE(noticeIn(desktop).isVisible());
  EXPECT_EQ(driver::widget(desktop.window()).height(),
            300 + desktop.window().peer()->chromeHeight(driver::widget(desktop.window()).width()));
}

}  // namespace
}  // namespace tarnwell::host_qt
