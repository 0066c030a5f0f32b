#include "release/protocol/ItemMessages.h"

#include "release/text/Number.h"

namespace tarnwell::release {
namespace {

constexpr const char* itemWord = "item";
constexpr const char* lengthWord = "length";
constexpr const char* yes = "yes";

/// Hands each field of an item to `visit`, with the word that stands for it.
template <class Item, class Visit>
void visitFields(Item& item, const Visit& visit) {
  visit("title", item.title);
  visit("version", item.version);
  visit("shown-version", item.shownVersion);
  visit("link", item.link);
  visit("notes", item.notes);
  visit("notes-link", item.releaseNotesLink);
  visit("minimum-system", item.minimumSystemVersion);
  visit("channel", item.channel);
  visit("critical", item.isCritical);
  visit("informational", item.isInformational);
  visit("address", item.enclosure.url);
  visit(lengthWord, item.enclosure.length);
  visit("signature", item.enclosure.signature);
  visit("release-signature", item.releaseSignature);
  visit("system", item.enclosure.system);
  visit("objection", item.objection);
}

std::string textOf(const std::string& field) { return field; }
std::string textOf(bool field) { return field ? yes : ""; }
std::string textOf(std::uint64_t field) { return field == 0 ? "" : std::to_string(field); }

bool read(const std::string& text, std::string& field) {
  field = text;
  return true;
}

bool read(const std::string& text, bool& field) { return field = text == yes; }

bool read(const std::string& text, std::uint64_t& field) {
  const auto number = numberIn(text);
  field = number.value_or(0);
  return number.has_value();
}

}  // namespace

void sayItem(const FeedItem& item, const std::function<void(const Message&)>& say) {
  say({itemWord, item.version});
  visitFields(item, [&say](const char* word, const auto& field) {
    if (const std::string text = textOf(field); !text.empty()) {
      say({word, text});
    }
  });
}

bool ItemReader::take(const Message& message) {
  if (message.word == itemWord) {
    items_.emplace_back();
    return items_.size() <= maximumItems;
  }
  bool isTaken = false;
  if (!items_.empty()) {
    visitFields(items_.back(), [&](const char* word, auto& field) {
      isTaken = isTaken || (message.word == word && textOf(field).empty() && read(message.text, field));
    });
  }
  return isTaken;
}

}  // namespace tarnwell::release
