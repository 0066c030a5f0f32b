#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <optional>
#include <string>

#include "standin/defaults/Commands.h"
#include "system/base/Descriptor.h"
#include "system/files/AtomicFile.h"

namespace tarnwell::standin {
namespace {

constexpr std::string_view standardStream = "-";

// A device or a link in the target's place must not be replaced by a file.
bool mayBeReplaced(const std::string& path) {
  struct stat status {};
  return ::lstat(path.c_str(), &status) != 0 || S_ISREG(status.st_mode);
}

system::Result<void> writeFile(const std::string& path, const std::string& bytes) {
  if (!mayBeReplaced(path)) {
    return system::Failure{path + " is no file"};
  }
  system::AtomicFile file(path, 0600);
  auto written = file.write(bytes);
  return written ? file.place() : written;
}

std::optional<std::string> readInput(const std::string& path) {
  const system::Descriptor file(path == standardStream ? ::fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, 3)
                                                       : ::open(path.c_str(), O_RDONLY | O_CLOEXEC));
  return file ? file.readAll() : std::nullopt;
}

Status fileFailure(std::string_view what, const std::string& path, const system::Failure& failure) {
  logLine("Could not " + std::string(what) + " " + path + "; leaving defaults unchanged.");
  return failed(failure);
}

Status writeOut(const std::string& path, plist_t dictionary) {
  const bool isStream = path == standardStream;
  const system::Result<std::string> bytes = isStream ? xmlText(dictionary) : binaryText(dictionary);
  if (!bytes) {
    return fileFailure("write", path, bytes.error());
  }
  if (isStream) {
    return show(*bytes);
  }
  const auto written = writeFile(path, *bytes);
  return written ? Status::success : fileFailure("write", path, written.error());
}

}  // namespace

Status exportDomain(const Invocation& invocation) {
  const StoredPreferences stored = loadPreferences(invocation.domain.path);
  if (stored.state == StoreState::damaged || stored.state == StoreState::unreadable) {
    return couldNotRead(invocation.domain, stored);
  }
  // A domain that never was is an empty one.
  const PropertyList empty(stored.dictionary ? nullptr : plist_new_dict());
  return writeOut(std::string(invocation.arguments.front()), empty ? empty.get() : stored.dictionary.get());
}

Status importDomain(const Invocation& invocation) {
  const std::string path(invocation.arguments.front());
  const auto bytes = readInput(path);
  if (!bytes) {
    return fileFailure("read", path, system::systemFailure("cannot read " + path));
  }
  const system::Result<PropertyList> parsed = parsePropertyList(*bytes);
  if (!parsed) {
    return fileFailure("parse", path, parsed.error());
  }
  plist_t imported = parsed->get();
  if (!PLIST_IS_DICT(imported)) {
    return fileFailure("parse", path, {"it has no dictionary at its top"});
  }
  return change(invocation.domain, [&](PreferenceTransaction& transaction) {
    plist_t target = transaction.dictionary();
    plist_dict_merge(&target, imported);
    return commit(transaction, invocation.domain);
  });
}

}  // namespace tarnwell::standin
