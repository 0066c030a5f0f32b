#pragma once

#include "release/protocol/FeedItem.h"
#include "view/values/View.h"

namespace tarnwell::updatewindows {

/// What is new in a version, or a link to where that is said; nothing where the feed has neither.
view::View notesOf(const release::FeedItem& item);

}  // namespace tarnwell::updatewindows
