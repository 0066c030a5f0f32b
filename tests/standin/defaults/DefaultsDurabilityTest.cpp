#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <cstdint>
#include <filesystem>
#include <iterator>
#include <memory>
#include <utility>

#include "standin/MacSystem.h"

namespace tarnwell::standin {
namespace {

using testing::HasSubstr;

TEST(DefaultsDurabilityTest, concurrentWritersLoseNothing) {
  const MacSystem system;
  std::vector<std::unique_ptr<Process>> writers;
  for (int writer = 0; writer < 8; ++writer) {
    const std::string text = R"(i=0; while [ $i -lt 25 ]; do "$D" write com.apple.dock key-)" + std::to_string(writer) +
                             "-$i -int $i || exit 1; i=$((i + 1)); done";
    writers.push_back(std::make_unique<Process>(Words{"/bin/sh", "-c", text}, system.environment()));
  }
  for (const auto& writer : writers) {
    EXPECT_EQ(writer->wait().status, 0);
  }
  const PropertyList list = listIn(fileContent(system.dockStore()));
  EXPECT_EQ(plist_dict_get_size(list.get()), 200U);
  EXPECT_EQ(system.preferenceNames(), Words{"com.apple.dock.plist"});
}

void spin(std::chrono::microseconds duration) {
  const auto end = std::chrono::steady_clock::now() + duration;
  while (std::chrono::steady_clock::now() < end) {
  }
}

TEST(DefaultsDurabilityTest, aWriterThatIsKilledLosesNothing) {
  const MacSystem system;
  const std::string kept(20000, 'k');
  system.defaults({"write", "com.apple.dock", "kept", kept});
  system.defaults({"write", "com.apple.dock", "n", "start"});
  std::string last = "start";
  for (int i = 0; i < 120; ++i) {
    const std::string next = std::to_string(i);
    Process writer({DEFAULTS_PATH, "write", "com.apple.dock", "n", next}, system.environment());
    // The moment of death wanders over the whole life of the writer.
    spin(std::chrono::microseconds(i * 41));
    writer.send(SIGKILL);
    const bool acknowledged = writer.wait().status == 0;
    const std::string found = system.value("n");
    EXPECT_TRUE(found == next || (!acknowledged && found == last)) << found << " at " << i;
    EXPECT_EQ(system.value("kept").size(), kept.size());
    last = found;
  }
  EXPECT_EQ(system.defaults({"write", "com.apple.dock", "n", "end"}).status, 0);
  EXPECT_EQ(system.preferenceNames(), Words{"com.apple.dock.plist"});
}

TEST(DefaultsDurabilityTest, anExportThatIsKilledLeavesNothing) {
  const MacSystem system;
  system.defaults({"write", "com.apple.dock", "kept", std::string(60000, 'k')});
  const std::string folder = (system.folder() / "out").string();
  std::filesystem::create_directory(folder);
  for (int i = 0; i < 60; ++i) {
    Process exporter({DEFAULTS_PATH, "export", "com.apple.dock", folder + "/list.plist"}, system.environment());
    spin(std::chrono::microseconds(i * 83));
    exporter.send(SIGKILL);
    exporter.wait();
  }
  const std::string path = folder + "/list.plist";
  EXPECT_EQ(system.defaults({"export", "com.apple.dock", path}).status, 0);
  EXPECT_EQ(fileContent(path), fileContent(system.dockStore()));
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder), {}), 1);
}

TEST(DefaultsDurabilityTest, aDamagedStoreIsNotRead) {
  const MacSystem system;
  for (const char* bytes : {"", "garbage", "bplist00", "{ a = b; }", R"(<plist version="1.0"><array/></plist>)",
                            R"(<plist version="1.0"><dict><key>a</key><string>b)"}) {
    system.store(bytes);
    for (const Words& arguments : {Words{"read", "com.apple.dock", "k"}, Words{"read", "com.apple.dock"}, Words{"read"},
                                   Words{"export", "com.apple.dock", "-"}, Words{"delete", "com.apple.dock", "k"}}) {
      const Outcome outcome = system.defaults(arguments);
      EXPECT_EQ(outcome.status, 1);
      EXPECT_THAT(outcome.errors,
                  HasSubstr("Could not read domain com.apple.dock; " + system.dockStore() + " is not a property list"));
    }
    EXPECT_EQ(fileContent(system.dockStore()), bytes);
  }
}

TEST(DefaultsDurabilityTest, aWriteSetsADamagedStoreAside) {
  const MacSystem system;
  for (const Words& arguments : {Words{"write", "com.apple.dock", "k", "v"}, Words{"delete", "com.apple.dock"}}) {
    system.store("garbage");
    const Outcome outcome = system.defaults(arguments);
    EXPECT_EQ(outcome.status, 0);
    const std::string aside = system.dockStore() + ".damaged-";
    EXPECT_THAT(outcome.errors, HasSubstr("it is kept as " + aside));
    const std::size_t at = outcome.errors.find(aside);
    EXPECT_EQ(fileContent(outcome.errors.substr(at, outcome.errors.size() - at - 1)), "garbage");
    EXPECT_EQ(system.value("k"), arguments.front() == "write" ? "v" : "");
  }
  EXPECT_FALSE(std::filesystem::exists(system.dockStore()));
  EXPECT_EQ(system.preferenceNames().size(), 2U);
}

struct HalfUnderstood {
  std::string bytes;
  const char* cause = "";
};

std::string xmlStore(const std::string& content) {
  return R"(<plist version="1.0"><dict><key>a</key><string>b</string>)" + content + "</dict></plist>\n";
}

TEST(DefaultsDurabilityTest, aStoreThatIsHalfUnderstoodIsSetAsideByteByByte) {
  const std::vector<HalfUnderstood> stores = {
      {xmlStore("<key>k</key><string>\xFF</string>"), "line 1: not well-formed"},
      {xmlStore("<key>k</key><string>&#xD83D;</string>"), "line 1: reference to invalid character"},
      {xmlStore("<key>k</key><string>&nbsp;</string>"), "line 1: undefined entity"},
      {xmlStore("<key>k</key><real>abc</real>"), "what <real> holds cannot be understood"},
      {xmlStore("<key>k</key><integer>18446744073709551616</integer>"), "what <integer> holds"},
      {xmlStore("<key>k</key>"), "the key k has no value"},
      {xmlStore("<key>a</key><string>c</string>"), "the key a is there twice"},
      {xmlStore("<key>k</key><color/>"), "<color> is no element of a property list"},
      {xmlStore("") + "</plist>", "line 2: not well-formed"},
      // { k = an empty set; a = "b"; }: the format has sets, property lists have not.
      {std::string("bplist00\xD2\x01\x02\x03\x04\x51k\x51"
                   "a\xC0\x51"
                   "b\x08\x0D\x0F\x11\x12\0\0\0\0\0\0\x01\x01\0\0\0\0\0\0\0\x05\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\x14",
                   57),
       "it holds a set"},
  };
  for (const HalfUnderstood& each : stores) {
    const MacSystem system;
    system.store(each.bytes);
    EXPECT_EQ(system.value("a"), "");
    const Outcome outcome = system.defaults({"write", "com.apple.dock", "x", "y"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.errors, HasSubstr(each.cause));
    const Words names = system.preferenceNames();
    ASSERT_EQ(names.size(), 2U) << each.cause;
    EXPECT_EQ(fileContent(system.preferences() + "/" + names[1]), each.bytes);
    EXPECT_EQ(system.defaults({"read", "com.apple.dock"}).output, "{\n    x = y;\n}\n");
  }
}

TEST(DefaultsDurabilityTest, aStoreOfMoreThan64MebibytesIsNotRead) {
  const MacSystem system;
  constexpr std::uintmax_t most = 67'108'864;
  for (const auto& [size, cause] : {std::pair(most, "is not a property list"), {most + 1, "File too large"}}) {
    system.store("x");
    std::filesystem::resize_file(system.dockStore(), size);
    const Outcome outcome = system.defaults({"read", "com.apple.dock", "k"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.errors, HasSubstr(cause));
  }
}

TEST(DefaultsDurabilityTest, commentsDoNotCountAsNesting) {
  const MacSystem system;
  std::string comments;
  std::string arrays;
  for (int i = 0; i < 200'000; ++i) {
    comments += "<!--<dict>-->";
    arrays += "<!--</array>--><array>";
  }
  system.store(xmlStore(comments));
  EXPECT_EQ(system.value("a"), "b");
  system.store(xmlStore("<key>k</key>" + arrays));
  const Outcome outcome = system.defaults({"read", "com.apple.dock", "a"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.errors, HasSubstr("nested more than 512 deep"));
}

TEST(DefaultsDurabilityTest, aFailedWriteNamesItsCause) {
  const MacSystem system;
  system.defaults({"write", "com.apple.dock", "k", "v"});
  const std::string before = fileContent(system.dockStore());
  // Each number of descriptors makes another step the first that gets none.
  int failures = 0;
  for (int most = 3; most < 8; ++most) {
    const std::string limit = "ulimit -n " + std::to_string(most) + R"(; exec 9>&- 8>&-; exec "$D" )";
    for (const char* verb : {"write com.apple.dock k w", "delete com.apple.dock k", "delete com.apple.dock"}) {
      const Outcome outcome = system.shell("(" + limit + verb + ")");
      if (outcome.status == 127 || outcome.status == 0) {
        system.store(before);
        continue;
      }
      ++failures;
      EXPECT_EQ(outcome.status, 1);
      EXPECT_THAT(outcome.errors, HasSubstr("Too many open files")) << most << verb;
      EXPECT_EQ(fileContent(system.dockStore()), before);
    }
  }
  EXPECT_GT(failures, 0);
}

TEST(DefaultsDurabilityTest, aFullDiskLeavesTheStoreAsItWas) {
  const MacSystem system;
  const std::string large(5000, 'x');
  system.defaults({"write", "com.apple.dock", "large", large});
  const std::string before = fileContent(system.dockStore());
  const Outcome outcome = system.shell(R"(ulimit -f 1; exec "$D" write com.apple.dock k v)");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.errors, HasSubstr("] Could not write domain com.apple.dock; exiting\n"));
  EXPECT_THAT(outcome.errors, HasSubstr("cannot write " + system.dockStore() + ": File too large\n"));
  EXPECT_EQ(fileContent(system.dockStore()), before);
  EXPECT_EQ(system.preferenceNames(), Words{"com.apple.dock.plist"});
}

TEST(DefaultsDurabilityTest, aFullDiskLeavesADamagedStoreInItsPlace) {
  const MacSystem system;
  system.store("garbage");
  const Outcome outcome = system.shell(R"(ulimit -f 0; "$D" write com.apple.dock k v 2>/dev/null)");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(fileContent(system.dockStore()), "garbage");
  EXPECT_EQ(system.preferenceNames(), Words{"com.apple.dock.plist"});
}

TEST(DefaultsDurabilityTest, aFolderThatCannotBeMadeIsAWriteError) {
  const MacSystem system;
  std::filesystem::create_directory(system.root());
  system.folder().write("root/Library", "a file where the folder should be");
  const Outcome written = system.defaults({"write", "com.apple.dock", "k", "v"});
  EXPECT_EQ(written.status, 1);
  EXPECT_THAT(written.errors, HasSubstr("Could not write domain com.apple.dock; exiting"));
  EXPECT_THAT(written.errors, HasSubstr(system.preferences() + ": Not a directory"));
  for (const Words& arguments : {Words{"read", "com.apple.dock", "k"}, Words{"read"}, Words{"domains"}}) {
    const Outcome read = system.defaults(arguments);
    EXPECT_EQ(read.status, 1);
    EXPECT_THAT(read.errors, HasSubstr("Not a directory"));
  }
}

TEST(DefaultsDurabilityTest, aStoreThatIsNoFileIsLeftAlone) {
  const MacSystem system;
  std::filesystem::create_directories(system.dockStore());
  EXPECT_EQ(system.defaults({"write", "com.apple.dock", "k", "v"}).status, 1);
  EXPECT_EQ(system.defaults({"read", "com.apple.dock", "k"}).status, 1);
  EXPECT_EQ(system.defaults({"delete", "com.apple.dock"}).status, 1);
  EXPECT_TRUE(std::filesystem::is_directory(system.dockStore()));
}

TEST(DefaultsDurabilityTest, aStoreThatIsTooLargeIsLeftAlone) {
  const MacSystem system;
  constexpr std::uintmax_t tooLarge = 64UL * 1024 * 1024 + 1;
  system.store("");
  std::filesystem::resize_file(system.dockStore(), tooLarge);
  for (const Words& arguments : {Words{"read", "com.apple.dock", "k"}, Words{"write", "com.apple.dock", "k", "v"},
                                 Words{"delete", "com.apple.dock"}}) {
    const Outcome outcome = system.defaults(arguments);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.errors, HasSubstr(system.dockStore() + " cannot be read: File too large\n"));
  }
  EXPECT_EQ(std::filesystem::file_size(system.dockStore()), tooLarge);
  EXPECT_EQ(system.preferenceNames(), Words{"com.apple.dock.plist"});
}

TEST(DefaultsDurabilityTest, closedStreamsNeverWriteIntoTheStore) {
  const MacSystem system;
  system.store("garbage");
  EXPECT_EQ(system.shell(R"("$D" write com.apple.dock k v <&- >&- 2>&-)").status, 0);
  EXPECT_EQ(system.defaults({"read", "com.apple.dock"}).output, "{\n    k = v;\n}\n");
}

TEST(DefaultsDurabilityTest, aBrokenPipeDoesNotStopAWrite) {
  const MacSystem system;
  system.store("garbage");
  system.shell(R"({ "$D" write com.apple.dock k v; echo $? >"$MACOS_ROOT/status"; } 2>&1 | :)");
  EXPECT_EQ(fileContent(system.root() + "/status"), "0\n");
  EXPECT_EQ(system.value("k"), "v");
}

}  // namespace
}  // namespace tarnwell::standin
