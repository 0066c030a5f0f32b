#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>

#include "host/linux/Result.h"
#include "host/linux/updates/PackageClaim.h"
#include "host/linux/updates/PackageFile.h"
#include "host/linux/updates/PublicKey.h"
#include "host/linux/updates/Transport.h"

namespace tarnwell::host_linux::updates {

/// Gets a package and hands it on only when it is what was claimed. Under way as long as it lives and has not
/// finished; what was downloaded vanishes with it.
class PackageDownload {
 public:
  struct Order {
    PackageClaim claim;
    PublicKey key;
    std::filesystem::path folder = {};
  };
  using Progress = std::function<void(std::uint64_t received)>;
  /// A failure is a sentence for people.
  using Finished = std::function<void(Result<PackageFile>)>;

  /// Returns why it could not even begin. Otherwise `finished` is called once, from the event loop, and may end the
  /// download; so may `progress`.
  static Result<std::unique_ptr<PackageDownload>> start(Transport& transport, Order order, Progress progress,
                                                        Finished finished);
  PackageDownload(const PackageDownload&) = delete;
  PackageDownload& operator=(const PackageDownload&) = delete;

 private:
  PackageDownload(Order order, PackageFile file, Progress progress, Finished finished);

  bool take(std::string_view bytes);
  void finish(const std::optional<Failure>& transportFailure);
  std::optional<Failure> flaw(const std::optional<Failure>& transportFailure) const;

  Order order_;
  PackageFile file_;
  Progress progress_;
  Finished finished_;
  std::optional<Failure> refusal_;
  std::unique_ptr<Transport::Transfer> transfer_;
};

}  // namespace tarnwell::host_linux::updates
