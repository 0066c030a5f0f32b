#include "updateclient/ByteCount.h"

#include <array>

namespace tarnwell::updateclient {
namespace {

struct Unit {
  std::uint64_t length = 1;
  const char* name = "";
  int fractionDigits = 0;
};

constexpr std::array<Unit, 4> units = {{{.length = 1'000'000'000, .name = "GB", .fractionDigits = 2},
                                        {.length = 1'000'000, .name = "MB", .fractionDigits = 1},
                                        {.length = 1'000, .name = "KB", .fractionDigits = 0},
                                        {.length = 1, .name = "bytes", .fractionDigits = 0}}};

const Unit& unitFor(std::uint64_t bytes) {
  for (const Unit& unit : units) {
    if (bytes >= unit.length) {
      return unit;
    }
  }
  return units.back();
}

std::string in(const Unit& unit, std::uint64_t bytes, const kit::NumberFormat& format) {
  const double count = static_cast<double>(bytes) / static_cast<double>(unit.length);
  return format.text(count, unit.fractionDigits) + ' ' + unit.name;
}

}  // namespace

std::string byteCount(std::uint64_t bytes, const kit::NumberFormat& format) {
  return in(unitFor(bytes), bytes, format);
}

std::string byteProgress(std::uint64_t received, std::uint64_t expected, const kit::NumberFormat& format) {
  if (expected == 0) {
    return byteCount(received, format);
  }
  const Unit& unit = unitFor(expected);
  return in(unit, received, format) + " of " + in(unit, expected, format);
}

}  // namespace tarnwell::updateclient
