#include "updater/package/ForkedWorker.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "fixtures/Sandbox.h"
#include "fixtures/Subprocess.h"
#include "fixtures/WaitFor.h"

namespace tarnwell::updater {
namespace {

class ForkedWorkerTest : public testing::Test {
 protected:
  bool becomes(const std::function<bool()>& condition) {
    return fixtures::waitFor([&] {
      pollfd ready = {.fd = worker->descriptor(), .events = POLLIN, .revents = 0};
      if (worker && ::poll(&ready, 1, 0) > 0) {
        worker->dispatch();
      }
      return condition();
    });
  }

  /// What is told of `work`; "done" when it was done.
  std::string outcomeOf(const Worker::Work& work) {
    std::optional<std::string> outcome;
    const auto job = worker->begin(work, [&outcome](const std::optional<system::Failure>& failure) {
      EXPECT_FALSE(outcome);
      outcome = failure ? failure->message : "done";
    });
    EXPECT_FALSE(outcome);
    EXPECT_TRUE(becomes([&] { return outcome.has_value(); }));
    return outcome.value_or("nothing came");
  }

  static bool hasChildren() { return ::waitid(P_ALL, 0, nullptr, WEXITED | WNOHANG | WNOWAIT) == 0 || errno != ECHILD; }

  /// Work that tells its process number and then never ends.
  Worker::Work endless() const {
    return [this] {
      sandbox.write("process.new", std::to_string(::getpid()));
      std::filesystem::rename(sandbox / "process.new", sandbox / "process");
      for (;;) {
        ::pause();
      }
      return std::nullopt;
    };
  }

  static std::optional<system::Failure> nothing() { return std::nullopt; }
  static void unwanted(const std::optional<system::Failure>& /*failure*/) { ADD_FAILURE() << "this is not called"; }

  static constexpr const char* interrupted = "The work on the update was interrupted before it was done. Try again.";
  fixtures::Sandbox sandbox;
  std::optional<ForkedWorker> worker{std::in_place};
};

TEST_F(ForkedWorkerTest, tellsWhatWasDoneAndWhatWasNot) {
  EXPECT_EQ(outcomeOf(nothing), "done");
  EXPECT_EQ(outcomeOf([] { return system::Failure{"it rained"}; }), "it rained");
  EXPECT_EQ(outcomeOf([] { return system::Failure{""}; }), "");
  EXPECT_EQ(outcomeOf([] { return system::Failure{"done"}; }), "done");
  EXPECT_EQ(outcomeOf([] { return system::Failure{std::string(100'000, 'x')}; }).find_first_not_of('x'),
            std::string::npos);
  EXPECT_TRUE(becomes([] { return !hasChildren(); }));
}

TEST_F(ForkedWorkerTest, worksInAnotherProcess) {
  int value = 1;
  EXPECT_EQ(outcomeOf([&] {
              value = 2;
              sandbox.write("process", std::to_string(::getpid()));
              return std::nullopt;
            }),
            "done");
  EXPECT_EQ(value, 1);
  EXPECT_NE(sandbox.read("process"), std::to_string(::getpid()));
}

TEST_F(ForkedWorkerTest, nothingButItsWordCounts) {
  EXPECT_EQ(outcomeOf([]() -> std::optional<system::Failure> { ::_exit(0); }), interrupted);
  EXPECT_EQ(outcomeOf([]() -> std::optional<system::Failure> { ::_exit(1); }), interrupted);
  for (const int signal : {SIGKILL, SIGTERM, SIGSEGV}) {
    EXPECT_EQ(outcomeOf([signal] {
                ::raise(signal);
                return std::nullopt;
              }),
              interrupted);
  }
  EXPECT_TRUE(becomes([] { return !hasChildren(); }));
}

TEST_F(ForkedWorkerTest, survivesAFileThatIsCutShortWhileItIsRead) {
  const int file = ::memfd_create("package", MFD_CLOEXEC);
  ASSERT_EQ(::ftruncate(file, 8192), 0);
  EXPECT_EQ(outcomeOf([file]() -> std::optional<system::Failure> {
              const auto* bytes = static_cast<const char*>(::mmap(nullptr, 8192, PROT_READ, MAP_SHARED, file, 0));
              if (::ftruncate(file, 0) != 0 || bytes[5000] == 0) {
                return std::nullopt;
              }
              return system::Failure{"read what is not there"};
            }),
            interrupted);
  ::close(file);
}

TEST_F(ForkedWorkerTest, cancelledWorkIsKilledAndReaped) {
  auto job = worker->begin(endless(), unwanted);
  ASSERT_TRUE(becomes([&] { return sandbox.holds("process"); }));
  job.reset();
  EXPECT_TRUE(becomes([] { return !hasChildren(); }));
}

TEST_F(ForkedWorkerTest, leavesNoProcessWhenItGoes) {
  auto job = worker->begin(endless(), unwanted);
  ASSERT_TRUE(becomes([&] { return sandbox.holds("process"); }));
  job.reset();
  worker.reset();
  EXPECT_FALSE(hasChildren());
}

TEST_F(ForkedWorkerTest, endsWithTheProcessThatBeganIt) {
  EXPECT_EQ(fixtures::exitStatusOf([&] {
              const auto job = worker->begin(endless(), unwanted);
              fixtures::waitFor([&] { return sandbox.holds("process"); });
              ::_exit(0);
              return 1;
            }),
            0);
  const pid_t orphan = std::stoi(sandbox.read("process"));
  EXPECT_TRUE(fixtures::waitFor([orphan] {
    const std::string status = "/proc/" + std::to_string(orphan) + "/stat";
    std::ifstream file(status);
    std::string text;
    std::getline(file, text);
    // Who has to reap it now may take its time.
    return text.empty() || text.find(") Z ") != std::string::npos;
  }));
}

TEST_F(ForkedWorkerTest, doesSeveralThingsAtOnce) {
  std::vector<std::string> told;
  std::vector<std::unique_ptr<Worker::Job>> jobs;
  const auto waiting = worker->begin(endless(), unwanted);
  constexpr int several = 20;
  jobs.reserve(several);
  for (int number = 0; number < several; ++number) {
    jobs.push_back(worker->begin([number] { return system::Failure{std::to_string(number)}; },
                                 [&told](const auto& failure) { told.push_back(failure->message); }));
  }
  EXPECT_TRUE(becomes([&] { return told.size() == jobs.size(); }));
}

TEST_F(ForkedWorkerTest, mayBeEndedByWhatItCalls) {
  std::unique_ptr<Worker::Job> job;
  bool isTold = false;
  job = worker->begin(nothing, [&](const auto& /*failure*/) {
    isTold = true;
    job.reset();
    worker.reset();
  });
  EXPECT_TRUE(fixtures::waitFor([&] {
    worker->dispatch();
    return isTold;
  }));
  EXPECT_FALSE(hasChildren());
}

TEST_F(ForkedWorkerTest, isIdleWhenThereIsNothingToDo) {
  EXPECT_EQ(outcomeOf(nothing), "done");
  EXPECT_TRUE(becomes([] { return !hasChildren(); }));
  pollfd ready = {.fd = worker->descriptor(), .events = POLLIN, .revents = 0};
  EXPECT_EQ(::poll(&ready, 1, 0), 0);
}

TEST_F(ForkedWorkerTest, worksWhereEndsOfChildrenAreIgnored) {
  EXPECT_EQ(fixtures::exitStatusOf([&] {
              ::signal(SIGCHLD, SIG_IGN);
              const bool isRight =
                  outcomeOf(nothing) == "done" && outcomeOf([] { return system::Failure{"no"}; }) == "no";
              return isRight ? 0 : 1;
            }),
            0);
}

TEST_F(ForkedWorkerTest, leavesNoDescriptorToOtherPrograms) {
  const auto left = [] {
    std::set<int> numbers;
    for (int number = 0; number < 1024; ++number) {
      const int flags = ::fcntl(number, F_GETFD);
      if (flags >= 0 && (flags & FD_CLOEXEC) == 0) {
        numbers.insert(number);
      }
    }
    return numbers;
  };
  const std::set<int> before = left();
  const auto job = worker->begin(endless(), unwanted);
  EXPECT_EQ(left(), before);
}

}  // namespace
}  // namespace tarnwell::updater
