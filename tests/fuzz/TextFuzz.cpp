#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "fuzz/Require.h"
#include "host/linux/updates/Channels.h"
#include "host/linux/updates/PlainLine.h"
#include "host/linux/updates/Version.h"
#include "host/linux/updates/WebAddress.h"

namespace tarnwell::fuzz {
namespace {

namespace updates = host_linux::updates;

bool isSeen(char c) { return static_cast<unsigned char>(c) >= ' ' && c != 0x7f; }

void checkLine(std::string_view text) {
  const std::string line = updates::plainLine(text, text.size());
  require(line.size() <= text.size() && std::all_of(line.begin(), line.end(), isSeen));
  require(line.find("\xe2\x80\xae") == std::string::npos && line.find("  ") == std::string::npos);
  require(updates::plainLine(line, text.size()) == line);
  constexpr std::size_t few = 10;
  constexpr std::size_t mostBytes = 4 * few + 3;  // And the ellipsis.
  require(updates::plainLine(text, few).size() <= mostBytes);
}

/// The whole text is a line, an address, a version and a list of channels.
void run(std::string_view text) {
  checkLine(text);
  if (updates::isWebAddress(text)) {
    require(text.starts_with('h') || text.starts_with('H'));
    require(!updates::hostIn(text).empty() && std::all_of(text.begin(), text.end(), isSeen));
  }
  if (updates::isVersion(text)) {
    require(updates::plainLine(text, text.size()) == text && text.front() >= '0' && text.front() <= '9');
  }
  require(!updates::isNumericVersion(text) || updates::isVersion(text));
  for (const std::string& name : updates::channelsIn(text)) {
    require(updates::isChannelName(name) && text.find(name) != std::string_view::npos);
  }
}

}  // namespace
}  // namespace tarnwell::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tarnwell::fuzz::run({reinterpret_cast<const char*>(data), size});
  return 0;
}
