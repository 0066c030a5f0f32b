#include "host/headless/OpenMenu.h"

#include <algorithm>

#include "diagnostics/Fault.h"

namespace tarnwell::host_headless {

std::vector<std::string> OpenMenu::titles() const {
  std::vector<std::string> titles;
  for (const auto& item : menu_.items()) {
    titles.push_back(item->isSeparator() ? "-" : item->title());
  }
  return titles;
}

void OpenMenu::choose(const std::string& title) {
  const auto found = std::ranges::find_if(menu_.items(), [&](const auto& item) { return item->title() == title; });
  if (found == menu_.items().end()) {
    diagnostics::fault("no entry \"" + title + "\" in the open menu");
  }
  application_.responders().choose(*found);
}

}  // namespace tarnwell::host_headless
