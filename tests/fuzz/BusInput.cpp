#include "fuzz/BusInput.h"

#include <limits>

namespace tarnwell::fuzz {
namespace {

constexpr int mostElements = 1001;  // One more than we take.

constexpr std::array<const char*, 14> namedTexts = {"",
                                                    "clicked",
                                                    "activation-token",
                                                    "label",
                                                    "Title",
                                                    "org.kde.StatusNotifierItem",
                                                    "com.canonical.dbusmenu",
                                                    "x",
                                                    "org.freedesktop.appearance",
                                                    "color-scheme",
                                                    "accent-color",
                                                    "contrast",
                                                    "org.freedesktop.portal.Desktop",
                                                    ":1.7"};

/// How long the first type in a signature is; 0 where there is none.
std::size_t lengthOfFirst(const std::string& signature) {
  std::size_t at = 0;
  while (at < signature.size() && signature[at] == 'a') {
    ++at;
  }
  int depth = 0;
  do {
    if (at >= signature.size()) {
      return 0;
    }
    depth += signature[at] == '(' || signature[at] == '{' ? 1 : 0;
    depth -= signature[at] == ')' || signature[at] == '}' ? 1 : 0;
    ++at;
  } while (depth > 0);
  return at;
}

bool appendContainer(sd_bus_message& message, char type, const std::string& content, int count, Input& input) {
  if (::sd_bus_message_open_container(&message, type, content.c_str()) < 0) {
    return false;
  }
  for (int i = 0; i < count; ++i) {
    if (!append(message, content, input)) {
      return false;
    }
  }
  return ::sd_bus_message_close_container(&message) >= 0;
}

int countOf(Input& input) {
  const int count = input.byte();
  return count == UINT8_MAX ? mostElements : count % 5;
}

// Some around what a channel of a colour can be, and one that is none.
double numberOf(std::uint8_t byte) {
  return byte == UINT8_MAX ? std::numeric_limits<double>::quiet_NaN() : (byte - 50) / 100.0;
}

bool appendBasic(sd_bus_message& message, char type, Input& input) {
  if (type == 's' || type == 'o' || type == 'g') {
    return ::sd_bus_message_append_basic(&message, type, type == 'o' ? "/a" : input.oneOf(namedTexts)) >= 0;
  }
  if (type == 'd') {
    const double number = numberOf(input.byte());
    return ::sd_bus_message_append_basic(&message, type, &number) >= 0;
  }
  std::uint64_t number = 0;
  for (int i = 0; i < 4; ++i) {
    number = number << 16 | input.byte();
  }
  return type != 'h' && ::sd_bus_message_append_basic(&message, type, &number) >= 0;
}

bool appendFirst(sd_bus_message& message, const std::string& type, Input& input) {
  switch (type.front()) {
    case 'v':
      return appendContainer(message, 'v', input.oneOf(argumentTypes), 1, input);
    case 'a':
      return appendContainer(message, 'a', type.substr(1), countOf(input), input);
    case '(':
      return appendContainer(message, 'r', type.substr(1, type.size() - 2), 1, input);
    case '{':
      return appendContainer(message, 'e', type.substr(1, type.size() - 2), 1, input);
    default:
      return appendBasic(message, type.front(), input);
  }
}

}  // namespace

bool append(sd_bus_message& message, const std::string& signature, Input& input) {
  std::string rest = signature;
  while (!rest.empty()) {
    const std::size_t length = lengthOfFirst(rest);
    if (length == 0 || !appendFirst(message, rest.substr(0, length), input)) {
      return false;
    }
    rest.erase(0, length);
  }
  return true;
}

std::string typesLike(const std::string& signature, Input& input) {
  std::string types = signature;
  for (int others = input.byte() % 4; others > 0; --others) {
    types = others % 2 == 0 ? types + input.oneOf(argumentTypes) : input.oneOf(argumentTypes);
  }
  return types;
}

}  // namespace tarnwell::fuzz
