#include "host/qt/platform/QtApplication.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <QtCore/QTimer>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <string>

#include "fixtures/EnvironmentScope.h"
#include "fixtures/Sandbox.h"
#include "fixtures/Subprocess.h"
#include "fixtures/WaitFor.h"
#include "kit/control/Window.h"

// Each test has a process of its own: a toolkit starts once a process.
namespace tarnwell::host_qt {
namespace {

std::unique_ptr<QtApplication> started() {
  static std::string name = "test";
  static std::array<char*, 2> arguments = {name.data(), nullptr};
  return QtApplication::create(1, arguments.data());
}

/// Does something from the event loop.
class Later {
 public:
  Later(int milliseconds, const std::function<void()>& action) {
    QObject::connect(&timer_, &QTimer::timeout, action);
    timer_.setSingleShot(true);
    timer_.start(milliseconds);
  }

 private:
  QTimer timer_;
};

void forgetTheDisplay() {
  for (const char* variable : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
    ::unsetenv(variable);
  }
}

TEST(QtApplicationTest, saysThatThereIsNoDisplay) {
  EXPECT_EXIT(
      {
        forgetTheDisplay();
        std::_Exit(started() == nullptr ? 1 : 0);
      },
      testing::ExitedWithCode(1), "^tarnwell: there is no display; neither DISPLAY nor WAYLAND_DISPLAY is set\n$");
}

TEST(QtApplicationTest, endsInOneLineWhenTheDisplayDoesNotAnswer) {
  EXPECT_EXIT(
      {
        forgetTheDisplay();
        ::setenv("DISPLAY", ":987", 1);
        started();
        std::_Exit(0);
      },
      testing::ExitedWithCode(1), "^tarnwell: cannot connect to the display\n$");
}

TEST(QtApplicationTest, loopEndsByQuitAloneWithItsStatus) {
  EXPECT_EQ(fixtures::exitStatusOf([] {
              const auto application = started();
              kit::Window window("only", "Only");
              window.attach(application->host().peer(window));
              const Later shown(0, [&window] {
                window.setVisible(true);
                window.setVisible(false);
              });
              const Later quit(50, [&application] { application->quit(7); });
              return application->run();
            }),
            7);
}

TEST(QtApplicationTest, quitEvenWhileAWindowRefusesToClose) {
  EXPECT_EQ(fixtures::exitStatusOf([] {
              const auto application = started();
              kit::Window window("only", "Only");
              window.attach(application->host().peer(window));
              window.setVisible(true);
              const Later quit(0, [&application] { application->quit(3); });
              return application->run();
            }),
            3);
}

TEST(QtApplicationTest, watchedDescriptorWakesTheLoop) {
  EXPECT_EQ(fixtures::exitStatusOf([] {
              const auto application = started();
              std::array<int, 2> ends = {};
              if (::pipe(ends.data()) != 0) {
                return 1;
              }
              const kit::Subscription hearing = application->watch(ends[0], [&application, &ends] {
                char byte = 0;
                application->quit(::read(ends[0], &byte, 1) == 1 ? byte : 2);
              });
              const Later written(0, [&ends] { (void)!::write(ends[1], "\x05", 1); });
              return application->run();
            }),
            5);
}

TEST(QtApplicationTest, theBrowserGetsTheAddressAndNoDescriptorOfOurs) {
  const fixtures::Sandbox sandbox;
  sandbox.write("xdg-open", "#!/bin/sh\nls -l /proc/$$/fd >'" + (sandbox / "open").string() + "'\necho \"$@\" >'" +
                                (sandbox / "words").string() + "'\n");
  std::filesystem::permissions(sandbox / "xdg-open", std::filesystem::perms::owner_all);
  sandbox.write("secret", "");
  const fixtures::EnvironmentScope path("PATH", sandbox.path().string() + ":/usr/bin:/bin");
  EXPECT_EQ(fixtures::exitStatusOf([&] {
              const auto application = started();
              // Left open for others, as a library does that knows no better.
              const int left = ::open((sandbox / "secret").c_str(), O_RDONLY);
              application->openUrl("https://tarnwell.example/a b");
              return left >= 0 && fixtures::waitFor([&] { return !sandbox.read("words").empty(); }) ? 0 : 1;
            }),
            0);
  EXPECT_EQ(sandbox.read("words"), "https://tarnwell.example/a b\n");
  EXPECT_EQ(sandbox.read("open").find("secret"), std::string::npos) << sandbox.read("open");
  EXPECT_NE(sandbox.read("open").find("xdg-open"), std::string::npos) << sandbox.read("open");
}

}  // namespace
}  // namespace tarnwell::host_qt
