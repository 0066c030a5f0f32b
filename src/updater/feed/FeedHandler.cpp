#include "updater/feed/FeedHandler.h"

#include <algorithm>
#include <array>

#include "release/text/Number.h"
#include "release/text/PlainLine.h"
#include "updater/feed/FeedLimits.h"
#include "updater/feed/FeedNamespace.h"

namespace tarnwell::updater {
namespace {

/// The name of an extension without its namespace; empty for every other name.
std::string_view nameIn(std::string_view space, std::string_view name) {
  const bool isExtension =
      name.starts_with(space) && name.size() > space.size() && name[space.size()] == FeedHandler::separator;
  return isExtension ? name.substr(space.size() + 1) : std::string_view();
}

struct Field {
  std::string_view name = {};
  std::string release::FeedItem::*text = nullptr;
};

constexpr std::array plainFields = {
    Field{"title", &release::FeedItem::title},
    Field{"link", &release::FeedItem::link},
    Field{"pubDate", &release::FeedItem::publicationDate},
    Field{"description", &release::FeedItem::notes},
};

constexpr std::array extensionFields = {
    Field{"version", &release::FeedItem::version},
    Field{"shortVersionString", &release::FeedItem::shownVersion},
    Field{"releaseNotesLink", &release::FeedItem::releaseNotesLink},
    Field{"minimumSystemVersion", &release::FeedItem::minimumSystemVersion},
    Field{"channel", &release::FeedItem::channel},
};

constexpr std::array ownFields = {Field{"releaseSignature", &release::FeedItem::releaseSignature}};

template <class Fields>
std::string* fieldIn(const Fields& fields, std::string_view name, release::FeedItem& item) {
  const auto* found = std::find_if(fields.begin(), fields.end(), [name](const Field& f) { return f.name == name; });
  return found == fields.end() ? nullptr : &(item.*found->text);
}

std::string attribute(const FeedHandler::Attributes& attributes, std::string_view name) {
  const auto found =
      std::find_if(attributes.begin(), attributes.end(), [name](const auto& a) { return a.first == name; });
  return std::string(found == attributes.end() ? std::string_view() : found->second);
}

std::string extensionAttribute(const FeedHandler::Attributes& attributes, std::string_view name) {
  return attribute(attributes, std::string(feedExtensions) + FeedHandler::separator + std::string(name));
}

/// 0, which no package has, for what is no number of bytes.
std::uint64_t lengthIn(const std::string& text) { return release::numberIn(text).value_or(0); }

std::string withoutOuterBlanks(std::string_view text) {
  constexpr std::string_view blanks = " \t\r\n";
  const std::size_t first = text.find_first_not_of(blanks);
  if (first == std::string_view::npos) {
    return {};
  }
  return std::string(text.substr(first, text.find_last_not_of(blanks) - first + 1));
}

}  // namespace

bool FeedHandler::refuse(std::string reason) {
  if (!refusal_) {
    refusal_ = std::move(reason);
  }
  return false;
}

FeedHandler::Place FeedHandler::placeOf(std::string_view name) const {
  if (path_.empty()) {
    return name == "rss" ? Place::feed : Place::outside;
  }
  if (path_.back() == Place::feed && name == "channel") {
    return Place::channel;
  }
  if (path_.back() == Place::channel && name == "item") {
    return Place::item;
  }
  return path_.back() == Place::item ? Place::field : Place::outside;
}

bool FeedHandler::start(std::string_view name, const Attributes& attributes) {
  if (refusal_) {
    return false;
  }
  if (path_.size() == FeedLimits::maximumDepth) {
    return refuse("its elements are nested too deep");
  }
  const Place place = placeOf(name);
  if (path_.empty() && place != Place::feed) {
    return refuse("it is not a feed");
  }
  path_.push_back(place);
  hasChannel_ = hasChannel_ || place == Place::channel;
  if (place == Place::item) {
    return startItem();
  }
  if (place == Place::field) {
    startField(name, attributes);
  }
  return true;
}

bool FeedHandler::startItem() {
  if (items_.size() == FeedLimits::maximumItems) {
    return refuse("it has more than " + std::to_string(FeedLimits::maximumItems) + " items");
  }
  item_ = {};
  olderVersion_ = {};
  hasEnclosure_ = false;
  return true;
}

void FeedHandler::startField(std::string_view name, const Attributes& attributes) {
  text_.clear();
  const std::string_view extension = nameIn(feedExtensions, name);
  item_.isCritical = item_.isCritical || extension == "criticalUpdate";
  item_.isInformational = item_.isInformational || extension == "informationalUpdate";
  if (name == "enclosure") {
    takeEnclosure(attributes);
  }
  if (const std::string_view own = nameIn(ownExtensions, name); !own.empty()) {
    field_ = fieldIn(ownFields, own, item_);
  } else {
    field_ = extension.empty() ? fieldIn(plainFields, name, item_) : fieldIn(extensionFields, extension, item_);
  }
}

// An enclosure is taken whole or not at all, so that one's signature never vouches for the other's file.
void FeedHandler::takeEnclosure(const Attributes& attributes) {
  if (std::exchange(hasEnclosure_, true)) {
    return;
  }
  item_.enclosure = {.url = attribute(attributes, "url"),
                     .length = lengthIn(attribute(attributes, "length")),
                     .type = attribute(attributes, "type"),
                     .signature = extensionAttribute(attributes, "edSignature"),
                     .system = extensionAttribute(attributes, "os")};
  olderVersion_.version = extensionAttribute(attributes, "version");
  olderVersion_.shownVersion = extensionAttribute(attributes, "shortVersionString");
}

bool FeedHandler::text(std::string_view characters) {
  if (refusal_) {
    return false;
  }
  if (field_ == nullptr) {
    return true;
  }
  const bool isNotes = field_ == &item_.notes;
  if (text_.size() + characters.size() > (isNotes ? FeedLimits::maximumNotesLength : FeedLimits::maximumFieldLength)) {
    return refuse("one of its texts is too long");
  }
  text_ += characters;
  return true;
}

bool FeedHandler::end() {
  // A parser that was stopped within an element without content still reports its end.
  if (refusal_ || path_.empty()) {
    return false;
  }
  const Place place = path_.back();
  path_.pop_back();
  if (place == Place::field) {
    endField();
  } else if (place == Place::item) {
    endItem();
  }
  return true;
}

void FeedHandler::endField() {
  if (field_ != nullptr) {
    const bool isTitle = field_ == &item_.title;
    *std::exchange(field_, nullptr) =
        isTitle ? release::plainLine(text_, FeedLimits::maximumTitleLength) : withoutOuterBlanks(text_);
  }
}

void FeedHandler::endItem() {
  if (item_.version.empty()) {
    item_.version = olderVersion_.version;
  }
  if (item_.shownVersion.empty()) {
    item_.shownVersion = olderVersion_.shownVersion.empty() ? item_.version : olderVersion_.shownVersion;
  }
  items_.push_back(std::exchange(item_, {}));
}

}  // namespace tarnwell::updater
