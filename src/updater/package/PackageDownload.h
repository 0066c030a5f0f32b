#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "kit/turn/Action.h"
#include "system/Result.h"
#include "updater/package/PackageClaim.h"
#include "updater/package/PackageFile.h"
#include "updater/package/Worker.h"
#include "updater/signature/PublicKey.h"
#include "updater/transfer/Transport.h"

namespace tarnwell::updater {

/// Gets a package and hands it on only when it is what was claimed: its length and signature, and of a Debian package
/// the version that it gives itself. Under way as long as it lives and has not finished; what was downloaded vanishes
/// with it.
class PackageDownload {
 public:
  struct Order {
    PackageClaim claim;
    PublicKey key;
    std::string version = {};
    std::filesystem::path folder = {};
  };
  /// All of it is called from the event loop and may end the download.
  struct Listener {
    std::function<void(std::uint64_t received)> progress = {};  // Bytes so far.
    /// All of it has come, and is looked at.
    kit::Action verifying = {};
    /// Called once. A failure is a sentence for people.
    std::function<void(system::Result<PackageFile>)> finished = {};
  };

  /// Returns why it could not even begin. Transport and worker are borrowed.
  static system::Result<std::unique_ptr<PackageDownload>> start(Transport& transport, Worker& worker, Order order,
                                                                Listener listener);
  PackageDownload(const PackageDownload&) = delete;
  PackageDownload& operator=(const PackageDownload&) = delete;

 private:
  PackageDownload(Worker& worker, Order order, PackageFile file, Listener listener);

  bool take(std::string_view bytes);
  void arrive(const std::optional<system::Failure>& transportFailure);
  std::optional<system::Failure> flaw() const;
  std::optional<system::Failure> foreignVersion() const;
  void finish(const std::optional<system::Failure>& failure);

  Worker& worker_;
  Order order_;
  PackageFile file_;
  Listener listener_;
  std::optional<system::Failure> refusal_;
  std::unique_ptr<Transport::Transfer> transfer_;
  std::unique_ptr<Worker::Job> verification_;
};

}  // namespace tarnwell::updater
