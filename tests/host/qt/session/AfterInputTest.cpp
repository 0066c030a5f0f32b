#include "host/qt/session/AfterInput.h"

#include <gtest/gtest.h>

#include <QtCore/QProcess>
#include <QtCore/QTimer>
#include <QtGui/QKeyEvent>
#include <QtGui/QWindow>
#include <array>
#include <chrono>
#include <csignal>
#include <string>
#include <vector>

#include "fixtures/EnvironmentScope.h"
#include "host/qt/platform/QtApplication.h"
#include "host/qt/session/X11Display.h"

namespace tarnwell::host_qt {
namespace {

/// An X11 server of a test's own.
class Server {
 public:
  Server() {
    process_.start(QStringLiteral("Xvfb"), {"-displayfd", "1", "-nolisten", "tcp"});
    while (!process_.canReadLine() && process_.waitForReadyRead()) {
    }
    display_ = ":" + process_.readLine().trimmed().toStdString();
  }
  Server(const Server&) = delete;
  Server& operator=(const Server&) = delete;
  ~Server() {
    process_.terminate();
    process_.waitForFinished();
  }

  const std::string& display() const { return display_; }
  void signal(int number) const { ::kill(static_cast<pid_t>(process_.processId()), number); }

 private:
  QProcess process_;
  std::string display_;
};

class KeyWindow final : public QWindow {
 public:
  explicit KeyWindow(std::vector<std::string>& heard) : heard_(heard) { create(); }

  void keyPressEvent(QKeyEvent* /*event*/) override { heard_.emplace_back("key"); }

 private:
  std::vector<std::string>& heard_;
};

/// Asks the server to send the window a key.
void sendKey(const QWindow& window) {
  constexpr xcb_keycode_t letter = 38;
  xcb_key_press_event_t event = {};
  event.response_type = XCB_KEY_PRESS;
  event.detail = letter;
  event.root = x11RootWindow();
  event.event = static_cast<xcb_window_t>(window.winId());
  event.same_screen = 1;
  xcb_send_event(x11Display(), 0, event.event, XCB_EVENT_MASK_KEY_PRESS, reinterpret_cast<const char*>(&event));
  xcb_flush(x11Display());
}

TEST(AfterInputTest, comesBehindAKeyOfAServerThatTakesItsTime) {
  const Server server;
  const fixtures::EnvironmentScope display("DISPLAY", server.display());
  const fixtures::EnvironmentScope platform("QT_QPA_PLATFORM", "xcb");
  std::string name = "test";
  std::array<char*, 2> arguments = {name.data(), nullptr};
  const auto application = QtApplication::create(1, arguments.data());
  std::vector<std::string> heard;
  const KeyWindow window(heard);
  server.signal(SIGSTOP);
  sendKey(window);
  runAfterInput(*qApp, [&] {
    heard.emplace_back("action");
    application->quit();
  });
  QTimer::singleShot(std::chrono::milliseconds(200), qApp, [&server] { server.signal(SIGCONT); });
  application->run();
  EXPECT_EQ(heard, (std::vector<std::string>{"key", "action"}));
}

}  // namespace
}  // namespace tarnwell::host_qt
