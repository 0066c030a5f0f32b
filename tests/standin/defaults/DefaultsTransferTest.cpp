#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "standin/MacSystem.h"

namespace tarnwell::standin {
namespace {

using testing::HasSubstr;

TEST(DefaultsTransferTest, exportToAPathGivesTheBinaryList) {
  const MacSystem system;
  system.store(binaryOf(everyType()));
  const std::string path = (system.folder() / "out.plist").string();
  EXPECT_EQ(system.defaults({"export", "com.apple.dock", path}).status, 0);
  EXPECT_EQ(fileContent(path), fileContent(system.dockStore()));
}

TEST(DefaultsTransferTest, exportReplacesNoDeviceAndNoLink) {
  const MacSystem system;
  system.defaults({"write", "com.apple.dock", "k", "v"});
  const std::string link = (system.folder() / "link").string();
  std::filesystem::create_symlink("/dev/null", link);
  EXPECT_EQ(system.defaults({"export", "com.apple.dock", link}).status, 1);
  EXPECT_TRUE(std::filesystem::is_symlink(link));
}

TEST(DefaultsTransferTest, exportSaysWhyNot) {
  const MacSystem system;
  const std::string file = (system.folder() / "file").string();
  system.folder().write("file", "");
  for (const auto& [path, cause] : {std::pair(file + "/below", "Not a directory"),
                                    {system.folder().path().string(), "is no file"},
                                    {std::string("-"), "what would be written cannot be read"}}) {
    system.defaults({"write", "com.apple.dock", "k", "a\x01"});
    const Outcome outcome = system.defaults({"export", "com.apple.dock", path});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.errors, HasSubstr("Could not write " + path + "; leaving defaults unchanged.\n"));
    EXPECT_THAT(outcome.errors, HasSubstr(cause));
  }
  EXPECT_EQ(system.shell(R"("$D" delete com.apple.dock k; "$D" export com.apple.dock - >/dev/full)").status, 1);
}

TEST(DefaultsTransferTest, anExportIsForTheUserAloneAndOneOfNothingIsEmpty) {
  const MacSystem system;
  const std::string path = (system.folder() / "out.plist").string();
  ASSERT_EQ(system.shell("umask 0; \"$D\" export com.example.x '" + path + "'").status, 0);
  EXPECT_EQ(std::filesystem::status(path).permissions(), std::filesystem::perms(0600));
  EXPECT_EQ(plist_dict_get_size(listIn(fileContent(path)).get()), 0U);
}

TEST(DefaultsTransferTest, exportsToOnePathDoNotDisturbEachOther) {
  const MacSystem system;
  system.store(binaryOf(everyType()));
  const std::string path = (system.folder() / "out.plist").string();
  const std::string exports =
      R"(i=0; while [ $i -lt 25 ]; do "$D" export com.apple.dock ")" + path + R"(" || exit 1; i=$((i + 1)); done)";
  std::vector<std::unique_ptr<Process>> exporters;
  for (int exporter = 0; exporter < 8; ++exporter) {
    exporters.push_back(std::make_unique<Process>(Words{"/bin/sh", "-c", exports}, system.environment()));
  }
  for (const auto& exporter : exporters) {
    const Outcome outcome = exporter->wait();
    EXPECT_EQ(outcome.status, 0) << outcome.errors;
  }
  EXPECT_EQ(fileContent(path), fileContent(system.dockStore()));
}

TEST(DefaultsTransferTest, importMergesKeys) {
  const MacSystem system;
  system.shell(R"("$D" write com.apple.dock a 1; "$D" write com.apple.dock b 1; "$D" write other b 2;)"
               R"("$D" write other c -float 0.5)");
  EXPECT_EQ(system.shell(R"("$D" export other - | "$D" import com.apple.dock -)").status, 0);
  EXPECT_EQ(system.value("a"), "1");
  EXPECT_EQ(system.value("b"), "2");
  EXPECT_EQ(system.value("c"), "0.5");
}

TEST(DefaultsTransferTest, importRefusesWhatIsNoDictionary) {
  const MacSystem system;
  system.defaults({"write", "com.apple.dock", "k", "v"});
  system.folder().write("array", R"(<plist version="1.0"><array/></plist>)");
  system.folder().write("garbage", "garbage");
  struct Row {
    const char* name;
    const char* step;
    const char* cause;
  };
  for (const Row& row : {Row{"array", "parse", "it has no dictionary at its top"},
                         Row{"garbage", "parse", "line 1: syntax error"}, Row{"nosuch", "read", "No such file"}}) {
    const std::string path = (system.folder() / row.name).string();
    const Outcome outcome = system.defaults({"import", "com.apple.dock", path});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.errors,
                HasSubstr(std::string("Could not ") + row.step + " " + path + "; leaving defaults unchanged.\n"));
    EXPECT_THAT(outcome.errors, HasSubstr(row.cause));
  }
  EXPECT_EQ(system.shell(R"("$D" import com.apple.dock - <&-)").status, 1);
  EXPECT_EQ(system.defaults({"read", "com.apple.dock"}).output, "{\n    k = v;\n}\n");
}

TEST(DefaultsTransferTest, deleteRemovesAKeyOrADomain) {
  const MacSystem system;
  system.shell(R"("$D" write com.apple.dock a 1; "$D" write com.apple.dock b 2)");
  EXPECT_EQ(system.defaults({"delete", "com.apple.dock", "a"}).status, 0);
  EXPECT_EQ(system.defaults({"read", "com.apple.dock"}).output, "{\n    b = 2;\n}\n");
  EXPECT_EQ(system.defaults({"delete", "com.apple.dock"}).status, 0);
  EXPECT_FALSE(std::filesystem::exists(system.dockStore()));
}

TEST(DefaultsTransferTest, deletingWhatIsNotThereIsReported) {
  const MacSystem system;
  const Outcome domain = system.defaults({"delete", "com.example.x"});
  EXPECT_EQ(domain.status, 1);
  EXPECT_THAT(domain.errors, HasSubstr("Domain (com.example.x) not found."));
  EXPECT_FALSE(std::filesystem::exists(system.root()));
  system.defaults({"write", "com.apple.dock", "a", "1"});
  const Outcome key = system.defaults({"delete", "com.apple.dock", "x"});
  EXPECT_EQ(key.status, 1);
  EXPECT_THAT(key.errors, HasSubstr("The domain/default pair of (com.apple.dock, x) does not exist"));
}

TEST(DefaultsTransferTest, domainsAreListedInOrderWithoutTheGlobalOne) {
  const MacSystem system;
  EXPECT_EQ(system.defaults({"domains"}).output, "\n");
  system.shell(R"(for d in org.b -g org.a; do "$D" write $d k v; done)");
  EXPECT_EQ(system.defaults({"domains"}).output, "org.a, org.b\n");
}

}  // namespace
}  // namespace tarnwell::standin
