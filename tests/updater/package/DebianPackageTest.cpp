#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <vector>

#include "fixtures/EnvironmentScope.h"
#include "fixtures/Processes.h"
#include "fixtures/Sandbox.h"
#include "system/base/Descriptor.h"
#include "updater/package/PackageKind.h"
#include "updater/package/RealPackage.h"

namespace tarnwell::updater {
namespace {

namespace fs = std::filesystem;

/// The version of a package with these bytes, or why there is none.
std::string versionOf(const std::string& content) {
  const system::Descriptor file(::memfd_create("package", MFD_CLOEXEC));
  EXPECT_EQ(::write(file.number(), content.data(), content.size()), static_cast<ssize_t>(content.size()));
  const auto version = debianPackage.ownVersion(file.number());
  return version ? *version : version.error().message;
}

/// Which kind a file with these bytes is of; null for none.
const PackageKind* kindOf(const std::string& content) {
  const system::Descriptor file(::memfd_create("package", MFD_CLOEXEC));
  EXPECT_TRUE(file.writeAll(content));
  return packageKind(file.number());
}

constexpr const char* noVersion =
    "The downloaded update was thrown away, because it cannot be seen which version it is: "
    "dpkg-deb does not find a version in it.";

TEST(PackageKind, isSeenByTheFirstBytes) {
  const std::string executable =
      "\x7f"
      "ELF0123";
  EXPECT_EQ(kindOf(realPackage("1.2")), &debianPackage);
  EXPECT_EQ(kindOf("!<arch>\ndebian-binary"), &debianPackage);
  EXPECT_EQ(kindOf(executable + "AI\x02"), &appImage);
  for (const std::string& other :
       {std::string(), std::string("!<arch>\ndebian"), std::string(" !<arch>\ndebian-binary"), executable,
        executable + "AI\x01", "ELF-0123AI\x02" + executable}) {
    EXPECT_EQ(kindOf(other), nullptr) << other;
  }
  EXPECT_EQ(packageKind(-1), nullptr);
}

TEST(PackageKind, isFoundByItsName) {
  EXPECT_EQ(packageKind("debian"), &debianPackage);
  EXPECT_EQ(packageKind("app-image"), &appImage);
  EXPECT_EQ(packageKind(""), nullptr);
}

TEST(DebianPackage, saysItsVersion) {
  EXPECT_EQ(versionOf(realPackage("1.2")), "1.2");
  EXPECT_EQ(versionOf(realPackage("1.2-1~deb12", std::string(1'000'000, 'x'))), "1.2-1~deb12");
  EXPECT_FALSE(fixtures::hasChildren());
}

TEST(DebianPackage, saysItsVersionHoweverItIsCompressed) {
  for (const char* compression : {"gzip", "xz", "zstd", "none"}) {
    EXPECT_EQ(versionOf(realPackage("1.2", std::string(1'000'000, 'x'), compression)), "1.2") << compression;
  }
}

TEST(DebianPackage, whatIsDamagedHasNoVersion) {
  const std::string package = realPackage("1.2");
  for (const std::string& content : {std::string(), package.substr(0, 100), package.substr(0, 300),
                                     std::string("!<arch>\ndebian-binary   nonsense")}) {
    EXPECT_EQ(versionOf(content), noVersion);
  }
}

TEST(DebianPackage, aSystemWithoutTheToolIsToldSo) {
  const std::string package = realPackage("1.2");
  const fixtures::EnvironmentScope path("PATH", "/nowhere");
  EXPECT_EQ(versionOf(package),
            "The downloaded update was thrown away, because it cannot be seen which version it is: it is a Debian "
            "package, and this system has no dpkg-deb to look into it.");
}

TEST(DebianPackage, thatCannotBeStoredSaysWhatToDo) {
  EXPECT_EQ(debianPackage.unplaced("/any", "No space left on device").message,
            "The update could not be stored: No space left on device. See to that, and try again.");
}

TEST(AppImage, thatCannotBePlacedSaysWhatToDo) {
  EXPECT_EQ(
      appImage.unplaced("/any", "Permission denied").message,
      "The new version cannot take the place of /any: Permission denied. The version that you have was left as it "
      "is. See that there is room and that you may write there, and try again.");
}

/// What a tool of our own finds decides.
class DebianTool : public testing::Test {
 protected:
  /// Of the script in the place of one tool, beside another that does well.
  std::string versionFrom(const std::string& script, const std::string& tool = "tar") const {
    put("dpkg-deb", "true");
    put("tar", "cat >/dev/null; echo Version: 1.2");
    put(tool, script);
    const fixtures::EnvironmentScope path("PATH", sandbox.path().string() + ":/usr/bin:/bin");
    return versionOf("any");
  }
  void put(const std::string& tool, const std::string& script) const {
    sandbox.write(tool, "#!/bin/sh\n" + script + "\n");
    fs::permissions(sandbox / tool, fs::perms::owner_all);
  }

  fixtures::Sandbox sandbox;
};

TEST_F(DebianTool, hasToEndWell) {
  EXPECT_EQ(versionFrom("echo Version: 1.2"), "1.2");
  EXPECT_EQ(versionFrom("echo Version: 1.2; exit 1"), noVersion);
  EXPECT_EQ(versionFrom("echo Version: 1.2; kill -9 $$"), noVersion);
  EXPECT_EQ(versionFrom("exit 0", "dpkg-deb"), "1.2");
  EXPECT_EQ(versionFrom("exit 1", "dpkg-deb"), noVersion);
  EXPECT_EQ(versionFrom("kill -9 $$", "dpkg-deb"), noVersion);
  EXPECT_FALSE(fixtures::hasChildren());
}

TEST_F(DebianTool, hasToFindOneVersion) {
  EXPECT_EQ(versionFrom("printf 'Package: a\\nVersion:\\t1.2-1 \\nArchitecture: all'"), "1.2-1");
  EXPECT_EQ(versionFrom("printf 'Description: a\\n Version: 1\\nVersion:1.2'"), "1.2");
  for (const char* script : {"true", "echo", "echo 1.2", "echo Version:", "echo 'Version:  '", "echo A Version: 1.2",
                             "echo Version: 1.2; echo Version: 1.2", "yes", "yes Version: 1.2"}) {
    EXPECT_EQ(versionFrom(script), noVersion) << script;
  }
  EXPECT_FALSE(fixtures::hasChildren());
}

TEST_F(DebianTool, mayFindALongVersionButNoneWithoutEnd) {
  EXPECT_EQ(versionFrom("printf 'Version: %0200d\\n' 1"), std::string(199, '0') + "1");
  EXPECT_EQ(versionFrom("printf 'Version: %0201d\\n' 1"), noVersion);
  EXPECT_EQ(versionFrom("printf 'Version: 1.2\\n %01048562d' 1"), "1.2");
  EXPECT_EQ(versionFrom("printf 'Version: 1.2\\n %01048563d' 1"), noVersion);
}

// An alarm lives on when a process becomes another program.
TEST_F(DebianTool, isGivenHalfAMinute) {
  for (const char* tool : {"dpkg-deb", "tar"}) {
    versionFrom("exec perl -e 'print alarm(0)' >'" + (sandbox / "seconds").string() + "'", tool);
    const int seconds = std::stoi(sandbox.read("seconds"));
    EXPECT_GT(seconds, 0) << tool;
    EXPECT_LE(seconds, 30) << tool;
  }
}

TEST_F(DebianTool, isGivenTheFileAndNothingElse) {
  const system::Descriptor secret(::memfd_create("secret", 0));
  const auto path = [this](const char* name) { return "'" + (sandbox / name).string() + "'"; };
  versionFrom("cat /proc/self/fd/3 >" + path("seen") + "; ls -l /proc/$$/fd >" + path("open") + "; echo \"$@\" >" +
                  path("words"),
              "dpkg-deb");
  EXPECT_EQ(sandbox.read("seen"), "any");
  EXPECT_NE(sandbox.read("open").find("memfd:package"), std::string::npos);
  EXPECT_EQ(sandbox.read("open").find("memfd:secret"), std::string::npos) << sandbox.read("open");
  EXPECT_EQ(sandbox.read("words"), "--ctrl-tarfile /proc/self/fd/3\n");
}

TEST(DebianVersion, isTheOneThatWasOfferedWithAnyRevision) {
  for (const char* version : {"1.2", "1.2-1", "1.2-1~deb12u1"}) {
    EXPECT_TRUE(debianPackage.isVersionOf(version, "1.2")) << version;
  }
  EXPECT_TRUE(debianPackage.isVersionOf("1.2-rc-1", "1.2-rc"));
  for (const char* version :
       {"", "-", "-1", "1", "1.1", "1.20", "1.2.0", "1.2~", "1.2+1", "1.2-rc-1", "1:1.2", "2.0-1.2"}) {
    EXPECT_FALSE(debianPackage.isVersionOf(version, "1.2")) << version;
  }
}

TEST(DebianVersion, aRevisionIsNothingToOffer) {
  for (const char* version : {"1.2-1", "1.2-2", "1.2"}) {
    EXPECT_FALSE(debianPackage.isVersionOf(version, "1.2-1")) << version;
  }
  EXPECT_TRUE(debianPackage.isVersionOf("1.2-rc-1", "1.2-rc"));
}

}  // namespace
}  // namespace tarnwell::updater
