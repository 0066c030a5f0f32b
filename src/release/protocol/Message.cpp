#include "release/protocol/Message.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "system/base/Utf8.h"

namespace tarnwell::release {
namespace {

bool isWordLetter(char c) { return (c >= 'a' && c <= 'z') || c == '-'; }

std::optional<std::string> unescaped(std::string_view text) {
  std::string result;
  while (!text.empty()) {
    char c = text.front();
    text.remove_prefix(1);
    if (c == '\\') {
      const char escaped = text.empty() ? '\0' : text.front();
      if (escaped != '\\' && escaped != 'n') {
        return std::nullopt;
      }
      c = escaped == 'n' ? '\n' : '\\';
      text.remove_prefix(1);
    }
    result += c;
  }
  return result;
}

std::optional<Message> messageOf(std::string_view line) {
  const auto end = std::find_if_not(line.begin(), line.end(), isWordLetter);
  const auto length = static_cast<std::size_t>(end - line.begin());
  if (length == 0 || line.size() == length || line[length] != ' ' || !system::isUtf8(line)) {
    return std::nullopt;
  }
  auto text = unescaped(line.substr(length + 1));
  return text ? std::optional(Message{std::string(line.substr(0, length)), *std::move(text)}) : std::nullopt;
}

}  // namespace

std::string lineOf(const Message& message) {
  std::string line = message.word + ' ';
  for (const char c : message.text) {
    if (c == '\\') {
      line += "\\\\";
    } else if (c == '\n') {
      line += "\\n";
    } else {
      line += c;
    }
  }
  return line + '\n';
}

bool MessageReader::take(std::string_view bytes, const Taken& taken) {
  length_ += bytes.size();
  while (length_ <= maximumLength && !bytes.empty()) {
    const std::size_t end = bytes.find('\n');
    line_ += bytes.substr(0, end);
    if (line_.size() > maximumLine) {
      return false;
    }
    if (end == std::string_view::npos) {
      return true;
    }
    bytes.remove_prefix(end + 1);
    auto message = messageOf(std::exchange(line_, {}));
    if (!message || !taken(*std::move(message))) {
      return false;
    }
  }
  return length_ <= maximumLength;
}

}  // namespace tarnwell::release
