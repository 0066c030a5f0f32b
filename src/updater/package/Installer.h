#pragma once

#include <functional>
#include <memory>

#include "system/Result.h"
#include "updater/feed/FeedItem.h"
#include "updater/package/HandOver.h"
#include "updater/package/PackageFile.h"

namespace tarnwell::updater {

/// Hands a verified package to this system's installer; never runs it. Failures are sentences for
/// people.
class Installer {
 public:
  /// Under way as long as it lives and has not ended. Destroying it cancels what can still be cancelled; nothing is
  /// called any more. It may be destroyed by what it calls.
  class Installation {
   public:
    virtual ~Installation() = default;
  };

  using Handed = std::function<void(system::Result<HandOver>)>;

  virtual ~Installer() = default;

  /// Returns why the package is nothing for this system, which trying again does not change. Otherwise `handed` is
  /// called once, later, from the event loop. The package must stay until then.
  virtual system::Result<std::unique_ptr<Installation>> install(const FeedItem& item, const PackageFile& package,
                                                                Handed handed) = 0;
};

}  // namespace tarnwell::updater
