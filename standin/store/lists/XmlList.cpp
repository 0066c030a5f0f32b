#include "standin/store/lists/XmlList.h"

#include <expat.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "standin/store/lists/XmlValue.h"

namespace tarnwell::standin {
namespace {

enum class Form { list, dictionary, array, key, value };

struct Element {
  std::string_view name;
  Form form = Form::value;
  PropertyList (*make)(const std::string& text) = nullptr;
};

constexpr std::array<Element, 11> elements = {{{"plist", Form::list},
                                               {"dict", Form::dictionary},
                                               {"array", Form::array},
                                               {"key", Form::key},
                                               {"string", Form::value, xmlString},
                                               {"integer", Form::value, xmlInteger},
                                               {"real", Form::value, xmlReal},
                                               {"date", Form::value, xmlDate},
                                               {"data", Form::value, xmlData},
                                               {"true", Form::value, xmlTrue},
                                               {"false", Form::value, xmlFalse}}};

bool isBlank(std::string_view text) { return text.find_first_not_of(xmlBlanks) == std::string_view::npos; }

std::string tag(const Element& element) { return "<" + std::string(element.name) + ">"; }

// A reference to an archived object has no element of its own.
bool isReference(plist_t dictionary, std::uint64_t& value) {
  plist_t number = plist_dict_get_size(dictionary) == 1 ? plist_dict_get_item(dictionary, "CF$UID") : nullptr;
  if (number == nullptr || plist_get_node_type(number) != PLIST_UINT) {
    return false;
  }
  plist_get_uint_val(number, &value);
  return value <= std::numeric_limits<std::uint32_t>::max();
}

/// Builds the value while the parser goes through the text. After the first thing that is wrong it does nothing more.
class Builder {
 public:
  void start(std::string_view name) {
    const auto* const element =
        std::find_if(elements.begin(), elements.end(), [&](const Element& each) { return each.name == name; });
    if (element == elements.end()) {
      return refuse("<" + std::string(name) + "> is no element of a property list");
    }
    if (!isExpected(*element)) {
      return refuse(tag(*element) + " is out of place");
    }
    Level level{element};
    if (element->form == Form::dictionary) {
      level.container.reset(plist_new_dict());
    } else if (element->form == Form::array) {
      level.container.reset(plist_new_array());
    }
    const bool isInList = !levels_.empty() && !levels_.front().container;
    if (level.container && levels_.size() - (isInList ? 1 : 0) >= deepestNesting) {
      return refuse(tooDeep);
    }
    levels_.push_back(std::move(level));
  }

  void end() {
    Level level = std::move(levels_.back());
    levels_.pop_back();
    const std::string text = std::exchange(text_, std::string());
    switch (level.element->form) {
      case Form::list:
        return endList(text);
      case Form::key:
        levels_.back().hasKey = true;
        levels_.back().key = text;
        return;
      case Form::value:
        return put(level.element->make(text), *level.element);
      case Form::dictionary:
      case Form::array:
        return endContainer(std::move(level), text);
    }
  }

  void add(std::string_view text) { text_ += text; }

  void refuse(std::string reason) { failure_ = std::move(reason); }

  const std::string& failure() const { return failure_; }
  PropertyList takeValue() { return std::move(value_); }

 private:
  struct Level {
    const Element* element = nullptr;
    PropertyList container = nullptr;
    bool hasKey = false;  // and not yet its value
    std::string key = {};
  };

  bool isExpected(const Element& element) {
    if (levels_.empty()) {
      return element.form != Form::key;
    }
    const std::string before = std::exchange(text_, std::string());
    const Level& above = levels_.back();
    const bool hasRoom = above.container || (above.element->form == Form::list && !value_);
    const bool wantsKey = above.element->form == Form::dictionary && !above.hasKey;
    return hasRoom && isBlank(before) && element.form != Form::list && wantsKey == (element.form == Form::key);
  }

  void endList(const std::string& text) {
    if (!value_ || !isBlank(text)) {
      refuse("<plist> does not hold one value");
    }
  }

  void endContainer(Level level, const std::string& text) {
    if (level.hasKey) {
      return refuse("the key " + level.key + " has no value");
    }
    if (!isBlank(text)) {
      return refuse("there is text within " + tag(*level.element));
    }
    std::uint64_t reference = 0;
    if (level.element->form == Form::dictionary && isReference(level.container.get(), reference)) {
      level.container.reset(plist_new_uid(reference));
    }
    put(std::move(level.container), *level.element);
  }

  void put(PropertyList value, const Element& element) {
    if (!value) {
      return refuse("what " + tag(element) + " holds cannot be understood");
    }
    if (levels_.empty() || levels_.back().element->form == Form::list) {
      value_ = std::move(value);
      return;
    }
    Level& above = levels_.back();
    if (above.element->form == Form::array) {
      plist_array_append_item(above.container.get(), value.release());
      return;
    }
    if (plist_dict_get_item(above.container.get(), above.key.c_str()) != nullptr) {
      return refuse("the key " + above.key + " is there twice");
    }
    plist_dict_set_item(above.container.get(), above.key.c_str(), value.release());
    above.hasKey = false;
  }

  std::vector<Level> levels_;
  std::string text_;  // since the last tag
  PropertyList value_;
  std::string failure_;
};

/// What the parser calls, with itself as the user's data.
template <class Step>
void advance(void* parser, const Step& step) {
  auto* const handle = static_cast<XML_Parser>(parser);
  auto& builder = *static_cast<Builder*>(XML_GetUserData(handle));
  if (builder.failure().empty()) {
    step(builder);
  }
  if (!builder.failure().empty()) {
    XML_StopParser(handle, XML_FALSE);
  }
}

void elementStarts(void* parser, const XML_Char* name, const XML_Char** /*attributes*/) {
  advance(parser, [&](Builder& builder) { builder.start(name); });
}

void elementEnds(void* parser, const XML_Char* /*name*/) {
  advance(parser, [](Builder& builder) { builder.end(); });
}

void characters(void* parser, const XML_Char* text, int length) {
  advance(parser, [&](Builder& builder) { builder.add({text, static_cast<std::size_t>(length)}); });
}

// Lists name the document type that all have, and never bring one along.
void typeStarts(void* parser, const XML_Char* /*name*/, const XML_Char* /*system*/, const XML_Char* /*id*/,
                int hasInternalSubset) {
  advance(parser, [&](Builder& builder) {
    if (hasInternalSubset != 0) {
      builder.refuse("it declares elements or entities of its own");
    }
  });
}

// Without the declarations that a document type refers to, the parser would leave such an entity out.
void entityIsSkipped(void* parser, const XML_Char* name, int /*isParameter*/) {
  advance(parser, [&](Builder& builder) { builder.refuse("the entity " + std::string(name) + " is unknown"); });
}

std::string withLine(XML_Parser parser, const std::string& reason) {
  return "line " + std::to_string(XML_GetCurrentLineNumber(parser)) + ": " + reason;
}

}  // namespace

system::Result<PropertyList> parseXmlList(std::string_view xml) {
  // The declaration may stand nowhere but at the start, which real lists do not always keep to.
  xml.remove_prefix(std::min(xml.find_first_not_of(xmlBlanks), xml.size()));
  if (xml.size() > static_cast<std::size_t>(std::numeric_limits<int>::max())) {
    return system::Failure{"it is too large"};
  }
  Builder builder;
  const std::unique_ptr<std::remove_pointer_t<XML_Parser>, decltype(&XML_ParserFree)> parser(XML_ParserCreate(nullptr),
                                                                                             &XML_ParserFree);
  if (!parser) {
    return system::Failure{"there is no memory for it"};
  }
  XML_SetUserData(parser.get(), &builder);
  XML_UseParserAsHandlerArg(parser.get());
  XML_SetElementHandler(parser.get(), elementStarts, elementEnds);
  XML_SetCharacterDataHandler(parser.get(), characters);
  XML_SetStartDoctypeDeclHandler(parser.get(), typeStarts);
  XML_SetSkippedEntityHandler(parser.get(), entityIsSkipped);
  const auto status = XML_Parse(parser.get(), xml.data(), static_cast<int>(xml.size()), XML_TRUE);
  if (!builder.failure().empty()) {
    return system::Failure{withLine(parser.get(), builder.failure())};
  }
  if (status != XML_STATUS_OK) {
    return system::Failure{withLine(parser.get(), XML_ErrorString(XML_GetErrorCode(parser.get())))};
  }
  return builder.takeValue();
}

}  // namespace tarnwell::standin
