#include "commandline/dock/Element.h"

#include "core/DecimalText.h"

namespace tarnwell::commandline {
namespace {

// As it is, a carriage return is a line feed to readers.
constexpr std::string_view carriageReturn = "&#13;";

std::string escaped(std::string_view text) {
  std::string result;
  for (const char c : text) {
    switch (c) {
      case '&':
        result += "&amp;";
        break;
      case '<':
        result += "&lt;";
        break;
      case '>':
        result += "&gt;";
        break;
      case '\r':
        result += carriageReturn;
        break;
      default:
        result += c;
    }
  }
  return result;
}

struct ElementText {
  std::string operator()(const core::Absent&) const { return {}; }
  std::string operator()(double value) const { return "<real>" + core::plainDecimalText(value) + "</real>"; }
  std::string operator()(bool value) const { return value ? "<true/>" : "<false/>"; }
  std::string operator()(const std::string& value) const { return "<string>" + escaped(value) + "</string>"; }
  std::string operator()(const core::OtherValue& value) const { return value.element; }
};

}  // namespace

std::string elementOf(const core::StoredValue& value) { return std::visit(ElementText(), value); }

std::string elementIn(std::string_view list) {
  const auto head = list.find("<plist");
  const auto begin = list.find('<', list.find('>', head));
  const auto tail = list.rfind("</plist>");
  const auto end = list.rfind('>', tail);
  const bool isThere = begin != std::string_view::npos && tail != std::string_view::npos && begin < end && end < tail;
  std::string element;
  for (const char c : isThere ? list.substr(begin, end + 1 - begin) : std::string_view()) {
    element += c == '\r' ? carriageReturn : std::string_view(&c, 1);
  }
  return element;
}

}  // namespace tarnwell::commandline
