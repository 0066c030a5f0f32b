#pragma once

#include <gtest/gtest.h>

#include <string>

#include "core/ShellCommandRunner.h"
#include "fixtures/EnvironmentScope.h"
#include "fixtures/Sandbox.h"

namespace tarnwell::core {

/// Runs real shells, with start-up files of the test's own, and leaves no child behind.
class ShellTest : public testing::Test {
 public:
  ShellTest(const ShellTest&) = delete;
  ShellTest& operator=(const ShellTest&) = delete;

 protected:
  ShellTest();
  ~ShellTest() override;
  void TearDown() override;

  /// A path in the sandbox, as shell text.
  std::string path(const std::string& name) const { return (sandbox / name).string(); }

  /// Shell text that blocks until `release` lets one shell pass.
  std::string wait() const { return "read -r < " + path("gate"); }
  void release() const;
  /// The number to write to for a release from a signal handler.
  int gate() const { return gate_; }

  /// Reaps, and tells whether this process has no children left, ended or not.
  bool allReaped();
  bool isReadable() const;

  fixtures::Sandbox sandbox;
  ShellCommandRunner runner;

 private:
  fixtures::EnvironmentScope startUpFiles_{"ZDOTDIR", sandbox.path().string()};
  int gate_ = -1;
};

}  // namespace tarnwell::core
