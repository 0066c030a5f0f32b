#include "standin/store/lists/BinaryShape.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "standin/MacSystem.h"

namespace tarnwell::standin {
namespace {

using testing::HasSubstr;

using Objects = std::vector<std::string>;

// A list of at most 250 objects that are given by their bytes; the first one is at the top.
std::string binaryList(const Objects& objects) {
  std::string bytes = "bplist00";
  std::string table;
  for (const std::string& object : objects) {
    table += static_cast<char>(bytes.size());
    bytes += object;
  }
  const auto start = static_cast<char>(bytes.size());
  bytes += table + std::string(6, '\0') + "\x01\x01" + std::string(7, '\0') + static_cast<char>(objects.size());
  return bytes + std::string(15, '\0') + start;
}

// The bytes of a number, the highest first.
std::string bytesOf(std::uint64_t number, unsigned count) {
  std::string bytes;
  for (; count > 0; --count) {
    bytes += static_cast<char>(number >> (8 * (count - 1)));
  }
  return bytes;
}

// A date by its seconds since 1970.
std::string date(double seconds) {
  return "3" + bytesOf(std::bit_cast<std::uint64_t>(seconds - static_cast<double>(dateReference)), 8);
}

// A text of UTF-16.
std::string wideText(const std::vector<std::uint64_t>& units) {
  std::string bytes(1, static_cast<char>(0x60 + units.size()));
  for (const std::uint64_t unit : units) {
    bytes += bytesOf(unit, 2);
  }
  return bytes;
}

constexpr const char* noNul = "a text with a NUL";

struct Shape {
  const char* what = "";
  Objects objects;
  const char* fault = "";  // empty when there is none
};

TEST(BinaryShapeTest, whatTheLibraryWouldChangeIsRefused) {
  using std::string_literals::operator""s;  // for texts with NUL
  // Printable markers: Q is a text of one byte, a and b are texts of one and two units, ^ and _ longer
  // texts, ", # and $ are real numbers, 2 and 3 dates, B, N and O data.
  const std::vector<Shape> shapes = {
      {"boolean", {"\x09"}, ""},
      {"integer", {"\x13\0\0\0\0\0\0\0\x01"s}, ""},
      {"integer beyond 64 bits", {"\x14\x01"s + std::string(15, '\0')}, "an integer beyond 64 bits"},
      {"unsigned integer", {"\x14"s + std::string(8, '\0') + std::string(8, '\xFF')}, ""},
      {"integer of 32 bytes", {"\x15"s + std::string(32, '\0')}, "malformed"},
      {"text", {"Qx"}, ""},
      {"text with NUL", {"\x51\0"s}, "a NUL"},
      {"text with a high byte", {"\x51\xE9"}, "not ASCII"},
      {"surrogate pair", {"\x62\xD8\x3D\xDE\x00"s}, ""},
      {"half a pair", {"\x61\xD8\x3D"}, "half a surrogate pair"},
      {"the other half", {"\x61\xDE\x3D"}, "half a surrogate pair"},
      {"array", {"\xA1\x01"s, "Qx"}, ""},
      {"set", {"\xC1\x01"s, "Qx"}, "a set"},
      {"real", {"#" + std::string(8, '\0')}, ""},
      {"real of 16 bits", {"\x21\0\0"s}, "malformed"},
      {"date", {"3" + std::string(8, '\0')}, ""},
      {"date that is no number", {"\x33\x7F\xF8"s + std::string(6, '\0')}, "outside the years"},
      {"date after all calendars", {"3~" + std::string(7, '\0')}, "outside the years"},
      {"first date of all", {date(-62167219200)}, ""},
      {"date before the first", {date(-62167219201)}, "outside the years"},
      {"last date of all", {date(253402300799)}, ""},
      {"date after the last", {date(253402300800)}, "outside the years"},
      {"date of too few bytes", {"3" + std::string(7, '\0')}, "malformed"},
      {"date of 4 bytes", {"2" + std::string(4, '\0')}, "malformed"},
      {"real of 32 bits", {R"(")" + std::string(4, '\0')}, ""},
      {"real of 128 bits", {"$" + std::string(16, '\0')}, "malformed"},
      {"real of too few bytes", {"#" + std::string(7, '\0')}, "malformed"},
      {"integer of 8 bits", {"\x10\xFF"s}, ""},
      {"integer of too few bytes", {"\x13" + std::string(7, '\0')}, "malformed"},
      {"unsigned integer of too few bytes", {"\x14" + std::string(15, '\0')}, "malformed"},
      {"reference to an object", {"\x80\x01"s}, ""},
      {"reference of 8 bytes", {"\x87" + std::string(8, '\1')}, ""},
      {"reference of 9 bytes", {"\x88" + std::string(9, '\1')}, "malformed"},
      {"reference of too few bytes", {"\x83" + std::string(3, '\1')}, "malformed"},
      {"data", {"\x42\0\xFF"s}, ""},
      {"data of too few bytes", {"Bx"}, "malformed"},
      {"data of 14 bytes", {"N" + std::string(14, 'x')}, ""},
      {"data of 15 bytes", {"\x4F\x10\x0F" + std::string(15, 'x')}, ""},
      {"data of 15 bytes, by a long count", {"\x4F\x13" + bytesOf(15, 8) + std::string(15, 'x')}, ""},
      {"data by a count of 16 bytes", {"\x4F\x14" + bytesOf(0, 8) + bytesOf(1, 8) + "x"}, "malformed"},
      {"data by a count that is cut off", {"\x4F\x13" + bytesOf(0, 7)}, "malformed"},
      {"data without its count", {"O"}, "malformed"},
      {"data without a byte of 16", {"\x4F\x10\x10" + std::string(15, 'x')}, "malformed"},
      {"highest ASCII", {"\x51\x7F"}, ""},
      {"byte behind ASCII", {"\x51\x80"}, "not ASCII"},
      {"ASCII of 15 bytes with NUL", {"\x5F\x10\x0F" + std::string(14, 'x') + "\0"s}, noNul},
      {"wide text of too few bytes", {"\x62\0xy"s}, "malformed"},
      {"wide text with NUL", {wideText({'x', 0})}, noNul},
      {"units beside the pairs", {wideText({0xD7FF, 0xE000, 0xFFFF, 1})}, ""},
      {"lowest pair", {wideText({0xD800, 0xDC00})}, ""},
      {"highest pair", {wideText({0xDBFF, 0xDFFF})}, ""},
      {"first half alone", {wideText({0xD800, 'x'})}, "half a surrogate pair"},
      {"first half at the end", {wideText({'x', 0xDBFF})}, "half a surrogate pair"},
      {"second half alone", {wideText({0xDC00})}, "half a surrogate pair"},
      {"last second half alone", {wideText({'x', 0xDFFF})}, "half a surrogate pair"},
      {"half a pair behind 15 units",
       {"\x6F\x10\x10" + wideText(std::vector<std::uint64_t>(15, 'x')).substr(1) + "\xD8\0"s},
       "half a surrogate pair"},
      {"array of too few members", {"\xA2\x01"s}, "malformed"},
      {"dictionary without a value", {"\xD1\x01"s, "Qx"}, "malformed"},
      {"dictionary with a wide key", {"\xD1\x01\x02"s, wideText({'x'}), "\x08"}, ""},
      {"second key that is no text", {"\xD2\x01\x02\x01\x02"s, "Qx", "\x09"}, "a key that is no text"},
      {"false", {"\x08"}, ""},
      {"filler", {"\x0F"}, "malformed"},
      {"dictionary", {"\xD1\x01\x01"s, "Qx"}, ""},
      {"key with NUL", {"\xD1\x01\x02"s, "\x51\0"s, "Qx"}, "a NUL"},
      {"key that is no text", {"\xD1\x01\x01"s, "\x09"}, "a key that is no text"},
      {"null", {"\0"s}, "malformed"},
      {"unknown marker", {"p"}, "malformed"},
      {"array that holds itself", {"\xA1\0"s}, "nested"},
      {"reference to nowhere", {"\xA1\x07"}, "malformed"},
      {"text that is too long", {"^"}, "malformed"},
      {"count that is too long", {"\x5F\x13\x7F\xFF\xFF\xFF\xFF\xFF\xFF\xFF"}, "malformed"},
      {"count that is none", {"_Qx"}, "malformed"},
  };
  for (const Shape& each : shapes) {
    const std::optional<system::Failure> fault = binaryFault(binaryList(each.objects));
    EXPECT_THAT(fault ? fault->message : std::string(), HasSubstr(each.fault)) << each.what;
    EXPECT_EQ(fault.has_value(), *each.fault != '\0') << each.what;
  }
}

// A list of one boolean, with other numbers in its trailer: sizes of offsets and references, counts and places.
bool isList(std::uint64_t offsetSize, std::uint64_t referenceSize, std::uint64_t objects, std::uint64_t top,
            std::uint64_t table, const std::string& offsets = "\x08") {
  const std::string list = "bplist00\x09" + offsets + std::string(6, '\0') + bytesOf(offsetSize, 1) +
                           bytesOf(referenceSize, 1) + bytesOf(objects, 8) + bytesOf(top, 8) + bytesOf(table, 8);
  return !binaryFault(list);
}

TEST(BinaryShapeTest, theTrailerFitsWhatIsThere) {
  EXPECT_TRUE(isList(1, 1, 1, 0, 9));
  EXPECT_TRUE(isList(8, 8, 1, 0, 9, bytesOf(8, 8)));
  EXPECT_FALSE(isList(0, 1, 1, 0, 9));
  EXPECT_FALSE(isList(9, 1, 1, 0, 9, std::string(8, '\0') + "\x08"));
  EXPECT_FALSE(isList(1, 0, 1, 0, 9));
  EXPECT_FALSE(isList(1, 9, 1, 0, 9));
  EXPECT_FALSE(isList(1, 1, 2, 0, 9)) << "more objects than the table has room for";
  EXPECT_FALSE(isList(2, 1, 1, 0, 9)) << "larger offsets than it has";
  EXPECT_FALSE(isList(1, 1, 1, 1, 9)) << "the top is none of the objects";
  EXPECT_FALSE(isList(1, 1, 0, 0, 9));
  EXPECT_FALSE(isList(1, 1, 1, 0, 7)) << "the table is in the header";
  EXPECT_FALSE(isList(1, 1, 1, 0, 11)) << "the table is in the trailer";
  EXPECT_FALSE(isList(1, 1, 1, 0, 9, "\x07")) << "an object is in the header";
  EXPECT_FALSE(isList(1, 1, 1, 0, 9, "\x09")) << "an object is in the table";
  EXPECT_FALSE(binaryFault(binaryList({"\x08"})));
  for (std::size_t length = 0; length < 42; ++length) {
    EXPECT_TRUE(binaryFault(binaryList({"\x08"}).substr(0, length))) << length;
  }
}

// Shared values count each time: one array of so many references to another one, of 4003, and of `more` to a boolean.
std::optional<system::Failure> faultOfUnfolded(std::size_t arrays, std::size_t more) {
  const auto array = [](std::size_t count) { return "\xAF\x11" + bytesOf(count, 2); };
  const std::string top = array(arrays + more) + std::string(arrays, '\1') + std::string(more, '\2');
  const std::string inner = array(4003) + std::string(4003, '\2');
  std::string bytes = "bplist00" + top + inner + "\x09";
  const std::size_t table = bytes.size();
  bytes += bytesOf(8, 2) + bytesOf(8 + top.size(), 2) + bytesOf(table - 1, 2);
  bytes += std::string(6, '\0') + "\x02\x01" + bytesOf(3, 8) + bytesOf(0, 8) + bytesOf(table, 8);
  return binaryFault(bytes);
}

TEST(BinaryShapeTest, unfoldsToFourMillionValues) {
  EXPECT_FALSE(faultOfUnfolded(999, 3));
  const auto fault = faultOfUnfolded(999, 4);
  ASSERT_TRUE(fault);
  EXPECT_EQ(fault->message, "it unfolds to too many values");
}

TEST(BinaryShapeTest, aKeyThatIsThereTwiceMakesNoList) {
  const std::string once = binaryList({"\xD2\x01\x02\x03\x03", "Qx", "Qy", "Qz"});
  EXPECT_NE(listIn(once), nullptr);
  // The second x is in UTF-16.
  const std::string twice = binaryList({"\xD2\x01\x02\x03\x03", "Qx", std::string("\x61\0x", 3), "Qz"});
  EXPECT_EQ(listIn(twice), nullptr);
}

TEST(BinaryShapeTest, damagedBytesNeverCrash) {
  const std::string sound = binaryOf(everyType());
  std::mt19937 random(20250320);  // The same bytes in every run
  int understood = 0;
  for (int i = 0; i < 20000; ++i) {
    std::string bytes = sound;
    for (int flips = 0; flips < 3; ++flips) {
      bytes[random() % bytes.size()] = static_cast<char>(random());
    }
    if (i % 2 == 0) {
      bytes.resize(random() % bytes.size());
    }
    if (listIn(bytes)) {
      ++understood;
    }
  }
  EXPECT_GT(understood, 0);
}

}  // namespace
}  // namespace tarnwell::standin
