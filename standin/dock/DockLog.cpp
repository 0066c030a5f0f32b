#include "standin/dock/DockLog.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cstdio>

#include "system/base/Descriptor.h"
#include "system/files/Folders.h"

namespace tarnwell::standin {
namespace {

system::Descriptor openLog(const std::string& path) {
  return system::Descriptor(::open(path.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_NONBLOCK | O_CLOEXEC, 0600));
}

bool hasRoom(const system::Descriptor& log, std::size_t more) {
  struct stat status {};
  return ::fstat(log.number(), &status) != 0 || status.st_size + static_cast<off_t>(more) <= dockLogLimit;
}

}  // namespace

bool appendToDockLog(const std::string& folder, std::string_view line) {
  if (!system::makeFolders(folder)) {
    return false;
  }
  const std::string path = folder + "/Dock.log";
  const std::string bytes = std::string(line) + "\n";
  system::Descriptor log = openLog(path);
  if (log && !hasRoom(log, bytes.size())) {
    if (std::rename(path.c_str(), (path + ".1").c_str()) != 0) {
      return false;
    }
    log = openLog(path);
  }
  return log && log.writeAll(bytes);
}

}  // namespace tarnwell::standin
