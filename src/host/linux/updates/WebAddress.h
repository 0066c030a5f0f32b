#pragma once

#include <string>
#include <string_view>

namespace tarnwell::host_linux::updates {

/// Whether a browser may be asked to open what a feed gives as an address: only pages of the web, nothing that starts
/// a program or shows a file.
bool isWebAddress(std::string_view address);

/// The host in a web address, without its port; empty where there is none.
std::string hostIn(std::string_view address);

}  // namespace tarnwell::host_linux::updates
