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

system::Result<std::vector<std::string>> domainNames(const std::string& root) {
  constexpr std::string_view extension = ".plist";
  std::vector<std::string> names;
  const std::string path = preferencesFolder(root);
  const std::unique_ptr<DIR, FolderCloser> folder(::opendir(path.c_str()));
  if (!folder && errno == ENOENT) {
    return names;
  }
  if (!folder) {
    return system::systemFailure("cannot read " + path);
  }
  while (const dirent* entry = nextEntry(folder.get())) {
    const std::string_view name = entry->d_name;
    if (!name.starts_with('.') && name.ends_with(extension)) {
      names.emplace_back(name.substr(0, name.size() - extension.size()));
    }
  }
  if (errno != 0) {
    return system::systemFailure("cannot read " + path);
  }
  std::sort(names.begin(), names.end());
  return names;
}

Status listDomains(const std::string& root) {
  const system::Result<std::vector<std::string>> names = domainNames(root);
  if (!names) {
    return failed(names.error());
  }
  std::string line;
  for (const std::string& name : *names) {
    line += (line.empty() ? "" : ", ") + name;
  }
  return show(line + "\n");
}

}  // namespace tarnwell::standin
