#pragma once

#include <sys/types.h>

#include <chrono>
#include <filesystem>
#include <map>
#include <optional>

#include "core/Descriptor.h"
#include "host/linux/updates/FileReplacement.h"
#include "host/linux/updates/Installer.h"

namespace tarnwell::host_linux::updates {

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

  explicit DesktopInstaller(Settings settings);
  ~DesktopInstaller() override = default;

  /// One at a time.
  void install(const FeedItem& item, PackageFile& package, Handed handed) override;

  /// Readable when `dispatch` has something to do. The same for the installer's whole life.
  int descriptor() const { return events_.number(); }
  /// Goes on with what was begun. It may end the installer.
  void dispatch();

 private:
  void open(PackageFile& package);
  void replace(const PackageFile& package);
  void wakeAfter(std::chrono::nanoseconds time) const;
  void timeHasCome();
  void childHasEnded(int number);
  void watch(int number) const;
  /// From the event loop, whoever calls this.
  void end(std::optional<Failure> failure);

  Settings settings_;
  core::Descriptor events_;
  core::Descriptor timer_;
  std::map<int, core::Descriptor> children_;
  int opener_ = -1;  // The child that is waited for.
  std::filesystem::path named_;
  std::optional<FileReplacement> replacement_;
  std::optional<std::optional<Failure>> outcome_;
  Handed handed_;
};

}  // namespace tarnwell::host_linux::updates
