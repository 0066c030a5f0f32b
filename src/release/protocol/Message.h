#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace tarnwell::release {

/// One line that the engine says: a word, and what it says of it. The text is UTF-8 of any kind, line ends included.
struct Message {
  std::string word = {};  // Small letters and hyphens.
  std::string text = {};
};

/// As it is written: the word, a space, the text with "\\" and "\n" for what these stand for, and a line end.
std::string lineOf(const Message& message);

/// Takes messages out of bytes as they come, and is strict: what says them may be in the hands of a stranger.
class MessageReader {
 public:
  static constexpr std::size_t maximumLine = 1024UL * 1024;  // Bytes.
  static constexpr std::size_t maximumLength = 8 * maximumLine;

  /// Returns false to end the reading.
  using Taken = std::function<bool(Message)>;

  /// False when the bytes are no such lines, are too many, or were refused; nothing more can be taken then.
  bool take(std::string_view bytes, const Taken& taken);
  /// Whether all that came were whole lines.
  bool isAtLineEnd() const { return line_.empty(); }

 private:
  std::string line_;
  std::size_t length_ = 0;
};

}  // namespace tarnwell::release
