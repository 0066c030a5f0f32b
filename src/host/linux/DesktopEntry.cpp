#include "host/linux/DesktopEntry.h"

namespace tarnwell::host_linux {
namespace {

constexpr std::string_view header = "[Desktop Entry]";
constexpr std::string_view blanks = " \t\r";

std::string_view trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(blanks);
  if (first == std::string_view::npos) {
    return {};
  }
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

bool startsGroup(std::string_view line) { return trimmed(line).starts_with('['); }

std::string_view keyOf(std::string_view line) { return trimmed(line.substr(0, line.find('='))); }

std::string_view valueOf(std::string_view line) { return trimmed(line.substr(line.find('=') + 1)); }

std::vector<std::string> split(std::string_view text) {
  std::vector<std::string> lines;
  for (bool more = true; more;) {
    const auto end = text.find('\n');
    lines.emplace_back(text.substr(0, end));
    more = end != std::string_view::npos;
    text.remove_prefix(more ? end + 1 : 0);
  }
  return lines;
}

// What the command line's own rules demand, before the file's rules; and a return, which some take for a blank.
std::string quoted(const std::string& argument) {
  constexpr std::string_view reserved = " \t\r\n\"'\\><~|&;$*?#()`";
  std::string result;
  for (const char c : argument) {
    if (c == '"' || c == '`' || c == '$' || c == '\\') {
      result += '\\';
    }
    // A per cent sign starts a field code, in quotes as well.
    if (c == '%') {
      result += '%';
    }
    result += c;
  }
  const bool plain = !argument.empty() && argument.find_first_of(reserved) == std::string::npos;
  return plain ? result : "\"" + result + "\"";
}

// What the file's format demands of every string.
std::string escaped(const std::string& value) {
  std::string result;
  for (const char c : value) {
    switch (c) {
      case '\\':
        result += "\\\\";
        break;
      case '\n':
        result += "\\n";
        break;
      case '\t':
        result += "\\t";
        break;
      case '\r':
        result += "\\r";
        break;
      default:
        result += c;
    }
  }
  return result;
}

// The first word of a command line. In quotes, a backslash takes the next character as it is.
std::string firstWord(std::string_view line) {
  const bool isQuoted = line.starts_with('"');
  std::string word;
  for (std::size_t i = isQuoted ? 1 : 0; i < line.size(); ++i) {
    if (isQuoted ? line[i] == '"' : blanks.find(line[i]) != std::string_view::npos) {
      return word;
    }
    i += isQuoted && line[i] == '\\' && i + 1 < line.size() ? 1 : 0;
    word += line[i];
  }
  // Quotes that are never closed hold no word.
  return isQuoted ? std::string() : word;
}

}  // namespace

DesktopEntry::DesktopEntry(std::string_view text) : lines_(split(text)) {}

std::optional<std::string> DesktopEntry::value(std::string_view key) const {
  const auto lines = linesOf(key);
  if (lines.empty()) {
    return std::nullopt;
  }
  return std::string(valueOf(lines_[lines.back()]));
}

bool DesktopEntry::isTrue(std::string_view key) const {
  const auto found = value(key);
  return found == "true" || found == "1";
}

bool DesktopEntry::isFalse(std::string_view key) const {
  const auto found = value(key);
  return found == "false" || found == "0";
}

void DesktopEntry::set(const std::string& key, const std::string& value) {
  const std::string line = key + "=" + value;
  if (const auto lines = linesOf(key); !lines.empty()) {
    lines_[lines.back()] = line;
    return;
  }
  std::size_t at = 0;
  while (at < lines_.size() && !isHeader(at)) {
    ++at;
  }
  if (at == lines_.size()) {
    // In front of the emptiness behind the last line feed, if the text ends in one.
    at -= lines_.back().empty() ? 1 : 0;
    lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(at), std::string(header));
  }
  lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(at) + 1, line);
}

void DesktopEntry::erase(std::string_view key) {
  std::ptrdiff_t erased = 0;
  for (const std::size_t line : linesOf(key)) {
    lines_.erase(lines_.begin() + static_cast<std::ptrdiff_t>(line) - erased);
    ++erased;
  }
}

std::string DesktopEntry::text() const {
  std::string text;
  for (const std::string& line : lines_) {
    text += line + "\n";
  }
  text.pop_back();
  return text;
}

bool DesktopEntry::isHeader(std::size_t line) const { return trimmed(lines_[line]) == header; }

std::vector<std::size_t> DesktopEntry::linesOf(std::string_view key) const {
  std::vector<std::size_t> found;
  bool within = false;
  for (std::size_t i = 0; i < lines_.size(); ++i) {
    if (startsGroup(lines_[i])) {
      within = isHeader(i);
    } else if (within && lines_[i].find('=') != std::string::npos && keyOf(lines_[i]) == key) {
      found.push_back(i);
    }
  }
  return found;
}

std::optional<std::string> execValue(const std::vector<std::string>& arguments) {
  if (arguments.empty() || arguments.front().find('=') != std::string::npos) {
    return std::nullopt;
  }
  std::string line;
  for (const std::string& argument : arguments) {
    line += (line.empty() ? "" : " ") + quoted(argument);
  }
  return escaped(line);
}

std::string unescaped(std::string_view value) {
  constexpr std::string_view letters = "sntr";
  constexpr std::string_view meanings = " \n\t\r";
  std::string text;
  for (std::size_t i = 0; i < value.size(); ++i) {
    if (value[i] != '\\' || i + 1 == value.size()) {
      text += value[i];
      continue;
    }
    ++i;
    const auto letter = letters.find(value[i]);
    text += letter != std::string_view::npos ? meanings[letter] : value[i];
  }
  return text;
}

std::string programOf(std::string_view execValue) {
  std::string word = firstWord(unescaped(trimmed(execValue)));
  for (auto sign = word.find("%%"); sign != std::string::npos; sign = word.find("%%", sign + 1)) {
    word.erase(sign, 1);
  }
  return word;
}

}  // namespace tarnwell::host_linux
