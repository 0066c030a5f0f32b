#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "release/protocol/Message.h"
#include "system/base/Result.h"

namespace tarnwell::updateclient {

/// Has the work on updates done that touches what strangers wrote, a job at a time, in a process of its own. Everything
/// is called on the main thread.
class Engine {
 public:
  /// Under way as long as it lives and has not ended. Destroying it ends the work wherever it is, without waiting;
  /// nothing is called any more. It may be destroyed by what it calls.
  class Job {
   public:
    virtual ~Job() = default;
  };

  struct Order {
    /// The job's name and what it wants to know.
    std::vector<std::string> words = {};
    /// The file that it works on and the folder in which it makes files; borrowed until `start` has returned.
    int input = -1;
    int folder = -1;
  };
  /// All of it is called from the event loop.
  struct Listener {
    /// Whether that is something that this job says.
    std::function<bool(const release::Message&)> said = [](const auto&) { return false; };
    /// Called once. A failure is a sentence for people.
    std::function<void(system::Result<void>)> ended = {};
  };

  virtual ~Engine() = default;

  /// Returns why it could not even begin, as a sentence for people.
  virtual system::Result<std::unique_ptr<Job>> start(const Order& order, Listener listener) = 0;
};

}  // namespace tarnwell::updateclient
