#include "host/headless/HeadlessWindowPeer.h"

#include <cmath>
#include <string>

#include "host/headless/JournalPeer.h"

namespace tarnwell::host_headless {

HeadlessWindowPeer::HeadlessWindowPeer(Journal& journal, kit::Window& window, Screen& screen)
    : journal_(journal), window_(window), screen_(screen) {}

HeadlessWindowPeer::~HeadlessWindowPeer() { putKeyboard(false); }

void HeadlessWindowPeer::show(kit::Aspect aspect) noexcept {
  const std::string shown = window_.takesKeyboard() ? "shown" : "shown without the keyboard";
  const bool shows = aspect == kit::Aspect::visible;
  note(shows ? (window_.isVisible() ? shown : "hidden") : std::string(aspectName(aspect)));
  if (shows && (!window_.isVisible() || window_.takesKeyboard())) {
    putKeyboard(window_.isVisible());
  }
}

void HeadlessWindowPeer::place(const kit::Rect& frame) noexcept {
  note(std::to_string(std::lround(frame.width)) + " x " + std::to_string(std::lround(frame.height)));
}

void HeadlessWindowPeer::reorder(const std::vector<kit::Control*>& inTreeOrder) noexcept {
  note(std::to_string(inTreeOrder.size()) + " controls in order");
}

void HeadlessWindowPeer::miniaturize() noexcept {
  note("miniaturized");
  putKeyboard(false);
}

void HeadlessWindowPeer::orderFront() noexcept {
  note("in front");
  if (window_.takesKeyboard()) {
    putKeyboard(true);
  }
}

// From one that leaves it goes back to the window that had it before.
void HeadlessWindowPeer::putKeyboard(bool here) {
  auto& windows = screen_.byKeyboard;
  std::erase(windows, &window_);
  if (here) {
    windows.push_back(&window_);
  }
  screen_.keyWindowChanged(windows.empty() ? nullptr : windows.back());
}

}  // namespace tarnwell::host_headless
