#include "host/qt/window/FramePace.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QEvent>
#include <QtGui/QPaintEvent>
#include <QtGui/QWindow>
#include <algorithm>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "host/qt/Desktop.h"
#include "host/qt/WidgetDriver.h"
#include "host/qt/session/RunLater.h"
#include "host/qt/tray/TrayNotice.h"

namespace tarnwell::host_qt {
namespace {

using testing::ElementsAre;

/// Hears of events of one type before their object does.
class OnEvent final : public QObject {
 public:
  OnEvent(QObject& object, QEvent::Type type, std::function<void(QEvent&)> heard)
      : type_(type), heard_(std::move(heard)) {
    object.installEventFilter(this);
  }
  bool eventFilter(QObject* /*object*/, QEvent* event) override {
    if (event->type() == type_) {
      heard_(*event);
    }
    return false;
  }

 private:
  QEvent::Type type_;
  std::function<void(QEvent&)> heard_;
};

class FramePaceTest : public testing::Test {
 protected:
  FramePaceTest() {
    desktop_.showWindow();
    // That there is no tray is heard late, and paints all of the window anew.
    EXPECT_TRUE(becomes([this] { return saysThatThereIsNoTray(); }));
    bool isPainted = false;
    const OnEvent painting(widget(), QEvent::Paint, [&](QEvent&) { isPainted = true; });
    widget().update();
    EXPECT_TRUE(becomes([&] { return isPainted; }));
  }

  QWidget& widget() { return driver::widget(desktop_.window()); }

  /// What the toolkit does about a part of the window that has changed.
  void change(const QRect& part) {
    widget().update(part);
    QCoreApplication::sendPostedEvents(&widget(), QEvent::UpdateRequest);
  }

 private:
  bool saysThatThereIsNoTray() {
    return std::ranges::any_of(widget().children(), [](const QObject* child) {
      const auto* notice = dynamic_cast<const TrayNotice*>(child);
      return notice != nullptr && notice->isVisible();
    });
  }

  Desktop desktop_;
};

TEST_F(FramePaceTest, whatChangesBeforeTheDesktopWantsAPictureIsOnePicture) {
  std::vector<QRegion> painted;
  const OnEvent painting(widget(), QEvent::Paint,
                         [&](QEvent& event) { painted.push_back(static_cast<QPaintEvent&>(event).region()); });
  change({0, 200, 20, 10});
  change({20, 200, 20, 10});
  EXPECT_TRUE(becomes([&] { return !painted.empty(); }));
  EXPECT_THAT(painted, ElementsAre(QRegion(0, 200, 40, 10)));
}

TEST_F(FramePaceTest, sizeThatTheDesktopHasAskedForComesBeforeThePicture) {
  std::vector<std::string> order;
  const OnEvent painting(widget(), QEvent::Paint, [&](QEvent&) { order.emplace_back("picture"); });
  change({0, 200, 20, 10});
  // The toolkit has heard of it, and accepts it in an event that it sends itself.
  const OnEvent wanting(*widget().windowHandle(), QEvent::UpdateRequest,
                        [&](QEvent&) { runLater(widget(), [&] { order.emplace_back("size"); }); });
  EXPECT_TRUE(becomes([&] { return order.size() == 2; }));
  EXPECT_THAT(order, ElementsAre("size", "picture"));
}

}  // namespace
}  // namespace tarnwell::host_qt
