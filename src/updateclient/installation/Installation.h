#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

#include "release/protocol/FeedItem.h"
#include "system/base/Result.h"
#include "updateclient/engine/Engine.h"
#include "updateclient/installation/HandOver.h"
#include "updateclient/installation/InstallationWay.h"
#include "updateclient/installation/PackageDesktop.h"
#include "updateclient/installation/PackageFile.h"

namespace tarnwell::updateclient {

/// A verified package on its way to where it is installed: the engine puts it in its place, and where that is not the
/// running program's, the desktop is given it. Neither is started here. Under way as long as it lives and has not
/// ended; destroying it cancels what can still be cancelled, and nothing is called any more.
class Installation {
 public:
  struct Order {
    const InstallationWay& way;
    release::FeedItem item = {};
    std::string key = {};
    /// What can be replaced of the program that runs; empty for nothing.
    std::filesystem::path program = {};
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
  Installation(PackageDesktop& desktop, const PackageFile& package, const InstallationWay& way,
               InstallationWay::Target target, Handed handed);

  system::Result<void> place(Engine& engine, const Order& order);
  void takePlaced(const system::Result<void>& placed);
  void open();
  void refuse(const system::Failure& failure);
  void removeRemains() const;
  void hand(const system::Result<HandOver>& result);

  PackageDesktop& desktop_;
  const PackageFile& package_;
  const InstallationWay& way_;
  InstallationWay::Target target_;
  Handed handed_;
  std::unique_ptr<Engine::Job> placing_;
};

}  // namespace tarnwell::updateclient
