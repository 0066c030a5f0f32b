#include "standin/defaults/DomainList.h"

#include <dirent.h>

#include <algorithm>
#include <cerrno>
#include <memory>
#include <string_view>

#include "standin/defaults/Commands.h"
#include "standin/store/SystemRoot.h"

namespace tarnwell::standin {
namespace {

struct FolderCloser {
  void operator()(DIR* folder) const { ::closedir(folder); }
};

// Null at the end, with errno 0, and when the folder cannot be read.
const dirent* nextEntry(DIR* folder) {
  errno = 0;
  return ::readdir(folder);  // NOLINT(concurrency-mt-unsafe): one thread
}

}  // namespace

Result<std::vector<std::string>> domainNames(const std::string& root) {
  constexpr std::string_view extension = ".plist";
  std::vector<std::string> names;
  const std::string path = preferencesFolder(root);
  const std::unique_ptr<DIR, FolderCloser> folder(::opendir(path.c_str()));
  if (!folder && errno == ENOENT) {
    return names;
  }
  if (!folder) {
    return systemFailure("read", path);
  }
  while (const dirent* entry = nextEntry(folder.get())) {
    const std::string_view name = entry->d_name;
    if (!name.starts_with('.') && name.ends_with(extension)) {
      names.emplace_back(name.substr(0, name.size() - extension.size()));
    }
  }
  if (errno != 0) {
    return systemFailure("read", path);
  }
  std::sort(names.begin(), names.end());
  return names;
}

Status listDomains(const std::string& root) {
  const Result<std::vector<std::string>> names = domainNames(root);
  if (const auto* failure = std::get_if<Failure>(&names)) {
    return failed(*failure);
  }
  std::string line;
  for (const std::string& name : std::get<std::vector<std::string>>(names)) {
    line += (line.empty() ? "" : ", ") + name;
  }
  return show(line + "\n");
}

}  // namespace tarnwell::standin
