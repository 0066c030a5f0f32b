#pragma once

#include "publish/Package.h"
#include "publish/Release.h"
#include "publish/SecretKey.h"
#include "release/protocol/FeedItem.h"
#include "system/base/Result.h"

namespace tarnwell::publish {

/// Fails where the updater would pass over what is said in this release, in words for the publisher.
system::Result<void> checkRelease(const Release& release);

/// Holds the item that the updater reads against the package, with the updater's own means: would it offer the item,
/// and believe the package?
system::Result<void> checkItem(const release::FeedItem& item, const Package& package, const SecretKey& key);

}  // namespace tarnwell::publish
