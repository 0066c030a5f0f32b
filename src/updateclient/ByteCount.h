#pragma once

#include <cstdint>
#include <string>

#include "kit/ports/NumberFormat.h"

namespace tarnwell::updateclient {

/// "512 bytes", "3.2 MB", "1 GB": with as many digits as people need.
std::string byteCount(std::uint64_t bytes, const kit::NumberFormat& format);

/// "3.2 MB of 10 MB", both in the unit that suits the whole; what has come alone where the whole is not known.
std::string byteProgress(std::uint64_t received, std::uint64_t expected, const kit::NumberFormat& format);

}  // namespace tarnwell::updateclient
