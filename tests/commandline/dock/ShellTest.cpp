#include "commandline/dock/Shell.h"

#include <gtest/gtest.h>

namespace tarnwell::commandline {
namespace {

/// Answers as it is told.
class ToldShell final : public Shell {
 public:
  explicit ToldShell(system::CheckedRun run) : run_(std::move(run)) {}

  system::Result<system::CheckedRun> run(const std::string&) override { return run_; }

 private:
  system::CheckedRun run_;
};

using How = system::ProcessEnd::How;

std::string reasonFor(const std::string& errors) {
  ToldShell shell({.end = {How::exited, 1}, .errors = errors});
  return outputOf(shell, "").error().message;
}

TEST(Shell, givesWhatACommandThatSucceededPrinted) {
  ToldShell shell({.end = {How::exited, 0}, .output = "text\n", .errors = "warning\n"});
  EXPECT_EQ(*outputOf(shell, ""), "text\n");
}

TEST(Shell, aReasonIsTheToolsOwnWithoutItsPrefix) {
  EXPECT_EQ(reasonFor("2026-11-22 10:55:48.932 defaults[21082:21082] \nThe pair does not exist\n"),
            "The pair does not exist");
  EXPECT_EQ(reasonFor("2026-11-22 10:55:48.932 defaults[1:2] Could not write; exiting\n"
                      "2026-11-22 10:55:48.932 defaults[1:2] [a] no room\n"),
            "Could not write; exiting; [a] no room");
  EXPECT_EQ(reasonFor("zsh:1: command not found: defaults\n"), "zsh:1: command not found: defaults");
  EXPECT_EQ(reasonFor("an array [1] 2\n"), "an array [1] 2");
}

TEST(Shell, withoutOneItIsTheEnd) {
  EXPECT_EQ(reasonFor(""), "ended with status 1");
  ToldShell killed({.end = {How::killed, 9}});
  EXPECT_EQ(outputOf(killed, "").error().message, "ended by signal 9");
  ToldShell late({.end = {How::killed, 9}, .isInTime = false, .errors = "some\n"});
  EXPECT_EQ(outputOf(late, "").error().message, "no answer within 10 seconds");
}

}  // namespace
}  // namespace tarnwell::commandline
