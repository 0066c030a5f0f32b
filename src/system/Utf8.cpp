#include "system/Utf8.h"

#include <array>
#include <cstddef>

namespace tarnwell::system {
namespace {

// The well-formed sequences, by their first byte. Only the second byte has bounds of its own; they shut out overlong
// forms, surrogates and what is too large. All later bytes run from 0x80 to 0xBF.
struct Sequence {
  unsigned char firstLow = 0;
  unsigned char firstHigh = 0;
  unsigned char secondLow = 0;
  unsigned char secondHigh = 0;
  std::size_t length = 0;
};

constexpr std::array<Sequence, 9> sequences = {{
    {0x00, 0x7F, 0x00, 0x00, 1},
    {0xC2, 0xDF, 0x80, 0xBF, 2},
    {0xE0, 0xE0, 0xA0, 0xBF, 3},
    {0xE1, 0xEC, 0x80, 0xBF, 3},
    {0xED, 0xED, 0x80, 0x9F, 3},
    {0xEE, 0xEF, 0x80, 0xBF, 3},
    {0xF0, 0xF0, 0x90, 0xBF, 4},
    {0xF1, 0xF3, 0x80, 0xBF, 4},
    {0xF4, 0xF4, 0x80, 0x8F, 4},
}};

bool isWithin(char byte, unsigned char low, unsigned char high) {
  const auto value = static_cast<unsigned char>(byte);
  return value >= low && value <= high;
}

bool isComplete(const Sequence& sequence, std::string_view bytes) {
  if (bytes.size() < sequence.length) {
    return false;
  }
  if (sequence.length > 1 && !isWithin(bytes[1], sequence.secondLow, sequence.secondHigh)) {
    return false;
  }
  for (std::size_t index = 2; index < sequence.length; ++index) {
    if (!isWithin(bytes[index], 0x80, 0xBF)) {
      return false;
    }
  }
  return true;
}

/// The length of the sequence that `bytes` start with; 0 when it is none.
std::size_t leadingSequence(std::string_view bytes) {
  for (const Sequence& sequence : sequences) {
    if (isWithin(bytes.front(), sequence.firstLow, sequence.firstHigh)) {
      return isComplete(sequence, bytes) ? sequence.length : 0;
    }
  }
  return 0;
}

}  // namespace

bool isUtf8(std::string_view bytes) {
  while (!bytes.empty()) {
    const std::size_t length = leadingSequence(bytes);
    if (length == 0) {
      return false;
    }
    bytes.remove_prefix(length);
  }
  return true;
}

}  // namespace tarnwell::system
