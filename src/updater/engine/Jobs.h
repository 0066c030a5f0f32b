#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <vector>

#include "release/protocol/Engine.h"
#include "release/protocol/Message.h"
#include "system/base/Result.h"
#include "updater/transfer/Download.h"

namespace tarnwell::updater {

using Say = std::function<void(const release::Message&)>;

/// What a job works with. Descriptors are borrowed; a test has others.
struct Given {
  int input = release::engineInput;
  int folder = release::engineFolder;
  std::function<system::Result<void>(const Download&, const Received&)> fetch = &updater::fetch;
};

/// One thing that the engine can do, by what it is called with: its first word, and behind that what the job wants to
/// know. What it was given to work on is at its standard input.
struct Job {
  const char* name;
  std::size_t parameters;
  /// When it is killed, by the clock. Where the work has limits of its own, they end it sooner and say why.
  std::chrono::seconds limit;
  /// Gives up all rights that the job does not need, and time past that limit. Returns what could not be given up, as
  /// sentences for the log.
  std::vector<std::string> (*confine)(std::chrono::seconds limit);
  /// Blocks until it is done. A failure is a sentence for people.
  system::Result<void> (*run)(const std::vector<std::string>& arguments, const Given& given, const Say& say);
};

/// Nothing where there is no such job.
const Job* jobCalled(const std::string& name);

}  // namespace tarnwell::updater
