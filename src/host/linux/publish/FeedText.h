#pragma once

#include <string>

#include "host/linux/Result.h"
#include "host/linux/publish/NewItem.h"

namespace tarnwell::host_linux::publish {

/// A feed without items.
std::string emptyFeed();

/// `feed` with one more item before its first one; everything else in it stays as it is, to the byte. Refuses a feed
/// that the updater could not read, before or after, and one that has this version already.
Result<std::string> withItem(const std::string& feed, const NewItem& item);

}  // namespace tarnwell::host_linux::publish
