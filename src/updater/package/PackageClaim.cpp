#include "updater/package/PackageClaim.h"

#include <sodium.h>

#include <array>

#include "system/files/MappedFile.h"
#include "updater/package/PackageKind.h"

namespace tarnwell::updater {
namespace {

system::Failure untrusted(const std::string& reason) { return {"The update cannot be trusted: " + reason + "."}; }

system::Result<void> confirmOwnVersion(const PackageKind& kind, int descriptor, const std::string& offered) {
  const auto own = kind.ownVersion(descriptor);
  if (!own) {
    return own.error();
  }
  if (kind.isVersionOf(*own, offered)) {
    return {};
  }
  return thrownAway("it is version " + *own + ", although it was offered as " + offered);
}

}  // namespace

system::Failure thrownAway(const std::string& reason) {
  return {"The downloaded update was thrown away, because it cannot be trusted: " + reason + "."};
}

system::Result<PackageClaim> PackageClaim::create(const release::FeedItem& item) {
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
  PackageClaim claim = {.version = item.version, .length = item.enclosure.length, .signature = *signature};
  if (const auto release = Signature::parse(item.releaseSignature)) {
    claim.releaseSignature = *release;
  }
  return claim;
}

system::Result<const PackageKind*> PackageClaim::hold(const PublicKey& key, int descriptor) const {
  auto signedKind = holdSignatures(key, descriptor);
  if (!signedKind || (*signedKind)->ownVersion == nullptr) {
    return signedKind;
  }
  const auto confirmed = confirmOwnVersion(**signedKind, descriptor, version);
  return confirmed ? signedKind : confirmed.error();
}

system::Result<const PackageKind*> PackageClaim::holdSignatures(const PublicKey& key, int descriptor) const {
  if (const auto held = signature.verify(key, descriptor, length); !held) {
    return thrownAway(held.error().message);
  }
  const PackageKind* kind = packageKind(descriptor);
  if (kind == nullptr) {
    return unknownKind();
  }
  if (kind->ownVersion != nullptr) {
    return kind;
  }
  const auto text = releaseText(version, descriptor);
  if (text && releaseSignature && releaseSignature->holdsFor(key, *text)) {
    return kind;
  }
  return thrownAway("nothing vouches for its being version " + version);
}

system::Result<std::string> releaseText(const std::string& version, int descriptor) {
  const auto file = system::MappedFile::create(descriptor);
  if (!file) {
    return file.error();
  }
  std::array<unsigned char, crypto_hash_sha256_BYTES> digest = {};
  crypto_hash_sha256(digest.data(), file->bytes(), file->length());
  std::array<char, 2 * digest.size() + 1> hexadecimal = {};
  sodium_bin2hex(hexadecimal.data(), hexadecimal.size(), digest.data(), digest.size());
  return "tarnwell-release\n" + version + "\n" + std::to_string(file->length()) + "\n" + hexadecimal.data() + "\n";
}

}  // namespace tarnwell::updater
