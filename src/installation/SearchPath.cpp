#include "installation/SearchPath.h"

namespace tarnwell::installation {
namespace {

constexpr std::string_view systemFolders = "/usr/local/bin:/usr/bin:/bin";

}  // namespace

std::string searchPathWith(std::string_view folder, std::string_view before) {
  std::string path(folder);
  std::string_view rest = before.empty() ? systemFolders : before;
  for (bool more = true; more;) {
    const auto end = rest.find(':');
    const auto entry = rest.substr(0, end);
    if (entry != folder) {
      (path += ':') += entry;
    }
    more = end != std::string_view::npos;
    if (more) {
      rest.remove_prefix(end + 1);
    }
  }
  return path;
}

}  // namespace tarnwell::installation
