#include "kit/control/Control.h"

#include <algorithm>
#include <utility>

#include "kit/host/Host.h"
#include "kit/turn/Turn.h"

namespace tarnwell::kit {

Control::~Control() { *handle_ = nullptr; }

void Control::setFrame(const Rect& frame) {
  if (std::exchange(frame_, frame) == frame) {
    return;
  }
  if (peer_) {
    peer_->place(frame);
  }
  placed();
}

void Control::setLabel(const Control* label) { label_ = label != nullptr ? label->handle() : nullptr; }

Accessible Control::accessible() const {
  Accessible told = ownAccessible();
  if (!accessibleName_.empty()) {
    told.name = accessibleName_;
  }
  told.isEnabled = enabled_;
  return told;
}

void Control::carryOut(const AccessibleRequest& request) {
  if (enabled_ && takes(request)) {
    act(request);
  }
}

bool Control::takes(const AccessibleRequest& request) const {
  const Accessible told = ownAccessible();
  const bool offered = std::ranges::count(told.actions, request.action) > 0;
  switch (request.action) {
    case AccessibleAction::setValue:
      return offered && told.value.index() == request.value.index();
    case AccessibleAction::choosePart:
      return offered && request.part >= 0 && request.part < static_cast<int>(accessibleParts().size());
    default:
      return offered;
  }
}

void Control::attach(std::unique_ptr<Peer> peer) {
  peer_ = std::move(peer);
  if (peer_) {
    replay();
  }
  attached();
}

std::unique_ptr<Peer> Control::makePeer(Host& host, Peer& parent) { return host.peer(any(), parent); }

Measurement Control::measure(Proposal proposal) const {
  const auto measured = peer_ ? peer_->measure(proposal) : std::nullopt;
  return measured ? *measured : sizeThatFits(proposal);
}

Measurement Control::sizeThatFits(Proposal proposal) const {
  return {.size = {.width = proposal.width.value_or(0), .height = proposal.height.value_or(0)}};
}

void Control::replay() {
  for (const Aspect aspect : aspects()) {
    peer_->show(aspect);
  }
  for (const Aspect aspect : {Aspect::enabled, Aspect::accessibleName, Aspect::accessibleDescription}) {
    peer_->show(aspect);
  }
  peer_->place(frame_);
}

void Control::changed(Aspect aspect) {
  if (aspect == Aspect::title || aspect == Aspect::style) {
    ++sizeRevision_;
  }
  if (peer_) {
    peer_->show(aspect);
  }
}

void Control::sizeChangedByItself() {
  ++sizeRevision_;
  if (const Action action = sizeAction_) {
    action();
  }
}

void Control::send(Action action) {
  if (turn_ != nullptr) {
    turn_->perform(std::move(action));
  } else {
    action();
  }
}

}  // namespace tarnwell::kit
