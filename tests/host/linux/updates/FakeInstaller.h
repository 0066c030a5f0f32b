#pragma once

#include <unistd.h>

#include <array>
#include <string>
#include <utility>

#include "host/linux/updates/Installer.h"

namespace tarnwell::host_linux::updates {

/// Takes what it is given; done when the test says so.
class FakeInstaller final : public Installer {
 public:
  void install(const FeedItem& item, PackageFile& package, Handed handed) override {
    version = item.version;
    content = contentOf(package.descriptor());
    ++calls;
    handed_ = std::move(handed);
  }

  void finish(std::optional<Failure> failure = std::nullopt) {
    const Handed handed = std::exchange(handed_, nullptr);
    handed(std::move(failure));
  }

  std::string version = {};
  std::string content = {};
  int calls = 0;

 private:
  static std::string contentOf(int descriptor) {
    std::array<char, 65536> buffer = {};
    const ssize_t count = ::pread(descriptor, buffer.data(), buffer.size(), 0);
    return {buffer.data(), static_cast<std::size_t>(count < 0 ? 0 : count)};
  }

  Handed handed_;
};

}  // namespace tarnwell::host_linux::updates
