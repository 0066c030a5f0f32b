#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace tarnwell::standin {

/// Now in local time, "2025-03-20 19:05:18.794".
std::string timestamp();

/// The seconds since 1970 of a text in a form of strptime's; in UTC where that has no zone. Nothing for a text of
/// another form, and for a day or a second that there is not.
std::optional<std::int64_t> secondsIn(const std::string& text, const char* form);

}  // namespace tarnwell::standin
