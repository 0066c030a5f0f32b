#include "standin/dock/ui/DeskFile.h"

#include <cstdio>
#include <fstream>
#include <iterator>
#include <utility>

#include "system/Folders.h"

namespace tarnwell::standin {

DeskFile::DeskFile(std::string path) : path_(std::move(path)) {}

void DeskFile::restore(Desk& desk) const {
  std::ifstream file(path_);
  desk.restoreFrom(std::string(std::istreambuf_iterator<char>(file), {}));
}

// The dock may be killed at any time, so that a file is either whole or not there.
void DeskFile::save(const Desk& desk) const {
  if (!system::makeFolders(system::folderOf(path_))) {
    return;
  }
  const std::string fresh = path_ + ".new";
  std::ofstream file(fresh);
  file << desk.text();
  file.close();
  if (file) {
    (void)std::rename(fresh.c_str(), path_.c_str());
  }
}

}  // namespace tarnwell::standin
