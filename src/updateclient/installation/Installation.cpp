#include "updateclient/installation/Installation.h"

#include <fcntl.h>
#include <unistd.h>

#include <utility>

#include "system/files/AtomicFile.h"

namespace tarnwell::updateclient {
namespace {

system::Failure misplaced(const PackageFile& package) {
  return {"The update could not be stored: another file was put in the place of the package in " +
          package.folder().path().string() + ". See to that, and try again."};
}

}  // namespace

Installation::Installation(PackageDesktop& desktop, const PackageFile& package, const InstallationWay& way,
                           InstallationWay::Target target, Handed handed)
    : desktop_(desktop), package_(package), way_(way), target_(std::move(target)), handed_(std::move(handed)) {}

Installation::~Installation() {
  desktop_.stopWaiting();
  if (placing_) {
    placing_.reset();
    // The engine's end is not waited for: what gets its name in this very moment goes with old packages.
    removeRemains();
  }
}

system::Result<std::unique_ptr<Installation>> Installation::start(Engine& engine, PackageDesktop& desktop,
                                                                  const PackageFile& package, const Order& order,
                                                                  Handed handed) {
  auto target = order.way.target(package, order.program);
  if (!target) {
    return target.error();
  }
  std::unique_ptr<Installation> installation(
      new Installation(desktop, package, order.way, *std::move(target), std::move(handed)));
  const auto begun = installation->place(engine, order);
  return begun ? system::Result<std::unique_ptr<Installation>>(std::move(installation)) : begun.error();
}

system::Result<void> Installation::place(Engine& engine, const Order& order) {
  auto job = engine.start({.words = {"place", order.item.version, std::to_string(order.item.enclosure.length),
                                     order.item.enclosure.signature, order.item.releaseSignature, order.key,
                                     std::string(order.way.kind), target_.path.string()},
                           .input = package_.descriptor(),
                           .folder = target_.folder.number()},
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
  const std::string name = target_.path.filename().string();
  const system::Descriptor file(
      ::openat(package_.folder().descriptor(), name.c_str(), O_RDONLY | O_NOFOLLOW | O_CLOEXEC));
  system::Result<void> begun = misplaced(package_);
  if (file && package_.folder().leadsTo(name, file.number())) {
    begun = desktop_.open(target_.path, [this](const system::Result<void>& opened) {
      opened ? hand(way_.handOver) : refuse(opened.error());
    });
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
  const int folder = target_.folder.number();
  ::unlinkat(folder, system::AtomicFile::passingPath(target_.path).filename().c_str(), 0);
  if (way_.handOver == HandOver::opened) {
    ::unlinkat(folder, target_.path.filename().c_str(), 0);
  }
}

// It may end this object.
void Installation::hand(const system::Result<HandOver>& result) {
  const Handed handed = std::move(handed_);
  handed(result);
}

}  // namespace tarnwell::updateclient
