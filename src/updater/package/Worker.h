#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "system/Result.h"

namespace tarnwell::updater {

/// Does what takes long while the event loop goes on. Everything is called on the main thread, from the event loop.
class Worker {
 public:
  /// Under way as long as it lives and has not ended. Destroying it stops the work wherever it is, without waiting for
  /// more than a moment; nothing is called any more. It may be destroyed by what it calls, and not after the worker.
  class Job {
   public:
    virtual ~Job() = default;
  };

  /// Returns why it could not be done, as a sentence for people. What it does to files stays; what it does to memory is
  /// lost.
  using Work = std::function<std::optional<system::Failure>()>;
  using Ended = std::function<void(std::optional<system::Failure>)>;

  virtual ~Worker() = default;

  /// Calls `ended` once, and not before it has returned. Work that did not come to its end has failed.
  virtual std::unique_ptr<Job> begin(Work work, Ended ended) = 0;
};

}  // namespace tarnwell::updater
