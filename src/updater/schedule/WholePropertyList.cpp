#include "updater/schedule/WholePropertyList.h"

#include <expat.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <memory>
#include <string>
#include <system_error>
#include <type_traits>
#include <vector>

#include "diagnostics/Fault.h"

namespace tarnwell::updater {
namespace {

constexpr std::string_view xmlBlanks = " \t\r\n";
constexpr std::array<std::string_view, 9> valueNames = {"array",   "data", "date",   "dict", "false",
                                                        "integer", "real", "string", "true"};

std::string_view withoutBlanks(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(xmlBlanks), text.size()));
  return text.substr(0, text.find_last_not_of(xmlBlanks) + 1);
}

template <class Number>
bool isNumber(std::string_view text) {
  Number number = {};
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size();
}

bool isInteger(std::string_view text) { return isNumber<std::int64_t>(text) || isNumber<std::uint64_t>(text); }

/// "2026-11-21T16:05:39Z"
bool isDate(std::string_view text) {
  constexpr std::string_view form = "0000-00-00T00:00:00Z";
  return std::equal(text.begin(), text.end(), form.begin(), form.end(),
                    [](char c, char wanted) { return wanted == '0' ? c >= '0' && c <= '9' : c == wanted; });
}

class Walk {
 public:
  bool start(std::string_view name) {
    if (levels_.empty() ? name != "plist" : !isExpected(name)) {
      return false;
    }
    if (!levels_.empty()) {
      ++levels_.back().children;
    }
    levels_.push_back({.name = std::string(name)});
    text_.clear();
    return levels_.size() <= deepestPropertyList + 1;
  }

  bool end() {
    const bool isWhole = isWholeWith(withoutBlanks(text_));
    levels_.pop_back();
    text_.clear();
    return isWhole;
  }

  bool text(std::string_view more) {
    text_ += more;
    return !levels_.empty();
  }

 private:
  struct Level {
    std::string name = {};
    std::size_t children = 0;
  };

  bool isExpected(std::string_view name) const {
    const Level& above = levels_.back();
    if (!withoutBlanks(text_).empty()) {
      return false;
    }
    if (above.name == "dict" && above.children % 2 == 0) {
      return name == "key";
    }
    const bool hasRoom =
        above.name == "dict" || above.name == "array" || (above.name == "plist" && above.children == 0);
    return hasRoom && std::ranges::find(valueNames, name) != valueNames.end();
  }

  bool isWholeWith(std::string_view text) const {
    const Level& level = levels_.back();
    if (level.name == "integer") {
      return isInteger(text);
    }
    if (level.name == "real") {
      return isNumber<double>(text);
    }
    if (level.name == "date") {
      return isDate(text);
    }
    if (level.name == "string" || level.name == "key" || level.name == "data") {
      return true;
    }
    const bool isFilled = level.name == "dict" ? level.children % 2 == 0 : level.name != "plist" || level.children == 1;
    return isFilled && text.empty();
  }

  std::vector<Level> levels_;
  std::string text_;  // Since the last tag.
};

void stopUnlessWhole(bool isWhole, void* parser) {
  if (!isWhole) {
    XML_StopParser(static_cast<XML_Parser>(parser), XML_FALSE);
  }
}

Walk& walkOf(void* parser) { return *static_cast<Walk*>(XML_GetUserData(static_cast<XML_Parser>(parser))); }

void listElementStarts(void* parser, const XML_Char* name, const XML_Char** /*attributes*/) {
  stopUnlessWhole(walkOf(parser).start(name), parser);
}

void listElementEnds(void* parser, const XML_Char* /*name*/) { stopUnlessWhole(walkOf(parser).end(), parser); }

void listText(void* parser, const XML_Char* text, int length) {
  stopUnlessWhole(walkOf(parser).text({text, static_cast<std::size_t>(length)}), parser);
}

// Lists name the document type that all have, and never bring one along.
void listTypeStarts(void* parser, const XML_Char* /*name*/, const XML_Char* /*system*/, const XML_Char* /*id*/,
                    int hasInternalSubset) {
  stopUnlessWhole(hasInternalSubset == 0, parser);
}

}  // namespace

bool isWholePropertyList(std::string_view xml) {
  Walk walk;
  const std::unique_ptr<std::remove_pointer_t<XML_Parser>, decltype(&XML_ParserFree)> parser(XML_ParserCreate(nullptr),
                                                                                             &XML_ParserFree);
  if (parser == nullptr) {
    diagnostics::fault("no memory for a parser");
  }
  XML_SetUserData(parser.get(), &walk);
  XML_UseParserAsHandlerArg(parser.get());
  XML_SetElementHandler(parser.get(), listElementStarts, listElementEnds);
  XML_SetCharacterDataHandler(parser.get(), listText);
  XML_SetStartDoctypeDeclHandler(parser.get(), listTypeStarts);
  return XML_Parse(parser.get(), xml.data(), static_cast<int>(xml.size()), XML_TRUE) == XML_STATUS_OK;
}

}  // namespace tarnwell::updater
