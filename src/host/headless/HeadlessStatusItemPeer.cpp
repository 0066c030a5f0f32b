#include "host/headless/HeadlessStatusItemPeer.h"

namespace tarnwell::host_headless {

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
