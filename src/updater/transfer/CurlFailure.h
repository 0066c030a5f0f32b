#pragma once

#include <curl/curl.h>

#include <string>
#include <string_view>

#include "system/base/Result.h"

namespace tarnwell::updater {

/// What went wrong on the way from `address`, in words for people. `detail` is the library's own word on it, and
/// `status` the server's answer, 0 where there was none.
system::Failure transferFailure(CURLcode code, const std::string& address, std::string_view detail, long status);

}  // namespace tarnwell::updater
