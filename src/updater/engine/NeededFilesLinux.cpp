#include <link.h>

#include <initializer_list>

#include "updater/engine/NeededFiles.h"

namespace tarnwell::updater {
namespace {

using confinement::Rights;

/// Where libraries are that are loaded when they are needed, as those that look up names.
constexpr std::initializer_list<const char*> libraries = {"/usr/lib", "/usr/lib64", "/lib", "/lib64",
                                                          "/etc/ld.so.cache"};

/// What the C library asks about names, and where distributions keep the certificates of authorities.
constexpr std::initializer_list<const char*> network = {"/etc/resolv.conf",
                                                        "/etc/hosts",
                                                        "/etc/host.conf",
                                                        "/etc/nsswitch.conf",
                                                        "/etc/gai.conf",
                                                        "/etc/services",
                                                        "/etc/ssl",
                                                        "/etc/pki",
                                                        "/etc/ca-certificates",
                                                        "/usr/share/ca-certificates",
                                                        "/usr/local/share/ca-certificates",
                                                        "/dev/urandom"};

/// What reads a Debian package, and what that starts.
constexpr std::initializer_list<const char*> packageTools = {"/usr/bin/dpkg-deb", "/usr/bin/tar", "/usr/bin/rm",
                                                             "/bin/tar", "/bin/rm"};

void add(std::vector<std::filesystem::path>& paths, std::initializer_list<const char*> more) {
  paths.insert(paths.end(), more.begin(), more.end());
}

/// The program that starts programs, as this one names it.
int findLoader(dl_phdr_info* object, std::size_t /*size*/, void* path) {
  for (int index = 0; index < object->dlpi_phnum; ++index) {
    const auto& header = object->dlpi_phdr[index];
    if (header.p_type == PT_INTERP) {
      // NOLINTNEXTLINE(performance-no-int-to-ptr): the loader tells an address as a number
      *static_cast<const char**>(path) = reinterpret_cast<const char*>(object->dlpi_addr + header.p_vaddr);
    }
  }
  return 1;  // The first object is the program itself.
}

}  // namespace

void addNetworkFiles(Rights& rights) {
  add(rights.readable, libraries);
  add(rights.readable, network);
}

void addPackageTools(Rights& rights) {
  add(rights.readable, libraries);
  add(rights.readable, {"/dev/null"});
  add(rights.programs, packageTools);
  const char* loader = nullptr;
  ::dl_iterate_phdr(&findLoader, &loader);
  if (loader != nullptr) {
    rights.programs.emplace_back(loader);
  }
}

}  // namespace tarnwell::updater
