#include "host/headless/HeadlessWindowPeer.h"

#include <cmath>
#include <string>

#include "host/headless/JournalPeer.h"

namespace tarnwell::host_headless {

HeadlessWindowPeer::HeadlessWindowPeer(Journal& journal, const kit::Window& window, const Room& room)
    : journal_(journal), window_(window), room_(room) {}

void HeadlessWindowPeer::show(kit::Aspect aspect) noexcept {
  const std::string shown = window_.takesKeyboard() ? "shown" : "shown without the keyboard";
  const bool shows = aspect == kit::Aspect::visible;
  const std::string what = shows ? (window_.isVisible() ? shown : "hidden") : aspectName(aspect);
  journal_.note("window " + window_.identifier() + ": " + what);
}

void HeadlessWindowPeer::place(const kit::Rect& frame) noexcept {
  journal_.note("window " + window_.identifier() + ": " + std::to_string(std::lround(frame.width)) + " x " +
                std::to_string(std::lround(frame.height)));
}

void HeadlessWindowPeer::reorder(const std::vector<kit::Control*>& inTreeOrder) noexcept {
  journal_.note("window " + window_.identifier() + ": " + std::to_string(inTreeOrder.size()) + " controls in order");
}

void HeadlessWindowPeer::miniaturize() noexcept { journal_.note("window " + window_.identifier() + ": miniaturized"); }

void HeadlessWindowPeer::orderFront() noexcept { journal_.note("window " + window_.identifier() + ": in front"); }

}  // namespace tarnwell::host_headless
