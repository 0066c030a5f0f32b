#include "host/headless/HeadlessStatusItemPeer.h"

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

HeadlessStatusItemPeer::HeadlessStatusItemPeer(Journal& journal, StatusBar& bar, kit::StatusItem& item)
    : journal_(journal), bar_(bar), item_(item) {
  bar_.items.push_back(&item_);
  imageChanges_ = item_.button()->observe([this] { note("image " + item_.button()->image().symbol); });
  note("added");
}

HeadlessStatusItemPeer::~HeadlessStatusItemPeer() {
  std::erase(bar_.items, &item_);
  note("removed");
}

void HeadlessStatusItemPeer::popUp(kit::Menu& menu) {
  note("menu opens");
  if (const MenuScript script = bar_.script) {
    OpenMenu open(item_.application(), menu);
    script(open);
  }
  note("menu closes");
}

}  // namespace tarnwell::host_headless
