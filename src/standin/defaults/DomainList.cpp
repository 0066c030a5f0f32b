#include "standin/defaults/DomainList.h"

#include <dirent.h>

#include <algorithm>
#include <memory>
#include <string_view>

#include "standin/defaults/Commands.h"
#include "standin/store/StandardStreams.h"
#include "standin/store/SystemRoot.h"

namespace tarnwell::standin {
namespace {

struct FolderCloser {
  void operator()(DIR* folder) const { ::closedir(folder); }
};

}  // namespace

std::vector<std::string> domainNames(const std::string& root) {
  constexpr std::string_view extension = ".plist";
  std::vector<std::string> names;
  const std::unique_ptr<DIR, FolderCloser> folder(::opendir(preferencesFolder(root).c_str()));
  if (!folder) {
    return names;
  }
  while (const dirent* entry = ::readdir(folder.get())) {  // NOLINT(concurrency-mt-unsafe): one thread
    const std::string_view name = entry->d_name;
    if (name.starts_with('.') || !name.ends_with(extension)) {
      continue;
    }
    names.emplace_back(name.substr(0, name.size() - extension.size()));
  }
  std::sort(names.begin(), names.end());
  return names;
}

Status listDomains(const std::string& root) {
  std::string line;
  for (const std::string& name : domainNames(root)) {
    if (!line.empty()) {
      line += ", ";
    }
    line += name;
  }
  return printOut(line + "\n") ? Status::success : Status::failure;
}

}  // namespace tarnwell::standin
