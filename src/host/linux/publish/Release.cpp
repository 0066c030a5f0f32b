#include "host/linux/publish/Release.h"

#include <fcntl.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <iterator>
#include <system_error>
#include <variant>

#include "core/Descriptor.h"
#include "host/linux/ReplaceFile.h"
#include "host/linux/publish/FeedText.h"
#include "host/linux/publish/NewItem.h"
#include "host/linux/publish/SecretKey.h"
#include "host/linux/updates/FeedItem.h"
#include "host/linux/updates/PackageClaim.h"
#include "host/linux/updates/PublicKey.h"
#include "host/linux/updates/Version.h"
#include "host/linux/updates/WebAddress.h"

namespace tarnwell::host_linux::publish {
namespace {

namespace fs = std::filesystem;

Failure cannotRead(const fs::path& path) {
  return {"cannot read " + path.string() + ": " + std::system_category().message(errno)};
}

Result<std::string> textIn(const fs::path& path) {
  std::error_code error;
  if (fs::is_directory(path, error)) {
    return Failure{"cannot read " + path.string() + ": it is a folder"};
  }
  std::ifstream file(path, std::ios::binary);
  std::string text(std::istreambuf_iterator<char>(file), {});
  return file.is_open() && !file.bad() ? Result<std::string>(text) : cannotRead(path);
}

Result<std::string> feedIn(const fs::path& path) {
  std::error_code error;
  return fs::exists(path, error) || error ? textIn(path) : emptyFeed();
}

/// Now, unless the environment asks for a build that can be made again.
std::string publicationDate() {
  const char* epoch = ::getenv("SOURCE_DATE_EPOCH");
  const std::time_t time = epoch != nullptr ? std::strtoll(epoch, nullptr, 10) : std::time(nullptr);
  std::tm parts = {};
  ::gmtime_r(&time, &parts);
  std::array<char, 64> text = {};
  return {text.data(), std::strftime(text.data(), text.size(), "%a, %d %b %Y %H:%M:%S +0000", &parts)};
}

std::optional<Failure> objectionTo(const Release& release) {
  if (updates::compareVersions(release.version, "0") != std::weak_ordering::greater) {
    return Failure{"version \"" + release.version + "\" would never be offered: it is not greater than 0"};
  }
  if (!updates::isWebAddress(release.url) || !release.url.starts_with("https://")) {
    return Failure{"\"" + release.url + "\" is not an address that starts with https://"};
  }
  return std::nullopt;
}

/// The package, signed and seen through the updater's eyes.
std::optional<Failure> sign(const Release& release, NewItem& item) {
  const auto key = SecretKey::read(release.privateKey);
  if (const auto* failure = std::get_if<Failure>(&key)) {
    return *failure;
  }
  const core::Descriptor package(::open(release.package.c_str(), O_RDONLY | O_CLOEXEC));
  if (package.isEmpty()) {
    return cannotRead(release.package);
  }
  const auto signature = std::get<SecretKey>(key).sign(package.number());
  if (const auto* failure = std::get_if<Failure>(&signature)) {
    return Failure{release.package.string() + ": " + failure->message};
  }
  item.signature = std::get<std::string>(signature);
  std::error_code error;
  item.length = fs::file_size(release.package, error);
  if (error) {
    return Failure{"cannot read " + release.package.string() + ": " + error.message()};
  }
  updates::FeedItem seen;
  seen.enclosure.signature = item.signature;
  seen.enclosure.length = item.length;
  const auto claim = updates::PackageClaim::create(seen);
  if (const auto* failure = std::get_if<Failure>(&claim)) {
    return *failure;
  }
  const auto publicKey = updates::PublicKey::parse(std::get<SecretKey>(key).publicText());
  return std::get<updates::PackageClaim>(claim).signature.verify(std::get<updates::PublicKey>(publicKey),
                                                                 package.number(), item.length);
}

Result<NewItem> itemOf(const Release& release) {
  NewItem item = {.title = release.title,
                  .version = release.version,
                  .shownVersion = release.shownVersion,
                  .publicationDate = publicationDate(),
                  .channel = release.channel,
                  .minimumSystemVersion = release.minimumSystemVersion,
                  .isCritical = release.isCritical,
                  .url = release.url};
  if (item.title.empty()) {
    item.title = "Tarnwell " + (item.shownVersion.empty() ? item.version : item.shownVersion);
  }
  if (!release.notes.empty()) {
    auto notes = textIn(release.notes);
    if (const auto* failure = std::get_if<Failure>(&notes)) {
      return *failure;
    }
    item.notes = std::get<std::string>(std::move(notes));
  }
  if (const auto failure = sign(release, item)) {
    return *failure;
  }
  return item;
}

}  // namespace

std::optional<Failure> publishRelease(const Release& release, const fs::path& feed) {
  if (auto objection = objectionTo(release)) {
    return objection;
  }
  const auto item = itemOf(release);
  if (const auto* failure = std::get_if<Failure>(&item)) {
    return *failure;
  }
  const auto before = feedIn(feed);
  if (const auto* failure = std::get_if<Failure>(&before)) {
    return *failure;
  }
  const auto after = withItem(std::get<std::string>(before), std::get<NewItem>(item));
  if (const auto* failure = std::get_if<Failure>(&after)) {
    return Failure{feed.string() + ": " + failure->message};
  }
  return replaceFile(feed, std::get<std::string>(after));
}

}  // namespace tarnwell::host_linux::publish
