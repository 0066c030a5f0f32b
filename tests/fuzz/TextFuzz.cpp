#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "fuzz/Require.h"
#include "release/text/Channels.h"
#include "release/text/PlainLine.h"
#include "release/text/Version.h"
#include "release/text/WebAddress.h"

namespace tarnwell::fuzz {
namespace {

bool isSeen(char c) { return static_cast<unsigned char>(c) >= ' ' && c != 0x7f; }

void checkLine(std::string_view text) {
  const std::string line = release::plainLine(text, text.size());
  require(line.size() <= text.size() && std::all_of(line.begin(), line.end(), isSeen));
  require(line.find("\xe2\x80\xae") == std::string::npos && line.find("  ") == std::string::npos);
  require(release::plainLine(line, text.size()) == line);
  constexpr std::size_t few = 10;
  constexpr std::size_t mostBytes = 4 * few + 3;  // And the ellipsis.
  require(release::plainLine(text, few).size() <= mostBytes);
}

/// The whole text is a line, an address, a version and a list of channels.
void run(std::string_view text) {
  checkLine(text);
  if (release::isWebAddress(text)) {
    require(text.starts_with('h') || text.starts_with('H'));
    require(!release::hostIn(text).empty() && std::all_of(text.begin(), text.end(), isSeen));
  }
  if (release::isVersion(text)) {
    require(release::plainLine(text, text.size()) == text && text.front() >= '0' && text.front() <= '9');
  }
  require(!release::isNumericVersion(text) || release::isVersion(text));
  for (const std::string& name : release::channelsIn(text)) {
    require(release::isChannelName(name) && text.find(name) != std::string_view::npos);
  }
}

}  // namespace
}  // namespace tarnwell::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tarnwell::fuzz::run({reinterpret_cast<const char*>(data), size});
  return 0;
}
