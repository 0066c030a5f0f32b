#include "updater/package/PackageDownload.h"

#include <chrono>
#include <utility>

#include "updater/package/DebianPackage.h"
#include "updater/package/PackageKind.h"

namespace tarnwell::updater {
namespace {

/// The user may be far from any fast network and still want it; that nothing comes ends it much sooner.
constexpr std::chrono::hours packageLimit(24);

system::Failure untrustedPackage(const std::string& reason) {
  return {"The downloaded update was thrown away, because it cannot be trusted: " + reason + "."};
}

system::Failure unstored(const system::Failure& failure) {
  return {"The update could not be stored: " + failure.message + ". See to that, and try again."};
}

}  // namespace

PackageDownload::PackageDownload(Worker& worker, Order order, PackageFile file, Listener listener)
    : worker_(worker), order_(std::move(order)), file_(std::move(file)), listener_(std::move(listener)) {}

system::Result<std::unique_ptr<PackageDownload>> PackageDownload::start(Transport& transport, Worker& worker,
                                                                        Order order, Listener listener) {
  auto file = PackageFile::create(order.folder);
  if (!file) {
    return unstored(file.error());
  }
  std::unique_ptr<PackageDownload> download(
      new PackageDownload(worker, std::move(order), *std::move(file), std::move(listener)));
  PackageDownload& self = *download;
  self.transfer_ = transport.get(
      {.address = self.order_.claim.address, .maximumLength = self.order_.claim.length, .limit = packageLimit},
      [&self](std::string_view bytes) { return self.take(bytes); },
      [&self](const std::optional<system::Failure>& failure) { self.arrive(failure); });
  return download;
}

bool PackageDownload::take(std::string_view bytes) {
  if (bytes.size() > order_.claim.length - file_.length()) {
    refusal_ = untrustedPackage("it is longer than the feed says");
    return false;
  }
  if (const auto failure = file_.append(bytes)) {
    refusal_ = unstored(*failure);
    return false;
  }
  // The one who is told may end us.
  const auto progress = listener_.progress;
  progress(file_.length());
  return true;
}

void PackageDownload::arrive(const std::optional<system::Failure>& transportFailure) {
  if (refusal_ || transportFailure) {
    return finish(refusal_ ? refusal_ : transportFailure);
  }
  if (file_.length() != order_.claim.length) {
    return finish(untrustedPackage("it is shorter than the feed says"));
  }
  verification_ = worker_.begin([this] { return flaw(); },
                                [this](const std::optional<system::Failure>& failure) { finish(failure); });
  const kit::Action verifying = listener_.verifying;
  verifying();
}

std::optional<system::Failure> PackageDownload::flaw() const {
  if (const auto mismatch = order_.claim.signature.verify(order_.key, file_.descriptor(), order_.claim.length)) {
    return untrustedPackage(mismatch->message);
  }
  return packageKind(file_.descriptor()) == PackageKind::debian ? foreignVersion() : std::nullopt;
}

// A signature says who made a package, but not that it is the one that the feed is about: an attacker could offer an
// old one under a new number. An AppImage does not say its version without being run.
std::optional<system::Failure> PackageDownload::foreignVersion() const {
  const auto version = debianVersion(file_.descriptor());
  if (!version) {
    return version.error();
  }
  const auto& own = *version;
  if (isDebianVersionOf(own, order_.version)) {
    return std::nullopt;
  }
  return untrustedPackage("it is version " + own + ", although it was offered as " + order_.version);
}

void PackageDownload::finish(const std::optional<system::Failure>& failure) {
  const auto finished = std::move(listener_.finished);
  if (failure) {
    finished(*failure);
  } else {
    finished(std::move(file_));
  }
}

}  // namespace tarnwell::updater
