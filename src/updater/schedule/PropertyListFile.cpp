#include "updater/schedule/PropertyListFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <string>
#include <system_error>

#include "system/CNumericLocale.h"
#include "system/Descriptor.h"
#include "system/MakeFolders.h"
#include "system/ReadFile.h"
#include "system/ReplaceFile.h"
#include "updater/schedule/WholePropertyList.h"
#include "updater/text/Report.h"

namespace tarnwell::updater {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t largestFile = 1024UL * 1024;  // Bytes; a few hundred are usual.
constexpr int mostFilesSetAside = 1000;

system::Failure systemFailure(const std::string& what, const fs::path& path) {
  return {what + " " + path.string() + ": " + std::system_category().message(errno)};
}

system::Failure unlocked(const std::string& what, const fs::path& path) {
  return errno == EWOULDBLOCK ? system::Failure{what + " " + path.string() + ": another program does not let go of it"}
                              : systemFailure(what, path);
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

bool takes(int lock) {
  constexpr timespec pause = {.tv_sec = 0, .tv_nsec = 5'000'000};
  constexpr int mostTries = 200;
  for (int tries = 0; ::flock(lock, LOCK_EX | LOCK_NB) != 0; ++tries) {
    if ((errno != EWOULDBLOCK && errno != EINTR) || tries == mostTries) {
      return false;
    }
    ::nanosleep(&pause, nullptr);
  }
  return true;
}

/// Held as long as the descriptor is open. Others have it for a moment; who holds it longer, for a second, gets no more
/// of the main thread's time. Empty, with errno set, when there is no lock to be had.
system::Descriptor locked(const fs::path& path) {
  const fs::path lock = path.parent_path() / ("." + path.filename().string() + ".lock");
  if (!system::makeFolders(path.parent_path())) {
    return {};
  }
  system::Descriptor file(::open(lock.c_str(), O_RDWR | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, 0600));
  if (file && !takes(file.number())) {
    const int error = errno;
    file.close();
    errno = error;
  }
  return file;
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

std::optional<system::Failure> setAside(const fs::path& path) {
  const auto aside = namedAside(path);
  if (!aside) {
    return aside.error();
  }
  return ::unlink(path.c_str()) == 0 ? std::nullopt : std::optional(systemFailure("cannot set aside", path));
}

/// What is stored; a damaged file is out of the way afterwards. Only for who holds the lock.
system::Result<PropertyList> mended(const fs::path& path) {
  auto list = loaded(path);
  if (!list || *list) {
    return list;
  }
  if (const auto failure = setAside(path)) {
    return *failure;
  }
  return PropertyList(plist_new_dict());
}

system::Result<PropertyList> mendedUnderLock(const fs::path& path) {
  const system::Descriptor lock = locked(path);
  return !lock ? unlocked("cannot read", path) : mended(path);
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

std::optional<system::Failure> PropertyListFile::update(const std::function<void(plist_t)>& change) const {
  const system::Descriptor lock = locked(path_);
  if (!lock) {
    return unlocked("cannot write", path_);
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
