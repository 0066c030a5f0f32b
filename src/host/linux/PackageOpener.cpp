#include "host/linux/PackageOpener.h"

#include <utility>

#include "host/linux/start/StartProgram.h"

namespace tarnwell::host_linux {
namespace {

// Where it cannot be told how it ended, the package stays, since it may be being read.
system::Result<void> outcomeOf(const system::ProcessEnd& end) {
  if (end.isSuccess() || end.how == system::ProcessEnd::How::unknown) {
    return {};
  }
  return system::Failure{"No program on this system opens Debian packages. Install one that does, and try again."};
}

}  // namespace

PackageOpener::PackageOpener(const updateclient::Watch& watch, std::chrono::milliseconds patience)
    : patience_(patience),
      timing_(watch(timer_.descriptor(),
                    [this] {
                      if (timer_.isDue()) {
                        tell({});
                      }
                    })),
      reaping_(watch(openers_.descriptor(), [this] { openers_.reap(); })) {}

system::Result<void> PackageOpener::open(const std::filesystem::path& file, Opened opened) {
  auto started = startProgram({"xdg-open", file.string()});
  if (!started) {
    return system::Failure{"The package could not be opened: " + started.error().message +
                           ". Install the program, which is in the package xdg-utils, and try again."};
  }
  opened_ = std::move(opened);
  awaited_ = started->number();
  openers_.watch(*std::move(started), [this, opener = awaited_](const system::ProcessEnd& end) {
    if (opener == awaited_) {
      tell(outcomeOf(end));
    }
  });
  timer_.set(system::Timer::Clock::now() + patience_);
  return {};
}

void PackageOpener::stopWaiting() {
  awaited_ = -1;
  opened_ = nullptr;
  timer_.cancel();
}

// It may end this object.
void PackageOpener::tell(const system::Result<void>& result) {
  const Opened opened = std::exchange(opened_, nullptr);
  stopWaiting();
  if (opened) {
    opened(result);
  }
}

}  // namespace tarnwell::host_linux
