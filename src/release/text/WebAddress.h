#pragma once

#include <string>
#include <string_view>

namespace tarnwell::release {

/// Whether a browser may be asked to open what a feed gives as an address: only pages of the web, nothing that starts
/// a program or shows a file.
bool isWebAddress(std::string_view address);

/// Whether its traffic can neither be read nor changed on the way.
bool isSecureAddress(std::string_view address);

/// The host in a web address, without its port, a number in its brackets; empty where there is none.
std::string hostIn(std::string_view address);

}  // namespace tarnwell::release
