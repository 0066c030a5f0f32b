#include "updateclient/Installation.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <string_view>
#include <utility>

#include "system/AtomicFile.h"
#include "system/Folders.h"

namespace tarnwell::updateclient {
namespace {

namespace fs = std::filesystem;

constexpr const char* packageName = "tarnwell-update.deb";

system::Failure notReplaced(const fs::path& target, const std::string& reason, const std::string& advice) {
  return {"The new version cannot take the place of " + target.string() + ": " + reason + ". " + advice};
}

system::Failure notReplaceable(const fs::path& target, const std::string& reason) {
  return notReplaced(target, reason, "Get the new version from where you got Tarnwell.");
}

system::Failure misplaced(const PackageFile& package) {
  return {"The update could not be stored: another file was put in the place of the package in " +
          package.folder().path().string() + ". See to that, and try again."};
}

}  // namespace

/// How a kind of package is installed.
struct Installation::Way {
  std::string_view kind;
  /// Where it is put, or why it is nothing for this system.
  system::Result<fs::path> (*target)(const PackageFile& package, const Order& order);
  HandOver handOver;
};

const Installation::Way* Installation::wayOf(const std::string& kind) {
  static constexpr std::array ways = {
      Way{"debian", &packageTarget, HandOver::opened},
      Way{"app-image", &appImageTarget, HandOver::replaced},
  };
  const auto* found = std::find_if(ways.begin(), ways.end(), [&kind](const Way& way) { return way.kind == kind; });
  return found == ways.end() ? nullptr : found;
}

system::Result<fs::path> Installation::packageTarget(const PackageFile& package, const Order& /*order*/) {
  return package.folder().path() / packageName;
}

system::Result<fs::path> Installation::appImageTarget(const PackageFile& /*package*/, const Order& order) {
  const fs::path& target = order.appImage;
  if (target.empty()) {
    return system::Failure{
        "The update is an AppImage, but Tarnwell does not run from one. Get the package for your system from where "
        "you got Tarnwell."};
  }
  struct stat status = {};
  if (::lstat(target.c_str(), &status) != 0) {
    return notReplaceable(target, std::generic_category().message(errno));
  }
  return S_ISREG(status.st_mode) ? system::Result<fs::path>(target) : notReplaceable(target, "it is not a file");
}

Installation::Installation(PackageDesktop& desktop, const PackageFile& package, const Way& way, fs::path target,
                           Handed handed)
    : desktop_(desktop), package_(package), way_(way), target_(std::move(target)), handed_(std::move(handed)) {}

Installation::~Installation() {
  desktop_.stopWaiting();
  if (placing_) {
    placing_.reset();
    removeRemains();
  }
}

system::Result<std::unique_ptr<Installation>> Installation::start(Engine& engine, PackageDesktop& desktop,
                                                                  const PackageFile& package, const Order& order,
                                                                  Handed handed) {
  const Way* way = wayOf(order.kind);
  if (way == nullptr) {
    return system::Failure{
        "The update is neither a Debian package nor an AppImage, and cannot be installed on this system."};
  }
  auto target = way->target(package, order);
  if (!target) {
    return target.error();
  }
  std::unique_ptr<Installation> installation(
      new Installation(desktop, package, *way, *std::move(target), std::move(handed)));
  const auto begun = installation->place(engine, order);
  return begun ? system::Result<std::unique_ptr<Installation>>(std::move(installation)) : begun.error();
}

// Downloads have a folder that is held open, whatever its path leads to by now.
system::Result<void> Installation::place(Engine& engine, const Order& order) {
  const fs::path folder = system::folderOf(target_);
  const bool isOwn = folder == package_.folder().path();
  const system::Descriptor opened(isOwn ? -1 : ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (!isOwn && !opened) {
    return notReplaceable(target_, std::generic_category().message(errno));
  }
  auto job =
      engine.start({.words = {"place", order.item.version, std::to_string(order.item.enclosure.length),
                              order.item.enclosure.signature, order.item.releaseSignature, order.key, target_.string()},
                    .input = package_.descriptor(),
                    .folder = isOwn ? package_.folder().descriptor() : opened.number()},
                   {.ended = [this](const system::Result<void>& result) { takePlaced(result); }});
  if (!job) {
    return job.error();
  }
  placing_ = *std::move(job);
  return {};
}

void Installation::takePlaced(const system::Result<void>& placed) {
  placing_.reset();
  if (!placed) {
    refuse(placed.error());
  } else if (way_.handOver == HandOver::opened) {
    open();
  } else {
    hand(way_.handOver);
  }
}

// The installer opens the package by its path.
void Installation::open() {
  const std::string name = target_.filename().string();
  const system::Descriptor file(
      ::openat(package_.folder().descriptor(), name.c_str(), O_RDONLY | O_NOFOLLOW | O_CLOEXEC));
  system::Result<void> begun = misplaced(package_);
  if (file && package_.folder().leadsTo(name, file.number())) {
    begun = desktop_.open(
        target_, [this](const system::Result<void>& opened) { opened ? hand(way_.handOver) : refuse(opened.error()); });
  }
  if (!begun) {
    refuse(begun.error());
  }
}

void Installation::refuse(const system::Failure& failure) {
  removeRemains();
  hand(failure);
}

void Installation::removeRemains() const {
  std::error_code ignored;
  fs::remove(system::AtomicFile::passingPath(target_), ignored);
  if (way_.handOver == HandOver::opened) {
    ::unlinkat(package_.folder().descriptor(), target_.filename().c_str(), 0);
  }
}

// It may end this object.
void Installation::hand(const system::Result<HandOver>& result) {
  const Handed handed = std::move(handed_);
  handed(result);
}

}  // namespace tarnwell::updateclient
