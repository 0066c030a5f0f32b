#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "commandline/dock/ChangeMemory.h"
#include "commandline/dock/DockStore.h"
#include "commandline/dock/UndoText.h"
#include "fuzz/OwnFolder.h"
#include "fuzz/Require.h"
#include "profile/values/Name.h"

namespace tarnwell::fuzz {
namespace {

using commandline::ChangeMemory;

bool isHarmless(char c) {
  return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == ' ' || c == '.' || c == '-' || c == '&';
}

/// What stands outside single quotes, of which each has an end.
std::string outsideQuotes(std::string_view line) {
  std::string outside;
  bool isQuoted = false;
  for (std::size_t at = 0; at < line.size(); ++at) {
    if (line[at] == '\'') {
      isQuoted = !isQuoted;
    } else if (!isQuoted && line.substr(at, 2) == "\\'") {
      ++at;
    } else if (!isQuoted) {
      outside += line[at];
    }
  }
  require(!isQuoted && line.find('\0') == std::string_view::npos);
  return outside;
}

/// What it takes to bring that back has no character that means something to a shell, but for "&&" between commands.
void checkCommandLine(const profile::Before& before) {
  const std::string line =
      outsideQuotes(commandline::DockStore::lineFor(profile::differences(core::StoredValues(), before)));
  require(std::all_of(line.begin(), line.end(), isHarmless));
  for (std::size_t at = line.find('&'); at != std::string::npos; at = line.find('&', at + 4)) {
    require(at > 0 && line.substr(at - 1, 13) == " && defaults ");
  }
}

void checkKept(const ChangeMemory& memory, const profile::Before& before) {
  const std::string text = commandline::undoText(before);
  writeFile(memory.undoFile(), text);
  const auto again = memory.beforeLast();
  // Not the values: one that is no number differs from itself.
  require(again && commandline::undoText(*again) == text);
}

/// The text is what is remembered of the last change. It is read whole or refused in a visible line, and stays as it
/// is.
void run(std::string_view text) {
  const OwnFolder folder;
  ::setenv("XDG_STATE_HOME", folder.path().c_str(), 1);
  auto memory = ChangeMemory::ofUser("tarnwell");
  require(memory && memory->takeTurn({}));
  writeFile(memory->undoFile(), text);
  const auto before = memory->beforeLast();
  require(contentOf(memory->undoFile()) == text);
  if (before) {
    checkCommandLine(*before);
    checkKept(*memory, *before);
  } else {
    const std::string& reason = before.error().message;
    require(reason.find(memory->undoFile().string()) != std::string::npos && profile::visible(reason) == reason);
  }
  // All that was there before is kept once.
  const auto kept = memory->keepAll(std::string(text));
  require(kept && *kept && contentOf(**kept) == text);
  const auto later = memory->keepAll("later");
  require(later && !*later && contentOf(**kept) == text);
}

}  // namespace
}  // namespace tarnwell::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tarnwell::fuzz::run({reinterpret_cast<const char*>(data), size});
  return 0;
}
