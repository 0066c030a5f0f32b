#pragma once

#include <fcntl.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "fixtures/Sandbox.h"
#include "publish/Program.h"
#include "release/text/Version.h"
#include "system/base/Descriptor.h"
#include "updater/feed/FeedReader.h"
#include "updater/package/PackageClaim.h"
#include "updater/package/RealPackage.h"
#include "updater/signature/PublicKey.h"

namespace tarnwell::publish {

using Items = std::vector<release::FeedItem>;

inline bool contains(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

/// A publisher with a key and a package.
struct Publisher {
  Publisher() {
    const ProgramEnd end = makeFeed("key " + path("private"));
    EXPECT_EQ(end.status, 0) << end.output;
    publicKey = end.output.substr(0, end.output.find('\n'));
    offer("2.0");
  }

  /// Makes the package one of that version.
  void offer(const std::string& version) const { sandbox.write("a.deb", updater::realPackage(version)); }

  std::string path(const std::string& name) const { return (sandbox / name).string(); }

  /// Adds an item for a package of that version; `more` comes after the other arguments.
  ProgramEnd add(const std::string& version, const std::string& more = "") const {
    if (const std::string packed = version.substr(0, version.find(' ')); release::isVersion(packed)) {
      offer(packed);
    }
    return makeFeed("add " + path("feed.xml") + " --private-key " + path("private") + " --package " + path("a.deb") +
                    " --url https://updates.invalid/a.deb --version " + version + " " + more);
  }

  /// Adds version 2.0 with another package or from another place.
  ProgramEnd addPackage(const std::string& name, const std::string& url) const {
    return makeFeed("add " + path("feed.xml") + " --private-key " + path("private") + " --package " + path(name) +
                    " --url " + url + " --version 2.0");
  }

  Items items() const {
    updater::FeedReader reader;
    reader.feed(sandbox.read("feed.xml"));
    const auto items = reader.finish();
    EXPECT_TRUE(items) << items.error().message;
    return items ? *items : Items();
  }

  /// Why the updater would refuse the package behind an item; empty when it would not.
  std::string refusalOf(const release::FeedItem& item, const std::string& name) const {
    const auto key = *updater::PublicKey::parse(publicKey);
    const auto claim = *updater::PackageClaim::create(item);
    const system::Descriptor file(::open((sandbox / name).c_str(), O_RDONLY | O_CLOEXEC));
    const auto held = claim.signature.verify(key, file.number(), claim.length);
    return held ? "" : held.error().message;
  }

  fixtures::Sandbox sandbox;
  std::string publicKey;
};

}  // namespace tarnwell::publish
