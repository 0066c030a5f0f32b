#pragma once

#include <map>

#include "system/ChildReaper.h"
#include "system/Descriptor.h"
#include "updater/package/Worker.h"

namespace tarnwell::updater {

/// Works in a copy of this process, one for each job, which ends with the job and with this process. A file that
/// another process truncates, or a disk that does not answer, ends the copy and nothing else. Only what a copy says in
/// so many words counts as done.
class ForkedWorker final : public Worker {
 public:
  ForkedWorker();
  ForkedWorker(const ForkedWorker&) = delete;
  ForkedWorker& operator=(const ForkedWorker&) = delete;
  ~ForkedWorker() override;

  std::unique_ptr<Job> begin(Work work, Ended ended) override;

  /// Readable when `dispatch` has something to do. The same for the worker's whole life.
  int descriptor() const { return events_.number(); }
  /// Goes on with what was begun. What it calls may end the worker.
  void dispatch();

 private:
  class Copy;

  void watch(int number) const;
  void forget(int number) const;
  void finish(Copy& copy);
  void stop(Copy& copy);
  void bury(system::Process process);

  system::Descriptor events_;
  std::map<int, Copy*> copies_;  // By the descriptor on which they tell how it went.
  system::ChildReaper stopped_;
};

}  // namespace tarnwell::updater
