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

std::optional<std::int64_t> secondsIn(const std::string& text, const char* form) {
  tm read{};
  const char* rest = ::strptime(text.c_str(), form, &read);
  if (rest == nullptr || *rest != '\0') {
    return std::nullopt;
  }
  tm found = read;
  const std::time_t seconds = ::timegm(&found);
  // The thirtieth of February has become a day in March.
  if (found.tm_mday != read.tm_mday || found.tm_sec != read.tm_sec) {
    return std::nullopt;
  }
  return seconds - read.tm_gmtoff;
}

}  // namespace tarnwell::standin
