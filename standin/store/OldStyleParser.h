#pragma once

#include <string_view>

#include "standin/store/PropertyList.h"

namespace tarnwell::standin {

/// Reads an old-style property list, UTF-8: ( a, b ), { a = b; }, <0fbd77>, and texts in quotes or without. Numbers are
/// texts. None when not all of the text is such a list.
PropertyList parseOldStyleText(std::string_view text);

}  // namespace tarnwell::standin
