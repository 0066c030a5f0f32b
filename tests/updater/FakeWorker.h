#pragma once

#include <memory>
#include <utility>

#include "updater/package/Worker.h"

namespace tarnwell::updater {

/// Works in the test itself, when it is told to.
class FakeWorker final : public Worker {
 public:
  std::unique_ptr<Job> begin(Work work, Ended ended) override {
    task_ = std::make_shared<Task>(Task{std::move(work), std::move(ended)});
    return std::make_unique<FakeJob>(task_);
  }

  /// Of the newest job, as long as it is held.
  bool isBusy() const { return task_ != nullptr && task_->ended != nullptr; }
  void work() {
    if (isBusy()) {
      const Task task = std::exchange(*task_, {});
      task.ended(task.work());
    }
  }

  /// Whether it waits for the test instead of working as soon as the event loop gets round to it.
  bool isHeld = false;

 private:
  struct Task {
    Work work;
    Ended ended;
  };

  class FakeJob final : public Job {
   public:
    explicit FakeJob(std::shared_ptr<Task> task) : task_(std::move(task)) {}
    ~FakeJob() override { *task_ = {}; }

   private:
    std::shared_ptr<Task> task_;
  };

  std::shared_ptr<Task> task_;
};

}  // namespace tarnwell::updater
