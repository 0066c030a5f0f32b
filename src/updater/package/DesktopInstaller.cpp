#include "updater/package/DesktopInstaller.h"

#include <string>
#include <utility>

#include "updater/package/FileReplacement.h"
#include "updater/package/PackageKind.h"

namespace tarnwell::updater {
namespace {

constexpr const char* packageName = "tarnwell-update.deb";

/// A package on its way to the program that opens such files. Under a name, so that it can be told where it is.
class Opening final : public Installer::Installation {
 public:
  Opening(Worker& worker, PackageOpener& opener, const PackageFile& package, Installer::Handed handed)
      : opener_(opener), package_(package), handed_(std::move(handed)) {
    naming_ = worker.begin([&package] { return named(package); },
                           [this](const std::optional<system::Failure>& failure) { open(failure); });
  }
  Opening(const Opening&) = delete;
  Opening& operator=(const Opening&) = delete;
  ~Opening() override {
    opener_.stopWaiting();
    if (naming_) {
      naming_.reset();
      package_.removeName(packageName);
    }
  }

 private:
  static std::optional<system::Failure> named(const PackageFile& package) {
    const auto place = package.giveName(packageName);
    if (place) {
      return std::nullopt;
    }
    return system::Failure{"The update could not be stored: " + place.error().message +
                           ". See to that, and try again."};
  }

  void open(const std::optional<system::Failure>& unnamed) {
    naming_.reset();
    if (unnamed) {
      return refuse(*unnamed);
    }
    auto refused = opener_.open(package_.placeOf(packageName), [this](const std::optional<system::Failure>& failure) {
      failure ? refuse(*failure) : hand(HandOver::opened);
    });
    if (refused) {
      refuse(*std::move(refused));
    }
  }

  void refuse(system::Failure failure) {
    package_.removeName(packageName);
    hand(std::move(failure));
  }

  void hand(system::Result<HandOver> result) {
    const Installer::Handed handed = std::move(handed_);
    handed(std::move(result));
  }

  PackageOpener& opener_;
  const PackageFile& package_;
  Installer::Handed handed_;
  std::unique_ptr<Worker::Job> naming_;
};

class Replacing final : public Installer::Installation {
 public:
  Replacing(Worker& worker, FileReplacement replacement, const PackageFile& package, Installer::Handed handed)
      : replacement_(std::move(replacement)), handed_(std::move(handed)) {
    copying_ = worker.begin([this, &package] { return replacement_.run(package.descriptor()); },
                            [this](std::optional<system::Failure> failure) { hand(std::move(failure)); });
  }

 private:
  void hand(std::optional<system::Failure> failure) {
    const Installer::Handed handed = std::move(handed_);
    if (failure) {
      handed(*std::move(failure));
    } else {
      handed(HandOver::replaced);
    }
  }

  FileReplacement replacement_;
  Installer::Handed handed_;
  // The last to come and the first to go: nothing writes any more when the rest is removed.
  std::unique_ptr<Worker::Job> copying_;
};

}  // namespace

DesktopInstaller::DesktopInstaller(Settings settings, Worker& worker)
    : settings_(std::move(settings)), worker_(worker), opener_(settings_.patience) {}

system::Result<std::unique_ptr<Installer::Installation>> DesktopInstaller::install(const FeedItem& /*item*/,
                                                                                   const PackageFile& package,
                                                                                   Handed handed) {
  switch (packageKind(package.descriptor())) {
    case PackageKind::debian:
      return std::make_unique<Opening>(worker_, opener_, package, std::move(handed));
    case PackageKind::appImage:
      return replace(package, std::move(handed));
    case PackageKind::other:
      break;
  }
  return system::Failure{
      "The update is neither a Debian package nor an AppImage, and cannot be installed on this system."};
}

system::Result<std::unique_ptr<Installer::Installation>> DesktopInstaller::replace(const PackageFile& package,
                                                                                   Handed handed) {
  if (!settings_.appImage) {
    return system::Failure{
        "The update is an AppImage, but Tarnwell does not run from one. Get the package for your system from where "
        "you got Tarnwell."};
  }
  auto replacement = FileReplacement::create(*settings_.appImage);
  if (!replacement) {
    return replacement.error();
  }
  return std::make_unique<Replacing>(worker_, *std::move(replacement), package, std::move(handed));
}

}  // namespace tarnwell::updater
