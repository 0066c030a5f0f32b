#include "publish/Publishing.h"

#include <fcntl.h>

#include <array>
#include <cstdlib>
#include <ctime>
#include <system_error>

#include "publish/FeedText.h"
#include "publish/Package.h"
#include "publish/SecretKey.h"
#include "system/base/Descriptor.h"
#include "system/files/AtomicFile.h"
#include "system/files/FileLock.h"
#include "system/files/Folders.h"
#include "updater/package/PackageClaim.h"

namespace tarnwell::publish {
namespace {

namespace fs = std::filesystem;

system::Result<std::string> textIn(const fs::path& path) {
  std::error_code error;
  if (fs::is_directory(path, error)) {
    return system::Failure{"cannot read " + path.string() + ": it is a folder"};
  }
  const system::Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
  const auto text = file ? file.readAll() : std::nullopt;
  return text ? system::Result<std::string>(*text) : system::systemFailure("cannot read " + path.string());
}

system::Result<std::string> feedIn(const fs::path& path) {
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

/// The title that people read, unless the release has one of its own.
std::string titleOf(const Release& release) {
  const std::string& version = release.shownVersion.empty() ? release.version : release.shownVersion;
  return release.title.empty() ? TARNWELL_NAME " " + version : release.title;
}

system::Result<std::string> notesOf(const Release& release) {
  return release.notes.empty() ? system::Result<std::string>(std::string()) : textIn(release.notes);
}

std::string mediaType(const std::string& url) {
  return url.ends_with(".deb") ? "application/vnd.debian.binary-package" : "application/octet-stream";
}

system::Result<release::FeedItem> itemOf(const Release& release, const Package& package, const SecretKey& key) {
  auto notes = notesOf(release);
  if (!notes) {
    return notes.error();
  }
  auto signature = key.sign(package.descriptor());
  const auto text = updater::releaseText(release.version, package.descriptor());
  if (!signature || !text) {
    return system::Failure{release.package.string() + ": " + (signature ? text.error() : signature.error()).message};
  }
  return release::FeedItem{.title = titleOf(release),
                           .version = release.version,
                           .shownVersion = release.shownVersion,
                           .publicationDate = publicationDate(),
                           .notes = *std::move(notes),
                           .minimumSystemVersion = release.minimumSystemVersion,
                           .channel = release.channel,
                           .isCritical = release.isCritical,
                           .enclosure = {.url = release.url,
                                         .length = package.length(),
                                         .type = mediaType(release.url),
                                         .signature = *std::move(signature),
                                         .system = "linux"},
                           .releaseSignature = key.sign(*text)};
}

/// The feed with the item, when the updater would take it from there.
system::Result<std::string> feedWith(const release::FeedItem& item, const fs::path& feed, const Package& package,
                                     const SecretKey& key) {
  const auto before = feedIn(feed);
  if (!before) {
    return before.error();
  }
  auto after = withItem(*before, item);
  if (!after) {
    return system::Failure{feed.string() + ": " + after.error().message};
  }
  auto& [text, itemAsRead] = *after;
  if (const auto checked = checkItem(itemAsRead, package, key); !checked) {
    return checked.error();
  }
  return std::move(text);
}

/// The folder is made where it is missing.
system::Result<system::FileLock> lockOn(const fs::path& folder) {
  return system::makeFolders(folder) ? system::FileLock::takeFolder(folder, system::FileLock::unlimited)
                                     : system::systemFailure("cannot lock " + folder.string());
}

/// What a symbolic link leads to is replaced, and not the link.
fs::path realPathOf(const fs::path& feed) {
  std::error_code error;
  fs::path real = fs::canonical(feed, error);
  return error ? feed : real;
}

}  // namespace

system::Result<void> publishRelease(const Release& release, const fs::path& feed) {
  if (auto checked = checkRelease(release); !checked) {
    return checked;
  }
  const auto key = SecretKey::read(release.privateKey);
  if (!key) {
    return key.error();
  }
  const auto package = Package::open(release.package);
  if (!package) {
    return package.error();
  }
  const auto item = itemOf(release, *package, *key);
  if (!item) {
    return item.error();
  }
  const fs::path real = realPathOf(feed);
  // What is locked is the folder: no file is left there, and the feed can be replaced by another file meanwhile.
  const auto lock = lockOn(system::folderOf(real));
  if (!lock) {
    return lock.error();
  }
  const auto text = feedWith(*item, real, *package, *key);
  return text ? system::replaceFile(real, *text) : text.error();
}

}  // namespace tarnwell::publish
