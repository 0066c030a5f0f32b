#pragma once

#include <chrono>
#include <filesystem>
#include <memory>
#include <optional>

#include "updater/package/Installer.h"
#include "updater/package/PackageOpener.h"
#include "updater/package/Worker.h"

namespace tarnwell::updater {

/// Gives a Debian package to the program that opens such files on this desktop, and puts a new AppImage in the place of
/// the one that runs. Neither is started here.
class DesktopInstaller final : public Installer {
 public:
  struct Settings {
    /// The one that this program runs from.
    std::optional<std::filesystem::path> appImage = {};
    /// How long the desktop has to say that it cannot open a package. Some stay with it until the user is done.
    std::chrono::milliseconds patience = std::chrono::seconds(3);
  };

  /// The worker is borrowed.
  DesktopInstaller(Settings settings, Worker& worker);

  /// One at a time, which ends before the installer does.
  system::Result<std::unique_ptr<Installation>> install(const FeedItem& item, const PackageFile& package,
                                                        Handed handed) override;

  /// Readable when `dispatch` has something to do. The same for the installer's whole life.
  int descriptor() const { return opener_.descriptor(); }
  /// Goes on with what was begun. It may end the installer.
  void dispatch() { opener_.dispatch(); }

 private:
  system::Result<std::unique_ptr<Installation>> replace(const PackageFile& package, Handed handed);

  Settings settings_;
  Worker& worker_;
  PackageOpener opener_;
};

}  // namespace tarnwell::updater
