#include "host/qt/platform/SingleInstance.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <systemd/sd-bus.h>
#include <unistd.h>

#include <QtCore/QElapsedTimer>
#include <QtCore/QProcess>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>
#include <array>
#include <csignal>
#include <filesystem>
#include <memory>
#include <string>

#include "fixtures/Sandbox.h"
#include "fixtures/Subprocess.h"
#include "fixtures/WaitFor.h"
#include "host/qt/bus/PrivateBus.h"
#include "host/qt/bus/SessionBus.h"
#include "host/qt/platform/QtApplication.h"

namespace tarnwell::host_qt {
namespace {

/// A started program of which one runs in a session.
class Started {
 public:
  explicit Started(const QProcessEnvironment& environment, const QStringList& arguments = {},
                   QProcess::ProcessChannelMode mode = QProcess::ForwardedErrorChannel) {
    process_.setProcessEnvironment(environment);
    process_.setProcessChannelMode(mode);
    process_.start(QStringLiteral(INSTANCE_PROGRAM), arguments);
  }
  Started(const Started&) = delete;
  Started& operator=(const Started&) = delete;
  ~Started() { end(); }

  /// The next line that it says; empty when none comes.
  std::string line() {
    fixtures::waitFor([this] { return process_.canReadLine() || (process_.waitForReadyRead(10), hasEnded()); });
    return QString::fromUtf8(process_.readLine()).trimmed().toStdString();
  }

  /// Its status, when it ends by itself.
  int status() {
    fixtures::waitFor([this] { return process_.waitForFinished(10) || hasEnded(); });
    return process_.exitStatus() == QProcess::NormalExit ? process_.exitCode() : -1;
  }

  /// Lets one that is busy go on.
  void goOn() {
    process_.write(".");
    process_.waitForBytesWritten();
  }

  void signal(int number) const { ::kill(static_cast<pid_t>(process_.processId()), number); }

  void end() {
    process_.closeWriteChannel();
    status();
  }

 private:
  bool hasEnded() const { return process_.state() == QProcess::NotRunning; }

  QProcess process_;
};

/// A program that has the application's name on the bus, and never answers.
class SilentPeer {
 public:
  explicit SilentPeer(const std::string& address) {
    EXPECT_GE(::sd_bus_new(&bus_), 0);
    EXPECT_GE(::sd_bus_set_address(bus_, address.c_str()), 0);
    EXPECT_GE(::sd_bus_set_bus_client(bus_, 1), 0);
    EXPECT_GE(::sd_bus_start(bus_), 0);
    EXPECT_GE(::sd_bus_request_name(bus_, "example.tarnwell.Tarnwell", 0), 0);
  }
  SilentPeer(const SilentPeer&) = delete;
  SilentPeer& operator=(const SilentPeer&) = delete;
  ~SilentPeer() { disconnect(); }

  bool waitForActivate() {
    return fixtures::waitFor([this] {
      sd_bus_message* message = nullptr;
      ::sd_bus_process(bus_, &message);
      const bool isAsked =
          message != nullptr && ::sd_bus_message_is_method_call(message, "org.freedesktop.Application", "Activate") > 0;
      ::sd_bus_message_unref(message);
      return isAsked;
    });
  }

  void disconnect() { bus_ = ::sd_bus_close_unref(bus_); }

 private:
  sd_bus* bus_ = nullptr;
};

QProcessEnvironment withToken(QProcessEnvironment environment, const QString& token) {
  environment.insert("XDG_ACTIVATION_TOKEN", token);
  return environment;
}

enum class Desktop { withBus, withoutBus };

class SingleInstanceTest : public testing::TestWithParam<Desktop> {
 protected:
  SingleInstanceTest() : environment_(QProcessEnvironment::systemEnvironment()) {
    environment_.insert("XDG_RUNTIME_DIR", QString::fromStdString(folder_.path().string()));
    environment_.remove("XDG_ACTIVATION_TOKEN");
    environment_.remove("DESKTOP_STARTUP_ID");
    if (GetParam() == Desktop::withoutBus) {
      environment_.remove("DBUS_SESSION_BUS_ADDRESS");
    }
  }

  /// A further start finds that one.
  void expectHandOver(Started& first) const {
    Started second(withToken(environment_, "permission"));
    EXPECT_EQ(second.line(), "handed over");
    EXPECT_EQ(second.status(), 0);
    EXPECT_EQ(first.line(), "asked \"\" with \"permission\"");
  }

  /// A further start ends before the first can hear of it.
  void expectMessageLeftWithBusyOne() const {
    Started first(environment_, {"busy"});
    ASSERT_EQ(first.line(), "first");
    Started second(withToken(environment_, "permission"));
    EXPECT_EQ(second.line(), "handed over");
    EXPECT_EQ(second.status(), 0);
    first.goOn();
    EXPECT_EQ(first.line(), "asked \"\" with \"permission\"");
  }

  PrivateBus bus_;
  fixtures::Sandbox folder_;
  QProcessEnvironment environment_;
};

TEST_P(SingleInstanceTest, furtherStartAsksTheFirstToComeToTheFrontAndEnds) {
  Started first(environment_);
  ASSERT_EQ(first.line(), "first");
  Started second(withToken(environment_, "permission"));
  EXPECT_EQ(second.line(), "handed over");
  EXPECT_EQ(second.status(), 0);
  EXPECT_EQ(first.line(), "asked \"\" with \"permission\"");
  Started third(environment_);
  EXPECT_EQ(third.status(), 0);
  EXPECT_EQ(first.line(), "asked \"\" with \"\"");
}

TEST_P(SingleInstanceTest, oneThatIsBusyIsLeftTheMessage) { expectMessageLeftWithBusyOne(); }

TEST_P(SingleInstanceTest, oneThatIsStoppedIsLeftTheMessage) {
  Started first(environment_);
  ASSERT_EQ(first.line(), "first");
  first.signal(SIGSTOP);
  Started second(withToken(environment_, "permission"));
  EXPECT_EQ(second.line(), "handed over");
  EXPECT_EQ(second.status(), 0);
  first.signal(SIGCONT);
  EXPECT_EQ(first.line(), "asked \"\" with \"permission\"");
}

TEST_P(SingleInstanceTest, oneThatIsEndingKnowsOfAStartThatReliedOnIt) {
  Started first(environment_, {"ending"});
  ASSERT_EQ(first.line(), "first");
  EXPECT_EQ(Started(withToken(environment_, "permission")).line(), "handed over");
  first.goOn();
  EXPECT_EQ(first.line(), "too late for \"permission\"");
  // Before the process has ended.
  EXPECT_EQ(Started(environment_).line(), "first");
}

TEST_P(SingleInstanceTest, startIsNotLostWhereAQuitWaitsToo) {
  Started first(environment_);
  ASSERT_EQ(first.line(), "first");
  first.signal(SIGSTOP);
  EXPECT_EQ(Started(withToken(environment_, "permission")).line(), "handed over");
  // Without "busy" it quits at the first byte.
  first.goOn();
  first.signal(SIGCONT);
  EXPECT_EQ(first.line(), "too late for \"permission\"");
}

TEST_P(SingleInstanceTest, temporaryFolderDoesWhereThereIsNoneForTheSession) {
  environment_.insert("XDG_RUNTIME_DIR", "/dev/null/nowhere");
  environment_.insert("TMPDIR", QString::fromStdString(folder_.path().string()));
  Started first(environment_);
  ASSERT_EQ(first.line(), "first");
  expectHandOver(first);
}

TEST_P(SingleInstanceTest, furtherStartNeedsNoDisplay) {
  Started first(environment_);
  ASSERT_EQ(first.line(), "first");
  environment_.insert("QT_QPA_PLATFORM", "xcb");
  environment_.insert("DISPLAY", ":987");
  expectHandOver(first);
}

TEST_P(SingleInstanceTest, tokenMayComeFromAnOlderDesktop) {
  Started first(environment_);
  ASSERT_EQ(first.line(), "first");
  environment_.insert("DESKTOP_STARTUP_ID", "panel_TIME123");
  EXPECT_EQ(Started(environment_).status(), 0);
  EXPECT_EQ(first.line(), "asked \"\" with \"panel_TIME123\"");
}

TEST_P(SingleInstanceTest, theNextStartAfterTheEndIsAFirstOne) {
  Started first(environment_);
  ASSERT_EQ(first.line(), "first");
  first.end();
  EXPECT_EQ(Started(environment_).line(), "first");
}

TEST_P(SingleInstanceTest, oneThatWasKilledBlocksNoOther) {
  Started first(environment_);
  ASSERT_EQ(first.line(), "first");
  first.signal(SIGKILL);
  first.status();
  EXPECT_EQ(Started(environment_).line(), "first");
}

TEST_P(SingleInstanceTest, ofStartsAtTheSameTimeOneRuns) {
  std::array<std::unique_ptr<Started>, 4> all;
  for (auto& started : all) {
    started = std::make_unique<Started>(environment_);
  }
  int firsts = 0;
  for (auto& started : all) {
    const std::string line = started->line();
    EXPECT_THAT(line, testing::AnyOf("first", "handed over"));
    firsts += line == "first" ? 1 : 0;
  }
  EXPECT_EQ(firsts, 1);
}

INSTANTIATE_TEST_SUITE_P(desktops, SingleInstanceTest, testing::Values(Desktop::withBus, Desktop::withoutBus),
                         [](const auto& tested) {
                           return tested.param == Desktop::withBus ? "withBus" : "withoutBus";
                         });

class BuslessInstanceTest : public SingleInstanceTest {};

TEST_P(BuslessInstanceTest, startsGoOnSideBySideAndSaySoWhereTheFolderIsNotOurs) {
  const std::string taken = "tarnwell-" + std::to_string(::geteuid());
  std::filesystem::create_directory_symlink(folder_.path(), folder_ / taken);
  environment_.insert("XDG_RUNTIME_DIR", "/dev/null/nowhere");
  environment_.insert("TMPDIR", QString::fromStdString(folder_.path().string()));
  const std::string complaint = "tarnwell: cannot tell whether another Tarnwell is running: cannot enter the folder " +
                                (folder_ / taken).string() + ": Not a directory";
  std::array<std::unique_ptr<Started>, 2> all;
  for (auto& started : all) {
    started = std::make_unique<Started>(environment_, QStringList(), QProcess::MergedChannels);
    EXPECT_EQ(started->line(), complaint);
    EXPECT_EQ(started->line(), "first");
  }
}

INSTANTIATE_TEST_SUITE_P(desktops, BuslessInstanceTest, testing::Values(Desktop::withoutBus),
                         [](const auto& /*tested*/) { return "withoutBus"; });

class BusInstanceTest : public SingleInstanceTest {};

TEST_P(BusInstanceTest, launchersAskForActionsByName) {
  Started first(environment_);
  ASSERT_EQ(first.line(), "first");
  const auto launcher = QDBusConnection::connectToBus(QString::fromStdString(bus_.address()), "launcher");
  QDBusMessage message = QDBusMessage::createMethodCall("example.tarnwell.Tarnwell", "/example/tarnwell/Tarnwell",
                                                        "org.freedesktop.Application", "ActivateAction");
  message.setArguments({"about", QVariantList(), QVariantMap{{"desktop-startup-id", "launcher_TIME5"}}});
  EXPECT_EQ(launcher.call(message).type(), QDBusMessage::ReplyMessage);
  EXPECT_EQ(first.line(), "asked \"about\" with \"launcher_TIME5\"");
  QDBusConnection::disconnectFromBus("launcher");
}

TEST_P(BusInstanceTest, busThatIsStuckHoldsUpNoStartForLong) {
  bus_.freeze();
  QElapsedTimer time;
  time.start();
  Started first(environment_);
  ASSERT_EQ(first.line(), "first");
  EXPECT_LT(time.elapsed(), 10'000);
  expectHandOver(first);
}

TEST_P(BusInstanceTest, busThatGetsStuckIsNothingToFurtherStarts) {
  Started first(environment_);
  ASSERT_EQ(first.line(), "first");
  bus_.freeze();
  expectHandOver(first);
}

TEST_P(BusInstanceTest, busThatWasRestartedIsNothingToFurtherStarts) {
  Started first(environment_);
  ASSERT_EQ(first.line(), "first");
  bus_.restart();
  expectHandOver(first);
}

TEST_P(BusInstanceTest, childrenOfAStartWithoutAnswerKnowTheBus) {
  bus_.freeze();
  EXPECT_EQ(fixtures::exitStatusOf([this] {
              static std::string name = "test";
              static std::array<char*, 2> arguments = {name.data(), nullptr};
              const auto application = QtApplication::create(1, arguments.data());
              return !sessionBus() && qgetenv("DBUS_SESSION_BUS_ADDRESS") == bus_.address().c_str() ? 0 : 1;
            }),
            0);
}

TEST_P(BusInstanceTest, nameOnTheBusDecidesWhereThereIsNoLockInCommon) {
  Started first(environment_);
  ASSERT_EQ(first.line(), "first");
  const fixtures::Sandbox other;
  environment_.insert("XDG_RUNTIME_DIR", QString::fromStdString(other.path().string()));
  expectHandOver(first);
}

TEST_P(BusInstanceTest, nameOnTheBusDecidesWhereThereIsNoLock) {
  environment_.insert("XDG_RUNTIME_DIR", "/dev/null/nowhere");
  environment_.insert("TMPDIR", "/dev/null/nowhere");
  Started first(environment_);
  ASSERT_EQ(first.line(), "first");
  expectHandOver(first);
}

TEST_P(BusInstanceTest, oneThatIsBusyIsAskedOnTheBusToo) {
  environment_.insert("XDG_RUNTIME_DIR", "/dev/null/nowhere");
  environment_.insert("TMPDIR", "/dev/null/nowhere");
  expectMessageLeftWithBusyOne();
}

TEST_P(BusInstanceTest, oneThatHasGoneIsNotTakenForAsked) {
  const auto bus = QDBusConnection::connectToBus(QString::fromStdString(bus_.address()), "start");
  EXPECT_FALSE(ApplicationService(bus, "example.tarnwell.Tarnwell").activateOther("permission"));
  QDBusConnection::disconnectFromBus("start");
}

TEST_P(BusInstanceTest, oneThatEndsInsteadOfAnsweringLetsTheNextOneRun) {
  SilentPeer peer(bus_.address());
  Started second(environment_);
  ASSERT_TRUE(peer.waitForActivate());
  peer.disconnect();
  EXPECT_EQ(second.line(), "first");
}

INSTANTIATE_TEST_SUITE_P(desktops, BusInstanceTest, testing::Values(Desktop::withBus),
                         [](const auto& /*tested*/) { return "withBus"; });

}  // namespace
}  // namespace tarnwell::host_qt
