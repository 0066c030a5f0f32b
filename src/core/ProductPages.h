#pragma once

#include <string>
#include <string_view>

namespace tarnwell::core {

/// "https://", the host and the path. A host that is empty or holds anything but letters, digits, dots, hyphens and a
/// port's colon gives no address, which is a fault.
std::string pageAddress(std::string_view host, std::string_view path);

// Pages on the product's web site.

std::string helpPage();
std::string feedbackPage();
std::string donationPage();

}  // namespace tarnwell::core
