#include "host/macos/system/UnifiedLog.h"

#include <cstdint>

// What the macros of the system's log stand for; the headers of them are not among those that are published.
extern "C" {
struct os_log_s;
os_log_s* os_log_create(const char* subsystem, const char* category);
// NOLINTNEXTLINE(bugprone-reserved-identifier): the system's name
void _os_log_error_impl(void* program, os_log_s* log, std::uint8_t type, const char* format, std::uint8_t* buffer,
                        std::uint32_t size);
// NOLINTNEXTLINE(bugprone-reserved-identifier): the linker's name
extern void* __dso_handle;
}

namespace tarnwell::host_macos {
namespace {

constexpr std::uint8_t errorType = 0x10;

}  // namespace

void UnifiedLog::error(const std::string& subsystem, const std::string& category, const std::string& message) {
  // What reads the log looks the format up in that section.
  __attribute__((section("__TEXT,__oslogstring,cstring_literals"))) static const char format[] = "%{public}s";
  alignas(16) std::uint8_t buffer[__builtin_os_log_format_buffer_size("%{public}s", message.c_str())];
  __builtin_os_log_format(buffer, "%{public}s", message.c_str());
  _os_log_error_impl(&__dso_handle, os_log_create(subsystem.c_str(), category.c_str()), errorType, format, buffer,
                     sizeof buffer);
}

}  // namespace tarnwell::host_macos
