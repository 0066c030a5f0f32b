#include <cstddef>
#include <cstdint>
#include <string_view>

#include "fuzz/Require.h"
#include "release/protocol/ItemMessages.h"
#include "release/protocol/Message.h"
#include "release/protocol/ReleaseNotes.h"
#include "system/base/Utf8.h"

namespace tarnwell::fuzz {
namespace {

/// The bytes are what an engine says; whole lines of it can be said again.
void run(std::string_view text) {
  release::MessageReader reader;
  release::ItemReader items;
  release::NotesReader notes;
  std::size_t length = 0;
  reader.take(text, [&](const release::Message& message) {
    const std::string line = release::lineOf(message);
    require(text.substr(length, line.size()) == line && system::isUtf8(line));
    length += line.size();
    items.take(message);
    notes.take(message);
    return true;
  });
  const release::ReleaseNotes heard = notes.takeNotes();
  require(heard.size() <= release::NotesReader::maximumParagraphs);
  require(items.takeItems().size() <= release::ItemReader::maximumItems + 1);
  release::sayNotes(heard, [](const release::Message& message) { require(!message.word.empty()); });
}

}  // namespace
}  // namespace tarnwell::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tarnwell::fuzz::run({reinterpret_cast<const char*>(data), size});
  return 0;
}
