#pragma once

#include <optional>

#include "kit/host/Aspect.h"
#include "kit/host/Geometry.h"
#include "kit/host/Measurement.h"
#include "kit/turn/Object.h"

namespace tarnwell::kit {

/// A host's side of one control. It outlives no control: the control owns it.
class Peer {
 public:
  Peer() = default;
  Peer(const Peer&) = delete;
  Peer& operator=(const Peer&) = delete;
  virtual ~Peer() = default;

  /// Show the control's state of that aspect.
  virtual void show(Aspect aspect) noexcept = 0;

  /// How large the control is; nothing where that is for what stands in it to say.
  virtual std::optional<Measurement> measure(Proposal /*proposal*/) const { return std::nullopt; }

  /// An editing command of the main menu, "copy:" and its kin: whether it would do something now, and doing it. Not for
  /// a platform that sends such commands itself (`MenuItem::isPlatforms`).
  virtual bool canEdit(const Selector& /*command*/) const { return false; }
  virtual void edit(const Selector& /*command*/) {}

  /// Stand at `frame`: whole points, in the parent peer's coordinates.
  virtual void place(const Rect& frame) noexcept = 0;
};

}  // namespace tarnwell::kit
