#pragma once

#include <optional>

#include "host/linux/publish/Package.h"
#include "host/linux/publish/Release.h"
#include "host/linux/publish/SecretKey.h"
#include "host/linux/updates/FeedItem.h"
#include "system/Result.h"

namespace tarnwell::host_linux::publish {

/// Why the updater would pass over what is said in this release, in words for the publisher.
std::optional<system::Failure> objectionTo(const Release& release);

/// Holds the item that the updater reads against the package, with the updater's own means: would it offer the item,
/// and believe the package?
std::optional<system::Failure> objectionTo(const updates::FeedItem& item, const Package& package, const SecretKey& key);

}  // namespace tarnwell::host_linux::publish
