#pragma once

#include <map>
#include <string>
#include <vector>

#include "core/CommandRunner.h"

namespace tarnwell::fakes {

/// Runs nothing: notes what it was asked to run, and answers reads from a table.
class RecordingCommandRunner final : public core::CommandRunner {
 public:
  void runDetached(const std::string& commandLine) override {
    commands.push_back(commandLine);
    detached.push_back(commandLine);
  }

  std::string runCaptured(const std::string& commandLine) override {
    commands.push_back(commandLine);
    captured.push_back(commandLine);
    const auto answer = answers.find(commandLine);
    return answer == answers.end() ? unanswered : answer->second;
  }

  /// What the command lines print, line feed included.
  std::map<std::string, std::string> answers = {};
  /// What every other command line prints: the words of the tool about a key that is not set.
  std::string unanswered = "\nThe domain/default pair does not exist\n";

  /// All command lines in the order in which they came, and those of each mode.
  std::vector<std::string> commands = {};
  std::vector<std::string> detached = {};
  std::vector<std::string> captured = {};
};

}  // namespace tarnwell::fakes
