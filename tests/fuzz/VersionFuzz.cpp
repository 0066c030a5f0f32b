#include <compare>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "fuzz/Require.h"
#include "release/text/Version.h"

namespace tarnwell::fuzz {
namespace {

using release::compareVersions;

std::string_view taken(std::string_view& text) {
  const std::string_view line = text.substr(0, text.find('\n'));
  text.remove_prefix(line.size() == text.size() ? line.size() : line.size() + 1);
  return line;
}

/// The first three lines are versions.
void run(std::string_view text) {
  const std::string_view a = taken(text);
  const std::string_view b = taken(text);
  const std::string_view c = taken(text);
  require(std::is_eq(compareVersions(a, a)));
  require(std::is_eq(compareVersions(a, b)) ? std::is_eq(compareVersions(b, a))
                                            : std::is_lt(compareVersions(a, b)) == std::is_gt(compareVersions(b, a)));
  if (std::is_lteq(compareVersions(a, b)) && std::is_lteq(compareVersions(b, c))) {
    require(std::is_lteq(compareVersions(a, c)));
  }
}

}  // namespace
}  // namespace tarnwell::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tarnwell::fuzz::run({reinterpret_cast<const char*>(data), size});
  return 0;
}
