#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

#include "release/protocol/FeedItem.h"
#include "system/Result.h"
#include "updateclient/Engine.h"
#include "updateclient/HandOver.h"
#include "updateclient/PackageDesktop.h"
#include "updateclient/PackageFile.h"

namespace tarnwell::updateclient {

/// A verified package on its way to where it is installed: the engine puts it in its place, and where that is not the
/// running program's, the desktop is given it. Neither is started here. Under way as long as it lives and has not
/// ended; destroying it cancels what can still be cancelled, and nothing is called any more.
class Installation {
 public:
  struct Order {
    /// What the engine found the package to be.
    std::string kind = {};
    release::FeedItem item = {};
    std::string key = {};
    /// The program's own file, which an AppImage takes the place of; empty where it does not run from one.
    std::filesystem::path appImage = {};
  };
  using Handed = std::function<void(const system::Result<HandOver>&)>;

  /// Returns why the package is nothing for this system, which trying again does not change. Otherwise `handed` is
  /// called once, later, from the event loop, and may end the installation. Everything is borrowed.
  static system::Result<std::unique_ptr<Installation>> start(Engine& engine, PackageDesktop& desktop,
                                                             const PackageFile& package, const Order& order,
                                                             Handed handed);
  Installation(const Installation&) = delete;
  Installation& operator=(const Installation&) = delete;
  ~Installation();

 private:
  struct Way;

  Installation(PackageDesktop& desktop, const PackageFile& package, const Way& way, std::filesystem::path target,
               Handed handed);

  static const Way* wayOf(const std::string& kind);
  static system::Result<std::filesystem::path> packageTarget(const PackageFile& package, const Order& order);
  static system::Result<std::filesystem::path> appImageTarget(const PackageFile& package, const Order& order);

  system::Result<void> place(Engine& engine, const Order& order);
  void takePlaced(const system::Result<void>& placed);
  void open();
  void refuse(const system::Failure& failure);
  void removeRemains() const;
  void hand(const system::Result<HandOver>& result);

  PackageDesktop& desktop_;
  const PackageFile& package_;
  const Way& way_;
  std::filesystem::path target_;
  Handed handed_;
  std::unique_ptr<Engine::Job> placing_;
};

}  // namespace tarnwell::updateclient
