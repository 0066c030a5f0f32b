#include "host/linux/start/SessionBusAnswers.h"

#include <systemd/sd-bus.h>

#include <chrono>
#include <cstdint>
#include <memory>

namespace tarnwell::host_linux {
namespace {

using Clock = std::chrono::steady_clock;

constexpr auto busPatience = std::chrono::seconds(2);

/// Lets the connection go on by what has come, or waits for more; false once there is nothing left to wait for.
bool goesOn(sd_bus* bus, Clock::time_point deadline) {
  const int progress = ::sd_bus_process(bus, nullptr);
  const auto left = std::chrono::duration_cast<std::chrono::microseconds>(deadline - Clock::now());
  if (progress != 0 || left.count() <= 0) {
    return progress > 0;
  }
  return ::sd_bus_wait(bus, static_cast<std::uint64_t>(left.count())) >= 0;
}

}  // namespace

bool sessionBusAnswers() {
  const auto deadline = Clock::now() + busPatience;
  sd_bus* opened = nullptr;
  if (::sd_bus_open_user(&opened) < 0) {
    return false;
  }
  const std::unique_ptr<sd_bus, decltype(&::sd_bus_close_unref)> bus(opened, &::sd_bus_close_unref);
  while (::sd_bus_is_ready(bus.get()) == 0) {
    if (!goesOn(bus.get(), deadline)) {
      return false;
    }
  }
  return ::sd_bus_is_ready(bus.get()) > 0;
}

}  // namespace tarnwell::host_linux
