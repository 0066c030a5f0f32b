#include "system/processes/CheckedRun.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>

#include "system/base/Fault.h"
#include "system/events/DescriptorSet.h"
#include "system/processes/Pipe.h"

namespace tarnwell::system {
namespace {

constexpr const char* action = "watch a command";

/// One output of the process.
struct Stream {
  Pipe pipe = Pipe::create();
  std::string* text;

  int number() const { return pipe.readEnd.number(); }
};

class Watch {
 public:
  Watch(Process& process, std::array<Stream, 2>& streams) : process_(process), streams_(streams) {
    if (!ending_) {
      fault(action, errno);
    }
    watch(ending_.number());
    for (const Stream& stream : streams_) {
      watch(stream.number());
    }
  }

  /// Until the process has ended; false when `end` has come first.
  bool readUntil(std::chrono::steady_clock::time_point end) {
    while (!hasEnded_) {
      if (!set_.descriptor().waitUntilReadable(end)) {
        return false;
      }
      hear();
    }
    return true;
  }

 private:
  // The end is told with all that was printed before it. What lives on may print for ever.
  void hear() {
    for (const int number : set_.readable(streams_.size() + 1)) {
      const auto stream = std::ranges::find(streams_, number, &Stream::number);
      if (stream == streams_.end()) {
        hasEnded_ = true;
      } else {
        readFrom(*stream);
      }
    }
  }

  void watch(int number) const {
    if (!set_.add(number)) {
      fault(action, errno);
    }
  }

  void readFrom(Stream& stream) const {
    const auto part = stream.pipe.readEnd.readPart();
    if (part && !part->empty()) {
      *stream.text += *part;
      return;
    }
    set_.remove(stream.number());
    stream.pipe.readEnd.close();
  }

  Process& process_;
  std::array<Stream, 2>& streams_;
  Descriptor ending_ = process_.endDescriptor();
  DescriptorSet set_ = DescriptorSet(action);
  bool hasEnded_ = false;
};

}  // namespace

Result<CheckedRun> runChecked(Launch launch, std::chrono::milliseconds patience) {
  const auto deadline = std::chrono::steady_clock::now() + patience;
  CheckedRun run;
  std::array<Stream, 2> streams = {Stream{.text = &run.output}, Stream{.text = &run.errors}};
  launch.output = streams[0].pipe.writeEnd.number();
  launch.errors = streams[1].pipe.writeEnd.number();
  launch.hasOwnSession = true;
  launch.endsWithStarter = true;
  auto process = Process::start(launch);
  if (!process) {
    return process.error();
  }
  for (Stream& stream : streams) {
    stream.pipe.writeEnd.close();
  }
  Watch watch(*process, streams);
  run.isInTime = watch.readUntil(deadline);
  if (!run.isInTime) {
    process->sendToSession(SIGKILL);
  }
  run.end = process->wait();
  return run;
}

}  // namespace tarnwell::system
