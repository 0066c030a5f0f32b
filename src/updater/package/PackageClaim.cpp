#include "updater/package/PackageClaim.h"

namespace tarnwell::updater {
namespace {

system::Failure untrusted(const std::string& reason) { return {"The update cannot be trusted: " + reason + "."}; }

}  // namespace

system::Result<PackageClaim> PackageClaim::create(const FeedItem& item) {
  const auto signature = Signature::parse(item.enclosure.signature);
  if (!signature) {
    return untrusted(signature.error().message);
  }
  if (item.enclosure.length == 0) {
    return untrusted("the feed does not say how long it is");
  }
  if (item.enclosure.length > maximumLength) {
    return untrusted("it is larger than " + std::to_string(maximumLength / 1024 / 1024) + " MiB");
  }
  return PackageClaim{.address = item.enclosure.url, .length = item.enclosure.length, .signature = *signature};
}

}  // namespace tarnwell::updater
