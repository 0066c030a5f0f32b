#include "updateclient/engine/EngineProcess.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <list>
#include <optional>
#include <vector>

#include "fixtures/EnvironmentScope.h"
#include "fixtures/EventLoop.h"
#include "fixtures/Processes.h"
#include "fixtures/Sandbox.h"
#include "system/base/Descriptor.h"
#include "system/processes/Pipe.h"
#include "system/processes/Process.h"

namespace tarnwell::updateclient {
namespace {

namespace fs = std::filesystem;

/// Engines of the test's own, which say what they like.
class EngineProcessTest : public testing::Test {
 protected:
  /// What was said, and how it ended: the failure, or "done".
  struct Outcome {
    std::vector<std::string> said = {};
    std::string end = {};
  };

  Outcome outcomeOf(const std::string& script) {
    Outcome outcome;
    const auto job = begin(script, outcome);
    EXPECT_TRUE(loop.runUntil([&] { return !outcome.end.empty(); }));
    return outcome;
  }
  std::string endOf(const std::string& script) { return outcomeOf(script).end; }

  std::unique_ptr<Engine::Job> begin(const std::string& script, Outcome& outcome, Engine::Order order = {}) {
    sandbox.write("engine", "#!/bin/sh\n" + script + "\n");
    fs::permissions(sandbox / "engine", fs::perms::owner_all);
    order.words = {"job", "argument"};
    auto job = engine->start(order, {.said =
                                         [&outcome](const release::Message& message) {
                                           outcome.said.push_back(message.word + " " + message.text);
                                           return message.word == "word";
                                         },
                                     .ended =
                                         [&outcome](const system::Result<void>& result) {
                                           outcome.end = result ? "done" : result.error().message;
                                         }});
    EXPECT_TRUE(job) << job.error().message;
    return *std::move(job);
  }

  bool losesItsChildren() {
    return loop.runUntil([] { return !fixtures::hasChildren(); });
  }

  fixtures::Sandbox sandbox;
  fixtures::EventLoop loop;
  std::optional<EngineProcess> engine{std::in_place, sandbox / "engine", loop.watch()};
};

constexpr const char* nonsense = "The update engine said something that makes no sense. Try again.";
constexpr const char* interrupted = "The work on the update was interrupted before it was done. Try again.";

TEST_F(EngineProcessTest, passesOnWhatTheEngineSays) {
  const Outcome outcome = outcomeOf("echo engine 1; echo \"word $1 $2\"; printf 'word two'; echo; echo 'done '");
  EXPECT_EQ(outcome.said, (std::vector<std::string>{"word job argument", "word two"}));
  EXPECT_EQ(outcome.end, "done");
  EXPECT_TRUE(losesItsChildren());
}

TEST_F(EngineProcessTest, saysWhyItFailedInOnePlainLine) {
  EXPECT_EQ(endOf("echo engine 1; printf 'failed It is\\\\nnot\\007 there.\\n'; exit 1"), "It is not there.");
}

TEST_F(EngineProcessTest, takesNoEngineOfAnotherVersion) {
  const std::string other =
      "The update engine does not belong to the version that runs. Quit Tarnwell and start it again.";
  EXPECT_EQ(endOf("echo engine 2; echo 'done '"), other);
  EXPECT_EQ(endOf("echo 'done '"), other);
}

TEST_F(EngineProcessTest, believesNoLineThatLies) {
  for (const char* script :
       {"echo engine 1; echo other word; echo 'done '", "echo engine 1; echo 'done '; echo word more",
        "echo engine 1; echo nonsense", "echo engine 1; echo engine 1", "echo engine 1; printf '\\377\\n'",
        "echo engine 1; head -c 2000000 /dev/zero | tr '\\0' x", "echo engine 1; yes \"word $(printf %01000d 0)\""}) {
    EXPECT_EQ(endOf(script), nonsense) << script;
  }
  EXPECT_TRUE(losesItsChildren());
}

TEST_F(EngineProcessTest, logsWhichFencesThereAreNotButNoMoreThanThereAre) {
  const std::string fence = "echo unfenced no fence; ";
  std::string fences;
  std::string logged;
  for (int count = 1; count <= 10; ++count) {
    fences += fence;
    logged += "tarnwell: no fence\n";
  }
  testing::internal::CaptureStderr();
  EXPECT_EQ(endOf("echo engine 1; " + fences + "echo 'done '"), "done");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), logged);
  testing::internal::CaptureStderr();
  EXPECT_EQ(endOf("echo engine 1; " + fences + fence + "echo 'done '"), nonsense);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), logged);
}

TEST_F(EngineProcessTest, seesAnEngineThatWasKilledAtAnyMoment) {
  for (const char* script : {"kill -9 $$", "echo engine 1; kill -9 $$", "echo engine 1; echo word x; kill -9 $$",
                             "echo engine 1; echo 'done '; printf wor", "exit 0", "echo engine 1; exit 0"}) {
    EXPECT_EQ(endOf(script), interrupted) << script;
  }
  EXPECT_TRUE(losesItsChildren());
}

TEST_F(EngineProcessTest, endsWithItsJob) {
  Outcome outcome;
  auto job = begin("echo engine 1; echo word begun; exec sleep 60", outcome);
  EXPECT_TRUE(loop.runUntil([&] { return !outcome.said.empty(); }));
  job.reset();
  EXPECT_TRUE(losesItsChildren());
  EXPECT_EQ(outcome.end, "");
}

TEST_F(EngineProcessTest, endsWithTheProgramThatStartedIt) {
  system::Pipe pipe = system::Pipe::create("see the engine end");
  const pid_t starter = ::fork();
  if (starter == 0) {
    ::setpgid(0, 0);
    Outcome outcome;
    const auto job = begin("sleep 1000 && sleep 1000", outcome, {.input = pipe.writeEnd.number()});
    ::kill(0, SIGKILL);
  }
  pipe.writeEnd.close();
  EXPECT_EQ(system::Process(starter).wait().number, SIGKILL);
  EXPECT_EQ(pipe.readEnd.readAll(), "");
}

TEST_F(EngineProcessTest, mayBeEndedByWhatItSays) {
  sandbox.write("engine", "#!/bin/sh\necho engine 1\necho word one\necho word two\nexec sleep 60\n");
  fs::permissions(sandbox / "engine", fs::perms::owner_all);
  std::unique_ptr<Engine::Job> job;
  int heard = 0;
  job = *engine->start({.words = {"job"}}, {.said =
                                                [&](const auto& /*message*/) {
                                                  ++heard;
                                                  job.reset();
                                                  return true;
                                                },
                                            .ended = [](const auto& /*result*/) { ADD_FAILURE(); }});
  EXPECT_TRUE(loop.runUntil([&] { return heard > 0; }));
  EXPECT_TRUE(losesItsChildren());
  EXPECT_EQ(heard, 1);
}

TEST_F(EngineProcessTest, findsNothingButWhatItIsGiven) {
  const fixtures::EnvironmentScope secret("SECRET", "of the user");
  std::list<fixtures::EnvironmentScope> passedOn;
  std::string environment = "PATH=/usr/bin:/bin\n";
  for (const std::string name : {"LANG", "LC_ALL", "LC_MESSAGES", "http_proxy", "https_proxy", "HTTPS_PROXY",
                                 "all_proxy", "ALL_PROXY", "no_proxy", "NO_PROXY", "SSL_CERT_FILE", "CURL_CA_BUNDLE"}) {
    passedOn.emplace_back(name, "own");
    environment += name + "=own\n";
  }
  // Numbers that the shell has no use for itself, and that are not closed on exec.
  engine.reset();
  std::vector<system::Descriptor> open;
  while (open.empty() || open.back().number() < 9) {
    open.emplace_back(::fcntl(0, F_DUPFD, 4));
  }
  engine.emplace(sandbox / "engine", loop.watch());
  sandbox.write("input", "to work on");
  const system::Descriptor input(::open((sandbox / "input").c_str(), O_RDONLY | O_CLOEXEC));
  Outcome outcome;
  const auto job =
      begin("cd '" + sandbox.path().string() +
                "'; echo engine 1; read -r line; echo \"word $line\"; tr '\\0' '\\n' </proc/$$/environ >environment; "
                "ls /proc/$$/fd >descriptors; echo \"word $(readlink /proc/$$/fd/3)\"; echo 'done '",
            outcome, {.input = input.number(), .folder = input.number()});
  EXPECT_TRUE(loop.runUntil([&] { return !outcome.end.empty(); }));
  EXPECT_EQ(outcome.said,
            (std::vector<std::string>{"word to work on", "word " + fs::canonical(sandbox / "input").string()}));
  EXPECT_EQ(sandbox.read("environment"), environment);
  // The shell has its script at 10 and, while it writes elsewhere, its output at 11.
  EXPECT_EQ(sandbox.read("descriptors"), "0\n1\n10\n11\n2\n3\n");
}

TEST_F(EngineProcessTest, thatIsNotThereIsSaidToBeSo) {
  engine.emplace(sandbox / "none", loop.watch());
  const auto job = engine->start({.words = {"job"}}, {});
  ASSERT_FALSE(job);
  EXPECT_EQ(job.error().message, "The update engine could not be started: cannot start " + (sandbox / "none").string() +
                                     ": No such file or directory. Try again.");
}

}  // namespace
}  // namespace tarnwell::updateclient
