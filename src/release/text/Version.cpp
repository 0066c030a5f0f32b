#include "release/text/Version.h"

#include <algorithm>

namespace tarnwell::release {
namespace {

enum class Kind { word, number };  // In their order.

struct Piece {
  Kind kind = Kind::number;
  std::string_view text = {};  // Of a number without leading zeros, so that 0 is empty.
};

bool isDigit(char c) { return c >= '0' && c <= '9'; }

char lowered(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool isLetter(char c) {
  const char low = lowered(c);
  return (low >= 'a' && low <= 'z') || static_cast<unsigned char>(c) >= 0x80;
}

std::string_view taken(std::string_view& text, bool (*belongs)(char)) {
  const auto end = std::find_if_not(text.begin(), text.end(), belongs);
  const std::string_view run = text.substr(0, static_cast<std::size_t>(end - text.begin()));
  text.remove_prefix(run.size());
  return run;
}

std::string_view withoutLeadingZeros(std::string_view digits) {
  digits.remove_prefix(std::min(digits.find_first_not_of('0'), digits.size()));
  return digits;
}

/// Hands out one piece after another, and zeros without end behind the last.
class Pieces {
 public:
  explicit Pieces(std::string_view version) : rest_(version) {}

  bool atEnd() const { return rest_.empty(); }

  Piece next() {
    while (!rest_.empty()) {
      if (isDigit(rest_.front())) {
        inComponent_ = true;
        return {Kind::number, withoutLeadingZeros(taken(rest_, isDigit))};
      }
      if (isLetter(rest_.front())) {
        inComponent_ = true;
        return {Kind::word, taken(rest_, isLetter)};
      }
      if (passSeparator() == Component::empty) {
        return {};
      }
    }
    return {};
  }

 private:
  enum class Component { filled, empty };

  Component passSeparator() {
    const bool ends = rest_.front() == '.';
    rest_.remove_prefix(1);
    const bool wasFilled = inComponent_;
    inComponent_ = inComponent_ && !ends;
    return ends && !wasFilled ? Component::empty : Component::filled;
  }

  std::string_view rest_;
  bool inComponent_ = false;
};

std::weak_ordering compareNumbers(std::string_view left, std::string_view right) {
  return left.size() != right.size() ? left.size() <=> right.size() : left.compare(right) <=> 0;
}

std::weak_ordering compareWords(std::string_view left, std::string_view right) {
  const auto alike = [](char a, char b) { return lowered(a) == lowered(b); };
  const auto [a, b] = std::mismatch(left.begin(), left.end(), right.begin(), right.end(), alike);
  if (a == left.end() || b == right.end()) {
    return left.size() <=> right.size();
  }
  return static_cast<unsigned char>(lowered(*a)) <=> static_cast<unsigned char>(lowered(*b));
}

std::weak_ordering comparePieces(const Piece& left, const Piece& right) {
  if (left.kind != right.kind) {
    return left.kind <=> right.kind;
  }
  return left.kind == Kind::number ? compareNumbers(left.text, right.text) : compareWords(left.text, right.text);
}

bool isOfVersion(char c) {
  return isDigit(c) || (isLetter(c) && static_cast<unsigned char>(c) < 0x80) ||
         std::string_view(".-+~_").find(c) != std::string_view::npos;
}

}  // namespace

bool isVersion(std::string_view text) {
  constexpr std::size_t longest = 100;
  return !text.empty() && text.size() <= longest && isDigit(text.front()) &&
         std::all_of(text.begin(), text.end(), isOfVersion);
}

bool isNumericVersion(std::string_view text) {
  return isVersion(text) && isDigit(text.back()) && text.find("..") == std::string_view::npos &&
         std::all_of(text.begin(), text.end(), [](char c) { return isDigit(c) || c == '.'; });
}

std::weak_ordering compareVersions(std::string_view left, std::string_view right) {
  Pieces leftPieces(left);
  Pieces rightPieces(right);
  while (!leftPieces.atEnd() || !rightPieces.atEnd()) {
    const std::weak_ordering order = comparePieces(leftPieces.next(), rightPieces.next());
    if (order != std::weak_ordering::equivalent) {
      return order;
    }
  }
  return std::weak_ordering::equivalent;
}

}  // namespace tarnwell::release
