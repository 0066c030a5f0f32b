#include "system/processes/CheckedRun.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <csignal>

#include "fixtures/Processes.h"
#include "system/processes/Pipe.h"

namespace tarnwell::system {
namespace {

using namespace std::chrono_literals;
using How = ProcessEnd::How;

constexpr auto patience = 60s;

CheckedRun run(const std::string& text, std::chrono::milliseconds time = patience) {
  return *runChecked({.words = {"sh", "-c", text}}, time);
}

/// The same, after which nothing is left that was started by it.
CheckedRun runToTheLast(const std::string& text, std::chrono::milliseconds time = patience) {
  Pipe held = Pipe::create();
  CheckedRun checked = *runChecked({.words = {"sh", "-c", text}, .extra = held.writeEnd.number()}, time);
  held.writeEnd.close();
  EXPECT_EQ(held.readEnd.readAll(), "");
  return checked;
}

TEST(CheckedRunTest, tellsStatusAndBothOutputsApart) {
  const CheckedRun checked = run("echo one; echo two >&2; exit 3");
  EXPECT_TRUE(checked.isInTime);
  EXPECT_EQ(checked.end.how, How::exited);
  EXPECT_EQ(checked.end.number, 3);
  EXPECT_EQ(checked.output, "one\n");
  EXPECT_EQ(checked.errors, "two\n");
}

TEST(CheckedRunTest, readsMoreThanPipesHold) {
  const CheckedRun checked = run("head -c 300000 /dev/zero; head -c 400000 /dev/zero >&2; printf end");
  EXPECT_EQ(checked.output.size(), 300003U);
  EXPECT_EQ(checked.errors.size(), 400000U);
}

TEST(CheckedRunTest, tellsTheSignalThatEndedIt) {
  const CheckedRun checked = run("kill -TERM $$");
  EXPECT_EQ(checked.end.how, How::killed);
  EXPECT_EQ(checked.end.number, SIGTERM);
  EXPECT_TRUE(checked.isInTime);
}

TEST(CheckedRunTest, endsAllOfWhatTakesTooLong) {
  const CheckedRun checked = runToTheLast("echo begun; sleep 600 & trap '' TERM; sleep 600", 300ms);
  EXPECT_FALSE(checked.isInTime);
  EXPECT_EQ(checked.end.how, How::killed);
  EXPECT_EQ(checked.end.number, SIGKILL);
  EXPECT_EQ(checked.output, "begun\n");
}

TEST(CheckedRunTest, doesNotWaitForWhatOnlyKeepsAnOutput) {
  const CheckedRun checked = run("sleep 600 & echo $!; echo quick");
  EXPECT_TRUE(checked.isInTime);
  EXPECT_EQ(checked.output, std::to_string(std::stoi(checked.output)) + "\nquick\n");
  ::kill(std::stoi(checked.output), SIGKILL);
}

TEST(CheckedRunTest, doesNotReadForEverWhatPrintsForEver) {
  // It ends as soon as its output is closed.
  EXPECT_TRUE(runToTheLast("yes & :").isInTime);
}

TEST(CheckedRunTest, leavesNothingBehind) {
  const int before = fixtures::openDescriptorCount();
  run("echo text");
  run("sleep 600", 10ms);
  EXPECT_EQ(fixtures::openDescriptorCount(), before);
  EXPECT_FALSE(fixtures::hasChildren());
}

TEST(CheckedRunTest, endsWithItsStarter) {
  Pipe held = Pipe::create();
  const pid_t starter = ::fork();
  if (starter == 0) {
    (void)runChecked({.words = {"sh", "-c", "echo begun >&3; exec sleep 600"}, .extra = held.writeEnd.number()},
                     patience);
    ::_exit(0);
  }
  held.writeEnd.close();
  EXPECT_EQ(held.readEnd.readPart(), "begun\n");
  Process(starter).send(SIGKILL);
  EXPECT_EQ(held.readEnd.readAll(), "");
  Process(starter).wait();
}

TEST(CheckedRunTest, saysWhyItDidNotStart) {
  const auto checked = runChecked({.words = {"/nowhere/program"}}, patience);
  ASSERT_FALSE(checked);
  EXPECT_EQ(checked.error().message, "cannot start /nowhere/program: No such file or directory");
}

}  // namespace
}  // namespace tarnwell::system
