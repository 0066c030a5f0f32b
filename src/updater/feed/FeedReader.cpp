#include "updater/feed/FeedReader.h"

#include <expat.h>

#include <utility>

#include "diagnostics/Fault.h"
#include "updater/feed/FeedHandler.h"
#include "updater/feed/FeedLimits.h"

namespace tarnwell::updater {

/// Owns the library's parser.
struct XmlParser {
  XmlParser() : handle(XML_ParserCreateNS(nullptr, FeedHandler::separator)) {
    if (handle == nullptr) {
      diagnostics::fault("no memory for a parser");
    }
  }
  XmlParser(const XmlParser&) = delete;
  XmlParser& operator=(const XmlParser&) = delete;
  ~XmlParser() { XML_ParserFree(handle); }

  XML_Parser handle;
};

namespace {

// The parser looks at an unfinished tag from its start each time that more arrives, so bytes go to it in blocks: one
// that drips in byte by byte would take quadratic time.
constexpr std::size_t block = 16384;

/// What the library calls, with the parser as the user's data.
FeedHandler& handlerOf(void* parser) {
  return *static_cast<FeedHandler*>(XML_GetUserData(static_cast<XML_Parser>(parser)));
}

void stopUnless(bool goesOn, void* parser) {
  if (!goesOn) {
    XML_StopParser(static_cast<XML_Parser>(parser), XML_FALSE);
  }
}

bool take(FeedHandler& handler, const XML_Char* name, const XML_Char** pairs) {
  FeedHandler::Attributes attributes;
  for (; *pairs != nullptr; pairs += 2) {
    attributes.emplace_back(pairs[0], pairs[1]);
    if (attributes.size() > FeedLimits::maximumAttributes) {
      return handler.refuse("one of its elements has too many attributes");
    }
    if (attributes.back().second.size() > FeedLimits::maximumAttributeLength) {
      return handler.refuse("one of its attributes is too long");
    }
  }
  return handler.start(name, attributes);
}

void startElement(void* parser, const XML_Char* name, const XML_Char** pairs) {
  stopUnless(take(handlerOf(parser), name, pairs), parser);
}

void endElement(void* parser, const XML_Char* /*name*/) { stopUnless(handlerOf(parser).end(), parser); }

void characters(void* parser, const XML_Char* text, int length) {
  stopUnless(handlerOf(parser).text({text, static_cast<std::size_t>(length)}), parser);
}

void startDocumentType(void* parser, const XML_Char* /*name*/, const XML_Char* /*system*/, const XML_Char* /*id*/,
                       int /*hasInternalSubset*/) {
  stopUnless(handlerOf(parser).refuse("it declares a document type"), parser);
}

system::Failure unusable(const std::string& reason) { return {"The update feed cannot be used: " + reason + "."}; }

system::Failure malformed(XML_Parser parser) {
  const XML_LChar* reason = XML_ErrorString(XML_GetErrorCode(parser));
  return unusable("line " + std::to_string(XML_GetCurrentLineNumber(parser)) + ": " +
                  (reason != nullptr ? reason : "not well-formed"));
}

}  // namespace

FeedReader::FeedReader() : handler_(std::make_unique<FeedHandler>()), parser_(std::make_unique<XmlParser>()) {
  XML_Parser parser = parser_->handle;
  XML_SetUserData(parser, handler_.get());
  XML_UseParserAsHandlerArg(parser);
  XML_SetElementHandler(parser, startElement, endElement);
  XML_SetCharacterDataHandler(parser, characters);
  XML_SetStartDoctypeDeclHandler(parser, startDocumentType);
}

FeedReader::~FeedReader() = default;

system::Result<void> FeedReader::feed(std::string_view bytes) {
  while (usable_ && !bytes.empty()) {
    const std::string_view piece = bytes.substr(0, block - pending_.size());
    bytes.remove_prefix(piece.size());
    length_ += piece.size();
    if (length_ > FeedLimits::maximumLength) {
      usable_ = unusable("it is larger than " + std::to_string(FeedLimits::maximumLength / 1024) + " KiB");
      break;
    }
    pending_ += piece;
    if (pending_.size() == block) {
      parse(false);
    }
  }
  return usable_;
}

void FeedReader::parse(bool isLast) {
  const std::string bytes = std::exchange(pending_, {});
  const auto status = XML_Parse(parser_->handle, bytes.data(), static_cast<int>(bytes.size()), isLast ? 1 : 0);
  if (handler_->refusal()) {
    usable_ = unusable(*handler_->refusal());
  } else if (status != XML_STATUS_OK) {
    usable_ = malformed(parser_->handle);
  } else if (isLast && !handler_->hasChannel()) {
    usable_ = unusable("it has no channel");
  }
}

system::Result<std::vector<release::FeedItem>> FeedReader::finish() {
  if (usable_) {
    parse(true);
  }
  if (!usable_) {
    return usable_.error();
  }
  return handler_->takeItems();
}

}  // namespace tarnwell::updater
