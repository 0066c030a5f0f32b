#pragma once

#include <functional>
#include <optional>

#include "host/linux/Result.h"
#include "host/linux/updates/FeedItem.h"
#include "host/linux/updates/PackageFile.h"

namespace tarnwell::host_linux::updates {

/// Hands a verified package to whoever installs packages on this system; never runs it.
class Installer {
 public:
  using Handed = std::function<void(std::optional<Failure>)>;

  virtual ~Installer() = default;

  /// `handed` is called once, later, from the event loop.
  virtual void install(const FeedItem& item, PackageFile& package, Handed handed) = 0;
};

}  // namespace tarnwell::host_linux::updates
