#include "updater/package/RealPackage.h"

#include <filesystem>
#include <stdexcept>

#include "fixtures/Sandbox.h"
#include "system/processes/Process.h"

namespace tarnwell::updater {

std::string realPackage(const std::string& version, const std::string& content, const std::string& compression) {
  const fixtures::Sandbox sandbox;
  std::filesystem::create_directories(sandbox / "tree/DEBIAN");
  sandbox.write("tree/DEBIAN/control", "Package: tarnwell\nVersion: " + version +
                                           "\nArchitecture: all\nMaintainer: Tests <tests@tarnwell.example>\n"
                                           "Description: a package of a test\n");
  sandbox.write("tree/content", content);
  std::filesystem::permissions(sandbox / "tree/DEBIAN", std::filesystem::perms(0755));
  const std::string tree = (sandbox / "tree").string();
  auto tool = system::Process::start(
      {.words = {"/bin/sh", "-c",
                 R"(exec /usr/bin/dpkg-deb --root-owner-group "-Z$1" --build "$0" "$0.deb" >/dev/null)", tree,
                 compression}});
  if (!tool || !tool->wait().isSuccess()) {
    throw std::runtime_error("dpkg-deb builds no package");
  }
  return sandbox.read("tree.deb");
}

}  // namespace tarnwell::updater
