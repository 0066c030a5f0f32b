#include "standin/store/lists/BinaryShape.h"

#include <bit>
#include <chrono>
#include <cstdint>
#include <string>
#include <utility>

#include "standin/store/lists/Node.h"

namespace tarnwell::standin {
namespace {

constexpr std::size_t trailerSize = 32;
constexpr std::size_t headerSize = 8;
// Shared objects are visited once for each reference, as the library copies them; a small file must not blow up.
constexpr std::size_t visitLimit = 4'000'000;

struct Body {
  std::size_t at = 0;     // where the object's content starts
  std::size_t count = 0;  // of bytes, code units or members, as the type has it
};

class Walk {
 public:
  explicit Walk(std::string_view bytes) : bytes_(bytes) {}

  std::optional<system::Failure> run() {
    if (readTrailer() && visit(top_, 0)) {
      return std::nullopt;
    }
    return system::Failure{fault_};
  }

 private:
  bool refuse(std::string fault) {
    fault_ = std::move(fault);
    return false;
  }

  // Big-endian; the caller has made sure that the bytes are there.
  std::uint64_t number(std::size_t at, std::size_t size) const {
    std::uint64_t value = 0;
    for (const char c : bytes_.substr(at, size)) {
      value = value << 8U | static_cast<unsigned char>(c);
    }
    return value;
  }

  bool holds(std::size_t at, std::size_t count, std::size_t each) const {
    return at <= table_ && count <= (table_ - at) / each;
  }

  bool readTrailer() {
    if (bytes_.size() < headerSize + trailerSize) {
      return false;
    }
    const std::size_t end = bytes_.size() - trailerSize;
    offsetSize_ = number(end + 6, 1);
    referenceSize_ = number(end + 7, 1);
    objects_ = number(end + 8, 8);
    top_ = number(end + 16, 8);
    table_ = number(end + 24, 8);
    return offsetSize_ >= 1 && offsetSize_ <= 8 && referenceSize_ >= 1 && referenceSize_ <= 8 && table_ >= headerSize &&
           table_ <= end && objects_ <= (end - table_) / offsetSize_;
  }

  // Where an object starts; 0 when there is no such object.
  std::size_t startOf(std::uint64_t object) const {
    const std::size_t at = object < objects_ ? number(table_ + object * offsetSize_, offsetSize_) : 0;
    return at >= headerSize && at < table_ ? at : 0;
  }

  bool visit(std::uint64_t object, std::size_t depth) {
    if (++visits_ > visitLimit) {
      return refuse("it unfolds to too many values");
    }
    const std::size_t at = startOf(object);
    if (at == 0) {
      return false;
    }
    const std::uint64_t marker = number(at, 1);
    const std::size_t nibble = marker & 0xFU;
    switch (marker >> 4U) {
      case 0x1:
        return visitInteger(at + 1, nibble);
      case 0x2:
        return (nibble == 2 || nibble == 3) && holds(at + 1, std::size_t{1} << nibble, 1);
      case 0x3:
        return nibble == 3 && visitDate(at + 1);
      case 0x4:
        return holdsText(at, nibble, 1);
      case 0x5:
        return holdsText(at, nibble, 1) && visitAscii(at, nibble);
      case 0x6:
        return holdsText(at, nibble, 2) && visitUtf16(at, nibble);
      case 0x8:
        return nibble < 8 && holds(at + 1, nibble + 1, 1);
      case 0xA:
        return visitMembers(at, nibble, 1, depth);
      case 0xC:
        return refuse("it holds a set");
      case 0xD:
        return visitMembers(at, nibble, 2, depth) && checkKeys(at, nibble);
      default:
        return marker == 0x08 || marker == 0x09;
    }
  }

  // A count of 15 or more follows the marker as an integer object.
  bool body(std::size_t at, std::size_t nibble, Body& result) const {
    result = {at + 1, nibble};
    if (nibble != 0xF) {
      return true;
    }
    if (!holds(at + 1, 1, 1)) {
      return false;
    }
    const std::uint64_t marker = number(at + 1, 1);
    const std::size_t size = std::size_t{1} << (marker & 0xFU);
    if (marker >> 4U != 0x1 || size > 8 || !holds(at + 2, size, 1)) {
      return false;
    }
    result = {at + 2 + size, number(at + 2, size)};
    return true;
  }

  bool visitInteger(std::size_t at, std::size_t nibble) {
    if (nibble > 4 || !holds(at, std::size_t{1} << nibble, 1)) {
      return false;
    }
    return nibble < 4 || number(at, 8) == 0 || refuse("it holds an integer beyond 64 bits");
  }

  bool visitDate(std::size_t at) {
    if (!holds(at, 8, 1)) {
      return false;
    }
    using std::chrono::January;
    constexpr std::chrono::sys_seconds first = std::chrono::sys_days(std::chrono::year(0) / January / 1);
    constexpr std::chrono::sys_seconds end = std::chrono::sys_days(std::chrono::year(10000) / January / 1);
    const double seconds = std::bit_cast<double>(number(at, 8)) + dateReference;
    const bool isInside = seconds >= static_cast<double>(first.time_since_epoch().count()) &&
                          seconds < static_cast<double>(end.time_since_epoch().count());
    return isInside || refuse("it holds a date outside the years 0 to 9999");
  }

  bool holdsText(std::size_t at, std::size_t nibble, std::size_t unit) const {
    Body text;
    return body(at, nibble, text) && holds(text.at, text.count, unit);
  }

  bool visitAscii(std::size_t at, std::size_t nibble) {
    Body text;
    body(at, nibble, text);
    for (const char c : bytes_.substr(text.at, text.count)) {
      if (c == '\0' || static_cast<unsigned char>(c) > 0x7F) {
        return refuse("it holds a text with a NUL or a byte that is not ASCII");
      }
    }
    return true;
  }

  bool visitUtf16(std::size_t at, std::size_t nibble) {
    Body text;
    body(at, nibble, text);
    bool wantsLow = false;
    for (std::size_t i = 0; i < text.count; ++i) {
      const std::uint64_t unit = number(text.at + 2 * i, 2);
      const bool isLow = unit >= 0xDC00 && unit <= 0xDFFF;
      if (unit == 0 || isLow != wantsLow) {
        return refuse("it holds a text with a NUL or half a surrogate pair");
      }
      wantsLow = unit >= 0xD800 && unit <= 0xDBFF;
    }
    return !wantsLow || refuse("it holds a text with half a surrogate pair");
  }

  bool visitMembers(std::size_t at, std::size_t nibble, std::size_t references, std::size_t depth) {
    Body members;
    if (!body(at, nibble, members) || !holds(members.at, members.count, references * referenceSize_)) {
      return false;
    }
    if (depth >= deepestNesting) {
      return refuse(tooDeep);
    }
    for (std::size_t i = 0; i < members.count * references; ++i) {
      if (!visit(number(members.at + i * referenceSize_, referenceSize_), depth + 1)) {
        return false;
      }
    }
    return true;
  }

  // For a dictionary whose members have been visited.
  bool checkKeys(std::size_t at, std::size_t nibble) {
    Body keys;
    body(at, nibble, keys);
    for (std::size_t i = 0; i < keys.count; ++i) {
      const std::uint64_t key = number(keys.at + i * referenceSize_, referenceSize_);
      const std::uint64_t kind = number(startOf(key), 1) >> 4U;
      if (kind != 0x5 && kind != 0x6) {
        return refuse("it has a key that is no text");
      }
    }
    return true;
  }

  std::string_view bytes_;
  std::size_t offsetSize_ = 0;
  std::size_t referenceSize_ = 0;
  std::uint64_t objects_ = 0;
  std::uint64_t top_ = 0;
  std::size_t table_ = 0;
  std::size_t visits_ = 0;
  std::string fault_ = "it is malformed";
};

}  // namespace

std::optional<system::Failure> binaryFault(std::string_view bytes) { return Walk(bytes).run(); }

}  // namespace tarnwell::standin
