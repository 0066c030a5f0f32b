#include "standin/store/Timestamp.h"

#include <array>
#include <cstdio>
#include <ctime>

namespace tarnwell::standin {
namespace {

std::string formatted(const timespec& time, const char* format) {
  tm parts{};
  ::localtime_r(&time.tv_sec, &parts);
  std::array<char, 64> buffer{};
  return {buffer.data(), std::strftime(buffer.data(), buffer.size(), format, &parts)};
}

timespec now() {
  timespec time{};
  ::clock_gettime(CLOCK_REALTIME, &time);
  return time;
}

}  // namespace

std::string timestamp() {
  const timespec time = now();
  std::array<char, 8> milliseconds{};
  (void)std::snprintf(milliseconds.data(), milliseconds.size(), ".%03d", static_cast<int>(time.tv_nsec / 1000000));
  return formatted(time, "%Y-%m-%d %H:%M:%S") + milliseconds.data();
}

std::string fileStamp() { return formatted(now(), "%Y%m%d-%H%M%S"); }

}  // namespace tarnwell::standin
