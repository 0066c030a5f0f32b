#include <link.h>

#include <initializer_list>
#include <system_error>
#include <vector>

#include "updater/engine/NeededFiles.h"

namespace tarnwell::updater {
namespace {

using confinement::Rights;

constexpr const char* loaderCache = "/etc/ld.so.cache";

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

/// What reads a Debian package.
constexpr std::initializer_list<const char*> packageTools = {"/usr/bin/dpkg-deb", "/usr/bin/tar", "/bin/tar"};

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

std::filesystem::path loader() {
  const char* path = "";
  ::dl_iterate_phdr(&findLoader, &path);
  return path;
}

/// Where this system has its libraries: the loader's own folder, and the one that belongs to it where libraries are
/// parted between / and /usr.
std::vector<std::filesystem::path> libraryFolders() {
  std::error_code error;
  const auto folder = std::filesystem::canonical(loader(), error).parent_path();
  if (error) {
    return {};
  }
  return {folder, std::filesystem::path("/usr") / folder.relative_path()};
}

/// Shared libraries, but none of the folders beside them: the loader would start the programs in there.
void addLibraries(Rights& rights, const std::filesystem::path& folder) {
  std::error_code ignored;  // What is not there is passed over.
  for (const auto& entry : std::filesystem::directory_iterator(folder, ignored)) {
    const bool isNamedSo = entry.path().filename().string().find(".so") != std::string::npos;
    if (isNamedSo && !entry.is_directory(ignored)) {
      rights.readable.push_back(entry.path());
    }
  }
}

}  // namespace

void addNetworkFiles(Rights& rights) {
  // With the folders in there: libraries of names, of certificates and of ciphers are loaded when they are needed.
  for (const auto& folder : libraryFolders()) {
    rights.readable.push_back(folder);
  }
  add(rights.readable, {loaderCache});
  add(rights.readable, network);
}

void addPackageTools(Rights& rights) {
  for (const auto& folder : libraryFolders()) {
    addLibraries(rights, folder);
  }
  add(rights.readable, {loaderCache, "/dev/null"});
  add(rights.programs, packageTools);
  rights.programs.push_back(loader());
}

}  // namespace tarnwell::updater
