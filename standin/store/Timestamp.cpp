#include "standin/store/Timestamp.h"

#include <array>
#include <cstdio>
#include <ctime>

namespace tarnwell::standin {

std::string timestamp() {
  timespec now{};
  ::clock_gettime(CLOCK_REALTIME, &now);
  tm parts{};
  ::localtime_r(&now.tv_sec, &parts);
  std::array<char, 64> seconds{};
  (void)std::strftime(seconds.data(), seconds.size(), "%Y-%m-%d %H:%M:%S", &parts);
  std::array<char, 8> milliseconds{};
  (void)std::snprintf(milliseconds.data(), milliseconds.size(), ".%03d", static_cast<int>(now.tv_nsec / 1000000));
  return std::string(seconds.data()) + milliseconds.data();
}

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
