#include "host/linux/updates/PackageDownload.h"

#include <string>
#include <utility>

namespace tarnwell::host_linux::updates {
namespace {

Failure untrustedPackage(const std::string& reason) {
  return {"The downloaded update was thrown away, because it cannot be trusted: " + reason + "."};
}

Failure unstored(const Failure& failure) { return {"The update could not be stored: " + failure.message + "."}; }

}  // namespace

PackageDownload::PackageDownload(Order order, PackageFile file, Progress progress, Finished finished)
    : order_(std::move(order)),
      file_(std::move(file)),
      progress_(std::move(progress)),
      finished_(std::move(finished)) {}

Result<std::unique_ptr<PackageDownload>> PackageDownload::start(Transport& transport, Order order, Progress progress,
                                                                Finished finished) {
  auto file = PackageFile::create(order.folder);
  if (const auto* failure = std::get_if<Failure>(&file)) {
    return unstored(*failure);
  }
  std::unique_ptr<PackageDownload> download(new PackageDownload(
      std::move(order), std::get<PackageFile>(std::move(file)), std::move(progress), std::move(finished)));
  PackageDownload& self = *download;
  self.transfer_ = transport.get(
      {.address = self.order_.claim.address, .maximumLength = self.order_.claim.length},
      [&self](std::string_view bytes) { return self.take(bytes); },
      [&self](const std::optional<Failure>& failure) { self.finish(failure); });
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
  const Progress progress = progress_;
  progress(file_.length());
  return true;
}

void PackageDownload::finish(const std::optional<Failure>& transportFailure) {
  const Finished finished = std::move(finished_);
  if (const auto failure = flaw(transportFailure)) {
    finished(*failure);
  } else {
    finished(std::move(file_));
  }
}

std::optional<Failure> PackageDownload::flaw(const std::optional<Failure>& transportFailure) const {
  if (refusal_ || transportFailure) {
    return refusal_ ? refusal_ : transportFailure;
  }
  if (file_.length() != order_.claim.length) {
    return untrustedPackage("it is shorter than the feed says");
  }
  const auto mismatch = order_.claim.signature.verify(order_.key, file_.descriptor(), order_.claim.length);
  return mismatch ? std::optional(untrustedPackage(mismatch->message)) : std::nullopt;
}

}  // namespace tarnwell::host_linux::updates
