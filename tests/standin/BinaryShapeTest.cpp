#include "standin/store/BinaryShape.h"

#include <gtest/gtest.h>

#include <array>
#include <random>

#include "standin/MacSystem.h"

namespace tarnwell::standin {
namespace {

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
  BinaryShape shape = BinaryShape::exact;
};

TEST(BinaryShapeTest, tellsWhatSurvivesFromWhatDoesNot) {
  using std::string_literals::operator""s;  // for texts with NUL
  // Printable markers: Q is a text of one byte, a and b are texts of one and two units, ^ and _ longer texts.
  const std::vector<Shape> shapes = {
      {"boolean", {"\x09"}, BinaryShape::exact},
      {"integer", {"\x13\0\0\0\0\0\0\0\x01"s}, BinaryShape::exact},
      {"integer beyond 64 bits", {"\x14\x01"s + std::string(15, '\0')}, BinaryShape::inexact},
      {"unsigned integer", {"\x14"s + std::string(8, '\0') + std::string(8, '\xFF')}, BinaryShape::exact},
      {"text", {"Qx"}, BinaryShape::exact},
      {"text with NUL", {"\x51\0"s}, BinaryShape::inexact},
      {"text with a high byte", {"\x51\xE9"}, BinaryShape::inexact},
      {"surrogate pair", {"\x62\xD8\x3D\xDE\x00"s}, BinaryShape::exact},
      {"half a pair", {"\x61\xD8\x3D"}, BinaryShape::inexact},
      {"the other half", {"\x61\xDE\x3D"}, BinaryShape::inexact},
      {"array", {"\xA1\x01"s, "Qx"}, BinaryShape::exact},
      {"set", {"\xC1\x01"s, "Qx"}, BinaryShape::inexact},
      {"null", {"\0"s}, BinaryShape::broken},
      {"unknown marker", {"p"}, BinaryShape::broken},
      {"array that holds itself", {"\xA1\0"s}, BinaryShape::broken},
      {"reference to nowhere", {"\xA1\x07"}, BinaryShape::broken},
      {"text that is too long", {"^"}, BinaryShape::broken},
      {"count that is too long", {"\x5F\x13\x7F\xFF\xFF\xFF\xFF\xFF\xFF\xFF"}, BinaryShape::broken},
      {"count that is none", {"_Qx"}, BinaryShape::broken},
  };
  for (const Shape& each : shapes) {
    EXPECT_EQ(binaryShape(binaryList(each.objects)), each.shape) << each.what;
  }
}

// Each level refers to the next one twice, so the tree below the top has two to the power of forty leaves.
TEST(BinaryShapeTest, aSmallFileThatUnfoldsWithoutEndIsBroken) {
  Objects objects;
  for (char i = 1; i <= 40; ++i) {
    objects.push_back(std::string("\xA2") + i + i);
  }
  objects.emplace_back("\x09");
  EXPECT_EQ(binaryShape(binaryList(objects)), BinaryShape::broken);
}

TEST(BinaryShapeTest, nestingHasALimit) {
  PropertyList list(plist_new_array());
  for (std::size_t depth = 1; depth < deepestNesting + 20; ++depth) {
    plist_t outer = plist_new_array();
    plist_array_append_item(outer, list.release());
    list.reset(outer);
    const bool allowed = depth <= deepestNesting;
    if (depth % 100 != 0 && depth < deepestNesting - 1) {
      continue;
    }
    EXPECT_EQ(parsePropertyList(binaryText(list.get())).list != nullptr, allowed) << depth;
  }
  EXPECT_EQ(parsePropertyList(xmlText(list.get())).list, nullptr);
}

TEST(BinaryShapeTest, damagedBytesNeverCrash) {
  const std::string sound = binaryText(everyType().get());
  std::mt19937 random(20250320);  // NOLINT(cert-msc51-cpp): the same bytes in every run
  int understood = 0;
  for (int i = 0; i < 20000; ++i) {
    std::string bytes = sound;
    for (int flips = 0; flips < 3; ++flips) {
      bytes[random() % bytes.size()] = static_cast<char>(random());
    }
    if (i % 2 == 0) {
      bytes.resize(random() % bytes.size());
    }
    if (parsePropertyList(bytes).list) {
      ++understood;
    }
  }
  EXPECT_GT(understood, 0);
}

}  // namespace
}  // namespace tarnwell::standin
