#include "core/ProductPages.h"

#include "diagnostics/Fault.h"

namespace tarnwell::core {

std::string pageAddress(std::string_view host, std::string_view path) {
  constexpr std::string_view hostCharacters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789.-:";
  std::string address = "https://" + std::string(host) + std::string(path);
  if (host.empty() || host.find_first_not_of(hostCharacters) != std::string_view::npos) {
    diagnostics::fault("no address: " + address);
  }
  return address;
}

std::string helpPage() { return pageAddress(TARNWELL_WEB_HOST, "/help"); }

std::string feedbackPage() { return pageAddress(TARNWELL_WEB_HOST, "/feedback"); }

std::string donationPage() { return pageAddress(TARNWELL_WEB_HOST, "/donate"); }

}  // namespace tarnwell::core
