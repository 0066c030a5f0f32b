#include "standin/store/lists/PropertyList.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/mman.h>

#include <algorithm>
#include <array>
#include <bit>
#include <functional>
#include <limits>
#include <random>

#include "fuzz/Mutation.h"
#include "standin/MacSystem.h"
#include "standin/store/PreferenceFile.h"
#include "standin/store/lists/ValueText.h"

namespace tarnwell::standin {
namespace {

using testing::HasSubstr;

std::string xmlList(const std::string& value) {
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!DOCTYPE plist PUBLIC \"-//Maker//DTD PLIST 1.0//EN\" "
         "\"http://example.com/PropertyList-1.0.dtd\">\n<plist version=\"1.0\">\n" +
         value + "\n</plist>\n";
}

std::string shown(const std::string& bytes) {
  const PropertyList list = listIn(bytes);
  return list ? std::string(typeName(list.get())) + " " + valueText(list.get()) : "none";
}

struct Reading {
  const char* value = "";
  const char* shown = "none";
};

TEST(PropertyListTest, everyValueOfXmlIsReadAsItIsThereOrNotAtAll) {
  const std::vector<Reading> readings = {
      {"<true/>", "boolean 1"},
      {"<false></false>", "boolean 0"},
      {"<true>x</true>"},
      {"<integer>42</integer>", "integer 42"},
      {"<integer> -5\n</integer>", "integer -5"},
      {"<integer>+7</integer>", "integer 7"},
      {"<integer>0x1F</integer>", "integer 31"},
      {"<integer>18446744073709551615</integer>", "integer 18446744073709551615"},
      {"<integer>9223372036854775808</integer>", "integer 9223372036854775808"},
      {"<integer>-9223372036854775808</integer>", "integer -9223372036854775808"},
      {"<integer>-9223372036854775809</integer>"},
      {"<integer>18446744073709551616</integer>"},
      {"<integer>1.5</integer>"},
      {"<integer>--1</integer>"},
      {"<integer>0x</integer>"},
      {"<integer>4 2</integer>"},
      {"<integer/>"},
      {"<real>0.5</real>", "float 0.5"},
      {"<real> -1e3 </real>", "float -1000"},
      {"<real>+infinity</real>", "float inf"},
      {"<real>-infinity</real>", "float -inf"},
      {"<real>nan</real>", "float nan"},
      {"<real>abc</real>"},
      {"<real>0,5</real>"},
      {"<real>1e999</real>"},
      {"<real>--1</real>"},
      {"<real>+-1</real>"},
      {"<real></real>"},
      {"<date>2023-03-08T20:26:40Z</date>", "date 2023-03-08 20:26:40 +0000"},
      {"<date>4001-01-01T00:00:00Z</date>", "date 4001-01-01 00:00:00 +0000"},
      {"<date>1601-01-01T00:00:00Z</date>", "date 1601-01-01 00:00:00 +0000"},
      {"<date>0001-01-01T00:00:00Z</date>", "date 0001-01-01 00:00:00 +0000"},
      {"<date>0-12-30T00:00:00Z</date>", "date 0000-12-30 00:00:00 +0000"},
      {"<date>2023-02-30T00:00:00Z</date>"},
      {"<date>2023-02-03T24:00:00Z</date>"},
      {"<date>2023-02-03T00:60:00Z</date>"},
      {"<date>2023-02-03</date>"},
      {"<date>20230-02-03T00:00:00Z</date>"},
      {"<date>-02-03T00:00:00Z</date>"},
      {"<date/>"},
      {"<data>AP8B</data>", "data <00ff01>"},
      {"<data>\n\tAP8B\n\tAQ==\n</data>", "data <00ff0101>"},
      {"<data>AQE=</data>", "data <0101>"},
      {"<data/>", "data <>"},
      {"<data>AQ=</data>"},
      {"<data>A===</data>"},
      {"<data>====</data>"},
      {"<data>A=AA</data>"},
      {"<data>AP8*</data>"},
      {"<string/>", "string "},
      {"<string> a\tb </string>", "string  a\tb "},
      {"<string>a<!-- c -->b<![CDATA[<c>]]>&lt;&#x1F600;</string>", "string ab<c><\xF0\x9F\x98\x80"},
      {"<string>a<b/></string>"},
      {"<string>&nbsp;</string>"},
      {"<string>&#xDE00;</string>"},
      {"<string>&#0;</string>"},
      {"<string>\xC0\xAF</string>"},
      {"<string>\xED\xA0\xBD</string>"},
      {"<key>a</key>"},
      {"<plist/>"},
      {"<array>a</array>"},
      {"<true/><true/>"},
      {""},
      {"<True/>"},
      {"<integer>0X1f</integer>", "integer 31"},
      {"<integer>-0x10</integer>", "integer -16"},
      {"<integer>9223372036854775807</integer>", "integer 9223372036854775807"},
      {"<integer>0</integer>", "integer 0"},
      {"<date>2023-12-31T23:59:59Z</date>", "date 2023-12-31 23:59:59 +0000"},
      {"<date>9999-12-31T23:59:59Z</date>", "date 9999-12-31 23:59:59 +0000"},
      {"<date>2023-12-31T23:59:60Z</date>"},
      {"<date>2023-12-31T23:59:61Z</date>"},
      {"<date>2023-12-31 23:59:59Z</date>"},
      {"<date>2023-12-31T23:59:5:Z</date>"},
      {"<date>2023-12-31T23:59:5/Z</date>"},
      {"<date>2023-00-31T23:59:59Z</date>"},
      {"<data>+/09AZaz</data>", "data <fbfd3d0196b3>"},
      {"<data>AP8BAg==</data>", "data <00ff0102>"},
      {"<data>A</data>"},
      {"<data>AP8-</data>"},
  };
  for (const Reading& each : readings) {
    EXPECT_EQ(shown(xmlList(each.value)), each.shown) << each.value;
  }
}

TEST(PropertyListTest, theShapeOfADictionaryIsStrict) {
  EXPECT_NE(listIn(xmlList("<dict><key>a</key><dict/><key/><array><dict/></array></dict>")), nullptr);
  for (const char* content :
       {"<key>a</key>", "<true/>", "<key>a</key><key>b</key>", "<key>a</key><true/><true/>", "<key>a</key>x<true/>",
        "x<key>a</key><true/>", "<key>a</key><true/>x", "<key>a</key><true/><key>a</key><true/>", "<key><a/></key>"}) {
    EXPECT_EQ(listIn(xmlList("<dict>" + std::string(content) + "</dict>")), nullptr) << content;
  }
}

TEST(PropertyListTest, aDocumentHasOneBeginningAndOneEnd) {
  const std::string list = xmlList("<dict><key>a</key><true/></dict>");
  EXPECT_NE(listIn(list), nullptr);
  EXPECT_NE(listIn("\n" + list), nullptr);
  EXPECT_NE(listIn("<dict/>"), nullptr);
  for (const std::string& damaged : {list + "x", list + list, list.substr(0, list.size() - 3), std::string(),
                                     "<!DOCTYPE plist [<!ENTITY a \"b\">]>" + std::string("<plist><dict/></plist>"),
                                     std::string("<plist><dict/></array>"), list + std::string(1, '\0')}) {
    EXPECT_EQ(listIn(damaged), nullptr) << damaged;
  }
}

TEST(PropertyListTest, aByteOrderMarkIsNoDamage) {
  EXPECT_EQ(shown("\xEF\xBB\xBF" + xmlList("<string>h\xC3\xA9</string>")), "string h\xC3\xA9");
  std::string wide = "\xFE\xFF";
  for (const char c : std::string("<plist><string>h</string></plist>")) {
    wide += std::string(1, '\0') + c;
  }
  EXPECT_EQ(shown(wide), "string h");
}

/// What is said of so many bytes, the first of which are these and the others zero.
std::string faultOfLarge(std::size_t size, std::string_view begin) {
  void* const bytes = ::mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
  if (bytes == MAP_FAILED) {
    return "no room";
  }
  std::ranges::copy(begin, static_cast<char*>(bytes));
  const auto list = parsePropertyList({static_cast<const char*>(bytes), size});
  ::munmap(bytes, size);
  return list ? "" : list.error().message;
}

TEST(PropertyListTest, isAsLargeAsWhatReadsItCanCount) {
  constexpr std::size_t mostBinary = std::numeric_limits<std::uint32_t>::max();
  constexpr std::size_t mostXml = std::numeric_limits<int>::max();
  EXPECT_EQ(faultOfLarge(mostBinary, "bplist"), "it is malformed");
  EXPECT_EQ(faultOfLarge(mostBinary + 1, "bplist"), "it is too large");
  EXPECT_THAT(faultOfLarge(mostXml, "x"), HasSubstr("line 1: "));
  EXPECT_EQ(faultOfLarge(mostXml + 1, "x"), "it is too large");
}

TEST(PropertyListTest, nestingHasALimit) {
  const auto nested = [](std::size_t depth) {
    std::string xml;
    for (std::size_t i = 0; i < depth; ++i) {
      xml = "<array>" + xml + "</array>";
    }
    return xml;
  };
  for (const bool isBare : {true, false}) {
    for (const std::size_t depth : {deepestNesting, deepestNesting + 1}) {
      const std::string xml = isBare ? nested(depth) : xmlList(nested(depth));
      EXPECT_EQ(listIn(xml) != nullptr, depth == deepestNesting);
    }
  }
  PropertyList list(plist_new_array());
  for (std::size_t depth = 1; depth < deepestNesting; ++depth) {
    plist_t outer = plist_new_array();
    plist_array_append_item(outer, list.release());
    list.reset(outer);
  }
  EXPECT_NE(binaryOf(list), "");
  EXPECT_TRUE(xmlText(list.get()));
  plist_t outer = plist_new_array();
  plist_array_append_item(outer, list.release());
  list.reset(outer);
  EXPECT_EQ(binaryOf(list), "");
  const system::Result<std::string> xml = xmlText(list.get());
  ASSERT_FALSE(xml);
  EXPECT_THAT(xml.error().message, HasSubstr(tooDeep));
}

/// Makes values of every type, those at the edges more often than others.
class Values {
 public:
  std::uint32_t below(std::uint32_t bound) { return static_cast<std::uint32_t>(random_() % bound); }

  std::string text() {
    constexpr std::array<const char*, 9> pieces = {"a", "h\xC3\xA9", "\xF0\x9F\x98\x80", "<&>", "]]>", "\r\n",
                                                   " ", "\"'",       "\xE2\x82\xAC"};
    std::string text;
    for (std::uint32_t count = below(6); count > 0; --count) {
      text += pieces.at(below(pieces.size()));
    }
    return text;
  }

  PropertyList tree(int depth) {
    switch (below(depth > 0 ? 9 : 7)) {
      case 0:
        return PropertyList(plist_new_bool(static_cast<std::uint8_t>(below(2))));
      case 1:
        return integer();
      case 2:
        return real();
      case 3:
        return PropertyList(plist_new_string(text().c_str()));
      case 4:
        return data();
      case 5:
        return newDate(static_cast<double>(below(2'000'000'000)) * 4 - 4e9);
      case 6:
        return PropertyList(plist_new_uid(random_()));
      case 7:
        return array(depth);
      default:
        return dictionary(depth);
    }
  }

  PropertyList dictionary(int depth) {
    PropertyList list(plist_new_dict());
    for (std::uint32_t count = below(20); count > 0; --count) {
      plist_dict_set_item(list.get(), text().c_str(), tree(depth - 1).release());
    }
    return list;
  }

 private:
  PropertyList integer() {
    const std::uint64_t value = (std::uint64_t{random_()} << 32U | random_()) >> below(64);
    return below(2) == 0 && value >> 63U != 0 ? newLargeInteger(value) : PropertyList(plist_new_uint(value));
  }

  PropertyList real() {
    constexpr std::array<double, 6> edges = {0.0, -0.0, 5e-324, std::numeric_limits<double>::infinity(), 1e308, 0.1};
    const auto any = std::bit_cast<double>(std::uint64_t{random_()} << 32U | random_());
    return PropertyList(plist_new_real(below(3) == 0 ? any : edges.at(below(edges.size()))));
  }

  PropertyList data() {
    std::string bytes;
    for (std::uint32_t count = below(100); count > 0; --count) {
      bytes += static_cast<char>(random_());
    }
    return PropertyList(plist_new_data(bytes.data(), bytes.size()));
  }

  PropertyList array(int depth) {
    PropertyList list(plist_new_array());
    for (std::uint32_t count = below(20); count > 0; --count) {
      plist_array_append_item(list.get(), tree(depth - 1).release());
    }
    return list;
  }

  std::mt19937 random_;
};

TEST(PropertyListTest, everyTreeComesBackFromBothFormats) {
  Values values;
  for (int i = 0; i < 300; ++i) {
    const PropertyList list = values.dictionary(3);
    for (const auto& write : {binaryText, xmlText}) {
      const system::Result<std::string> bytes = write(list.get());
      ASSERT_TRUE(bytes) << bytes.error().message;
      const PropertyList again = listIn(*bytes);
      ASSERT_NE(again, nullptr);
      EXPECT_TRUE(isSame(list.get(), again.get())) << *bytes;
    }
  }
}

TEST(PropertyListTest, everyDifferenceIsSeen) {
  for (const char* other : {"<integer>1</integer>", "<integer>-1</integer>", "<integer>18446744073709551615</integer>",
                            "<real>1</real>", "<real>1.0000000000000002</real>", "<string>1</string>",
                            "<data>AQ==</data>", "<date>2001-01-01T00:00:01Z</date>", "<true/>", "<array/>", "<dict/>",
                            "<array><true/></array>", "<dict><key>a</key><true/></dict>",
                            "<dict><key>b</key><true/></dict>", "<dict><key>CF$UID</key><integer>1</integer></dict>"}) {
    for (const char* one : {"<integer>1</integer>", "<integer>-1</integer>", "<real>1</real>", "<true/>", "<array/>",
                            "<array><false/></array>", "<dict><key>a</key><false/></dict>"}) {
      EXPECT_EQ(isSame(listIn(one).get(), listIn(other).get()), std::string_view(one) == other) << one << other;
    }
  }
}

TEST(PropertyListTest, whatCannotBeWrittenInXmlIsRefused) {
  const PropertyList list(plist_new_string("a\x01"));
  EXPECT_NE(binaryOf(list), "");
  const system::Result<std::string> xml = xmlText(list.get());
  ASSERT_FALSE(xml);
  EXPECT_THAT(xml.error().message, HasSubstr("what would be written cannot be read"));
}

const char* const wholeStore = R"(<?xml version="1.0" encoding="UTF-8"?>
<plist version="1.0">
<dict>
  <key>autohide-delay</key><real>0.2</real>
  <key>name &amp; more</key><string>h&#233; &lt;b&gt;</string>
  <key>count</key><integer>-42</integer>
  <key>on</key><true/>
  <key>when</key><date>2023-03-08T20:26:40Z</date>
  <key>bytes</key><data>AP8BAgM=</data>
  <key>list</key><array><dict><key>x</key><string/></dict><false/></array>
</dict>
</plist>
)";

/// Runs a check over damaged forms of a store in both formats.
void forDamaged(int count, const std::function<void(const std::string& bytes)>& check) {
  const std::vector<std::string> seeds = {wholeStore, binaryOf(everyType())};
  fuzz::Mutation mutation(seeds);
  for (int i = 0; i < count; ++i) {
    check(mutation.of(seeds.at(static_cast<std::size_t>(i) % seeds.size())));
  }
}

TEST(PropertyListTest, whatIsReadOfADamagedListCanBeWrittenAndRead) {
  int read = 0;
  forDamaged(10'000, [&](const std::string& bytes) {
    if (const PropertyList list = listIn(bytes)) {
      ++read;
      EXPECT_NE(binaryOf(list), "") << bytes;
    }
  });
  EXPECT_GT(read, 100);
  EXPECT_LT(read, 5'000);
}

TEST(PropertyListTest, aWriteKeepsWhatADamagedStoreHolds) {
  const MacSystem system;
  forDamaged(300, [&](const std::string& bytes) {
    system.store(bytes);
    const PropertyList before = listIn(bytes);
    system::Result<PreferenceTransaction> begun = PreferenceTransaction::begin(system.dockStore());
    ASSERT_TRUE(begun);
    auto& transaction = *begun;
    plist_dict_set_item(transaction.dictionary(), "new", plist_new_bool(1));
    ASSERT_TRUE(transaction.commit());
    const PropertyList after = listIn(fileContent(system.dockStore()));
    ASSERT_TRUE(PLIST_IS_DICT(after.get()));
    plist_dict_remove_item(after.get(), "new");
    if (transaction.state() == StoreState::sound) {
      EXPECT_TRUE(isSame(before.get(), after.get())) << bytes;
    } else {
      EXPECT_EQ(fileContent(transaction.setAsidePath()), bytes);
      std::filesystem::remove(transaction.setAsidePath());
    }
  });
}

}  // namespace
}  // namespace tarnwell::standin
