#include "updater/schedule/PropertyListFile.h"

#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <system_error>

#include "system/AtomicFile.h"
#include "system/CNumericLocale.h"
#include "system/FileLock.h"
#include "system/Folders.h"
#include "system/ReadFile.h"
#include "updater/schedule/WholePropertyList.h"
#include "updater/text/Report.h"

namespace tarnwell::updater {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t largestFile = 1024UL * 1024;  // Bytes; a few hundred are usual.
constexpr int mostFilesSetAside = 1000;

system::Failure systemFailure(const std::string& what, const fs::path& path) {
  return system::systemFailure(what + " " + path.string());
}

PropertyList parsed(const std::string& text) {
  if (!isWholePropertyList(text)) {
    return nullptr;
  }
  const system::CNumericLocale locale;
  plist_t node = nullptr;
  plist_from_xml(text.data(), static_cast<std::uint32_t>(text.size()), &node);
  PropertyList list(node);
  return plist_get_node_type(list.get()) == PLIST_DICT ? std::move(list) : nullptr;
}

std::string textOf(plist_t dictionary) {
  const system::CNumericLocale locale;
  char* bytes = nullptr;
  std::uint32_t length = 0;
  plist_to_xml(dictionary, &bytes, &length);
  std::string text(bytes != nullptr ? bytes : "", length);
  std::free(bytes);  // NOLINT(cppcoreguidelines-no-malloc): the library allocates with malloc
  return text;
}

/// No list stands for a damaged file.
system::Result<PropertyList> loaded(const fs::path& path) {
  const auto content = system::readFile(path, largestFile);
  if (content) {
    return parsed(*content);
  }
  switch (content.error().error) {
    case ENOENT:
      return PropertyList(plist_new_dict());
    case EFBIG:
      return PropertyList();
    default:
      return content.error();
  }
}

/// Others have it for a moment; one that keeps it longer, for a second, gets no more of the main thread's time.
system::Result<system::FileLock> locked(const std::string& what, const fs::path& path) {
  const fs::path file = path.parent_path() / ("." + path.filename().string() + ".lock");
  if (!system::makeFolders(path.parent_path())) {
    return systemFailure(what, path);
  }
  auto lock = system::FileLock::take(file, std::chrono::seconds(1));
  if (lock) {
    return lock;
  }
  const int error = lock.error().error;
  return system::Failure{
      what + " " + path.string() + ": " +
      (error == EWOULDBLOCK ? "another program does not let go of it" : std::generic_category().message(error))};
}

/// Gives the file a second name, so that there is no moment without it. Returns that name.
system::Result<fs::path> namedAside(const fs::path& path) {
  for (int number = 1; number <= mostFilesSetAside; ++number) {
    fs::path aside = path.string() + ".damaged-" + std::to_string(number);
    if (::link(path.c_str(), aside.c_str()) == 0) {
      report(system::Failure{path.string() + " is damaged; it is kept as " + aside.string()});
      return aside;
    }
    if (errno != EEXIST) {
      return systemFailure("cannot set aside", path);
    }
  }
  return system::Failure{"cannot set aside " + path.string() + ": there are too many damaged ones"};
}

system::Result<void> setAside(const fs::path& path) {
  const auto aside = namedAside(path);
  if (!aside) {
    return aside.error();
  }
  return ::unlink(path.c_str()) == 0 ? system::Result<void>() : systemFailure("cannot set aside", path);
}

/// What is stored; a damaged file is out of the way afterwards. Only for who holds the lock.
system::Result<PropertyList> mended(const fs::path& path) {
  auto list = loaded(path);
  if (!list || *list) {
    return list;
  }
  if (const auto moved = setAside(path); !moved) {
    return moved.error();
  }
  return PropertyList(plist_new_dict());
}

system::Result<PropertyList> mendedUnderLock(const fs::path& path) {
  const auto lock = locked("cannot read", path);
  return lock ? mended(path) : lock.error();
}

}  // namespace

PropertyList PropertyListFile::dictionary() const {
  auto list = loaded(path_);
  if (list && !*list) {
    list = mendedUnderLock(path_);
  }
  if (!list) {
    report(list.error());
    return PropertyList(plist_new_dict());
  }
  return *std::move(list);
}

system::Result<void> PropertyListFile::update(const std::function<void(plist_t)>& change) const {
  const auto lock = locked("cannot write", path_);
  if (!lock) {
    return lock.error();
  }
  const auto list = mended(path_);
  if (!list) {
    return list.error();
  }
  plist_t dictionary = list->get();
  change(dictionary);
  return system::replaceFile(path_, textOf(dictionary));
}

}  // namespace tarnwell::updater
