#include "release/text/WebAddress.h"

#include <algorithm>

namespace tarnwell::release {
namespace {

bool isPrintable(char c) { return c > ' ' && c != '\x7f'; }

bool startsWith(std::string_view text, std::string_view lowerPrefix) {
  return text.size() >= lowerPrefix.size() &&
         std::equal(lowerPrefix.begin(), lowerPrefix.end(), text.begin(),
                    [](char low, char c) { return low == c || (c >= 'A' && c <= 'Z' && low == c - 'A' + 'a'); });
}

std::string_view withoutScheme(std::string_view address) {
  for (const std::string_view scheme : {"https://", "http://"}) {
    if (startsWith(address, scheme)) {
      return address.substr(scheme.size());
    }
  }
  return {};
}

}  // namespace

bool isWebAddress(std::string_view address) {
  return !hostIn(address).empty() && std::all_of(address.begin(), address.end(), isPrintable);
}

bool isSecureAddress(std::string_view address) { return startsWith(address, "https://"); }

std::string hostIn(std::string_view address) {
  std::string_view rest = withoutScheme(address);
  rest = rest.substr(0, rest.find_first_of("/?#"));
  rest = rest.substr(rest.find('@') + 1);  // From the start where there is none.
  const std::size_t number = rest.starts_with('[') ? rest.find(']') : std::string_view::npos;
  return std::string(rest.substr(0, rest.find(':', number == std::string_view::npos ? 0 : number)));
}

}  // namespace tarnwell::release
