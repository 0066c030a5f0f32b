#include "updater/package/DebianControlLinux.h"

#include <cstddef>
#include <string_view>

namespace tarnwell::updater {
namespace {

constexpr std::size_t longestVersion = 200;  // Bytes.

}  // namespace

std::optional<std::string> versionInControl(const std::string& control) {
  constexpr std::string_view field = "\nVersion:";
  constexpr const char* blanks = " \t";
  const std::string text = "\n" + control;
  const std::size_t place = text.find(field);
  if (place == std::string::npos || text.rfind(field) != place) {
    return std::nullopt;
  }
  const std::size_t start = place + field.size();
  const std::string value = text.substr(start, text.find('\n', start) - start);
  const std::size_t first = value.find_first_not_of(blanks);
  const std::size_t last = value.find_last_not_of(blanks);
  return first == std::string::npos || last - first >= longestVersion
             ? std::nullopt
             : std::optional(value.substr(first, last - first + 1));
}

}  // namespace tarnwell::updater
