#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "standin/defaults/Commands.h"
#include "standin/defaults/LogLine.h"
#include "standin/store/AtomicFile.h"
#include "standin/store/StandardStreams.h"

namespace tarnwell::standin {
namespace {

constexpr std::string_view standardStream = "-";

// A device or a link in the target's place must not be replaced by a file.
bool mayBeReplaced(const std::string& path) {
  struct stat status {};
  return ::lstat(path.c_str(), &status) != 0 || S_ISREG(status.st_mode);
}

// No lock guards a folder of the user's, so the temporary name is this process's own.
bool writeFile(const std::string& path, const std::string& bytes) {
  if (!mayBeReplaced(path)) {
    return false;
  }
  std::optional<AtomicFile> file = AtomicFile::create(path, ".defaults-" + std::to_string(::getpid()) + ".tmp");
  return file && file->fill(bytes) && file->commit();
}

bool readInput(const std::string& path, std::string& bytes) {
  if (path == standardStream) {
    return Descriptor(::fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, 3)).readAll(bytes);
  }
  const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
  return file && file.readAll(bytes);
}

Status fileFailure(std::string_view what, const std::string& path) {
  logLine("Could not " + std::string(what) + " " + path + "; leaving defaults unchanged.");
  return Status::failure;
}

void mergeInto(plist_t target, plist_t source) { plist_dict_merge(&target, source); }

}  // namespace

Status exportDomain(const Invocation& invocation) {
  if (invocation.arguments.empty()) {
    return misused();
  }
  if (invocation.arguments.size() > 1) {
    return unexpectedArgument(invocation, 1);
  }
  const StoredPreferences stored = loadPreferences(invocation.domain.path);
  if (stored.state == StoreState::damaged || stored.state == StoreState::unreadable) {
    return couldNotRead(invocation.domain, stored);
  }
  // A domain that never was is an empty one.
  const PropertyList empty(stored.dictionary ? nullptr : plist_new_dict());
  plist_t dictionary = stored.dictionary ? stored.dictionary.get() : empty.get();
  const std::string path(invocation.arguments.front());
  const bool written = path == standardStream ? printOut(xmlText(dictionary)) : writeFile(path, binaryText(dictionary));
  return written ? Status::success : fileFailure("write", path);
}

Status importDomain(const Invocation& invocation) {
  if (invocation.arguments.empty()) {
    return misused();
  }
  if (invocation.arguments.size() > 1) {
    return unexpectedArgument(invocation, 1);
  }
  const std::string path(invocation.arguments.front());
  std::string bytes;
  if (!readInput(path, bytes)) {
    return fileFailure("read", path);
  }
  const ParsedList parsed = parsePropertyList(bytes);
  if (!PLIST_IS_DICT(parsed.list.get()) || parsed.fidelity == Fidelity::inexact) {
    return fileFailure("parse", path);
  }
  std::optional<PreferenceTransaction> transaction = PreferenceTransaction::begin(invocation.domain.path);
  if (!transaction) {
    return couldNotWrite(invocation.domain);
  }
  mergeInto(transaction->dictionary(), parsed.list.get());
  return commit(*transaction, invocation.domain);
}

}  // namespace tarnwell::standin
