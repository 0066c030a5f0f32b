#pragma once

#include <optional>
#include <string>
#include <utility>

#include "fixtures/Sandbox.h"
#include "system/files/ReadFile.h"
#include "updateclient/engine/FakeEngine.h"
#include "updateclient/installation/PackageDesktop.h"

namespace tarnwell::updateclient {

/// Takes the packages that it is given; done when the test says so.
class FakeDesktop final : public PackageDesktop {
 public:
  explicit FakeDesktop(FakeEngine& engine) : engine_(engine) {}

  system::Result<void> open(const std::filesystem::path& file, Opened opened) override {
    content = *system::readFile(file, 1'000'000);
    ++calls;
    opened_ = std::move(opened);
    return {};
  }
  void stopWaiting() override { opened_ = nullptr; }

  bool isBusy() const { return opened_ != nullptr || engine_.isBusy(); }
  /// Once the package has its place.
  void finish(const system::Result<void>& result = {}) {
    engine_.work();
    if (opened_) {
      const Opened opened = std::exchange(opened_, nullptr);
      opened(result);
    }
  }

  std::string content = {};
  int calls = 0;

 private:
  FakeEngine& engine_;
  Opened opened_;
};

}  // namespace tarnwell::updateclient
