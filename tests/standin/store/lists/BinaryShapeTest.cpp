#include "standin/store/lists/BinaryShape.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

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

struct Shape {
  const char* what = "";
  Objects objects;
  const char* fault = "";  // empty when there is none
};

TEST(BinaryShapeTest, whatTheLibraryWouldChangeIsRefused) {
  using std::string_literals::operator""s;  // for texts with NUL
  // Printable markers: Q is a text of one byte, a and b are texts of one and two units, ^ and _ longer
  // texts, # is a real number and 3 a date.
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

// Each level refers to the next one twice, so the tree below the top has two to the power of forty leaves.
TEST(BinaryShapeTest, aSmallFileThatUnfoldsWithoutEndIsBroken) {
  Objects objects;
  for (char i = 1; i <= 40; ++i) {
    objects.push_back(std::string("\xA2") + i + i);
  }
  objects.emplace_back("\x09");
  EXPECT_TRUE(binaryFault(binaryList(objects)));
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
