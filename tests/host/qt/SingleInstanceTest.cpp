#include "host/qt/SingleInstance.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QtCore/QProcess>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>
#include <array>
#include <csignal>

#include "fixtures/Sandbox.h"
#include "fixtures/WaitFor.h"
#include "host/qt/PrivateBus.h"
#include "kit/ApplicationId.h"

namespace tarnwell::host_qt {
namespace {

using testing::ElementsAre;

/// A started program of which one runs in a session.
class Started {
 public:
  explicit Started(const QProcessEnvironment& environment) {
    process_.setProcessEnvironment(environment);
    process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process_.start(QStringLiteral(INSTANCE_PROGRAM), QStringList());
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

  void signal(int number) const { ::kill(static_cast<pid_t>(process_.processId()), number); }

  void end() {
    process_.closeWriteChannel();
    status();
  }

 private:
  bool hasEnded() const { return process_.state() == QProcess::NotRunning; }

  QProcess process_;
};

QProcessEnvironment withToken(QProcessEnvironment environment, const QString& token) {
  environment.insert("XDG_ACTIVATION_TOKEN", token);
  return environment;
}

/// Both ways of finding the one that runs.
enum class Way { bus, socket };

class SingleInstanceTest : public testing::TestWithParam<Way> {
 protected:
  SingleInstanceTest() : environment_(QProcessEnvironment::systemEnvironment()) {
    environment_.insert("XDG_RUNTIME_DIR", QString::fromStdString(folder_.path().string()));
    environment_.remove("XDG_ACTIVATION_TOKEN");
    environment_.remove("DESKTOP_STARTUP_ID");
    if (GetParam() == Way::socket) {
      environment_.remove("DBUS_SESSION_BUS_ADDRESS");
    }
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

TEST_P(SingleInstanceTest, oneThatWasKilledIsInNobodysWay) {
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

INSTANTIATE_TEST_SUITE_P(ways, SingleInstanceTest, testing::Values(Way::bus, Way::socket),
                         [](const auto& tested) { return tested.param == Way::bus ? "bus" : "socket"; });

class BusInstanceTest : public SingleInstanceTest {};

TEST_P(BusInstanceTest, launchersAskForActionsByName) {
  Started first(environment_);
  ASSERT_EQ(first.line(), "first");
  const auto launcher = QDBusConnection::connectToBus(QString::fromStdString(bus_.address()), "launcher");
  QDBusMessage message = QDBusMessage::createMethodCall(kit::applicationId, "/example/tarnwell/Tarnwell",
                                                        "org.freedesktop.Application", "ActivateAction");
  message.setArguments({"about", QVariantList(), QVariantMap{{"desktop-startup-id", "launcher_TIME5"}}});
  EXPECT_EQ(launcher.call(message).type(), QDBusMessage::ReplyMessage);
  EXPECT_EQ(first.line(), "asked \"about\" with \"launcher_TIME5\"");
  QDBusConnection::disconnectFromBus("launcher");
}

TEST_P(BusInstanceTest, oneThatDoesNotAnswerIsReported) {
  Started first(environment_);
  ASSERT_EQ(first.line(), "first");
  first.signal(SIGSTOP);
  Started second(environment_);
  EXPECT_EQ(second.line(), "failed: another Tarnwell is running, but it does not answer");
  EXPECT_EQ(second.status(), 1);
  first.signal(SIGCONT);
}

INSTANTIATE_TEST_SUITE_P(ways, BusInstanceTest, testing::Values(Way::bus), [](const auto&) { return "bus"; });

}  // namespace
}  // namespace tarnwell::host_qt
