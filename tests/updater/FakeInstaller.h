#pragma once

#include <unistd.h>

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "updater/package/Installer.h"

namespace tarnwell::updater {

/// Takes what it is given; done when the test says so.
class FakeInstaller final : public Installer {
 public:
  system::Result<std::unique_ptr<Installation>> install(const FeedItem& item, const PackageFile& package,
                                                        Handed handed) override {
    version = item.version;
    content = contentOf(package.descriptor());
    ++calls;
    if (obstacle) {
      return *obstacle;
    }
    handed_ = std::make_shared<Handed>(std::move(handed));
    return std::make_unique<FakeInstallation>(handed_);
  }

  bool isBusy() const { return handed_ != nullptr && *handed_ != nullptr; }
  void finish(system::Result<HandOver> result = HandOver::opened) {
    if (isBusy()) {
      const Handed handed = std::exchange(*handed_, nullptr);
      handed(std::move(result));
    }
  }

  std::string version = {};
  std::string content = {};
  int calls = 0;
  /// Why it installs nothing.
  std::optional<system::Failure> obstacle = {};

 private:
  class FakeInstallation final : public Installation {
   public:
    explicit FakeInstallation(std::shared_ptr<Handed> handed) : handed_(std::move(handed)) {}
    ~FakeInstallation() override { *handed_ = nullptr; }

   private:
    std::shared_ptr<Handed> handed_;
  };

  static std::string contentOf(int descriptor) {
    std::array<char, 65536> buffer = {};
    const ssize_t count = ::pread(descriptor, buffer.data(), buffer.size(), 0);
    return {buffer.data(), static_cast<std::size_t>(count < 0 ? 0 : count)};
  }

  std::shared_ptr<Handed> handed_;
};

}  // namespace tarnwell::updater
