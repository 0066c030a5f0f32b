#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "kit/control/Accessible.h"
#include "kit/host/AnyControl.h"
#include "kit/host/Geometry.h"
#include "kit/host/Measurement.h"
#include "kit/host/Peer.h"
#include "kit/turn/Action.h"

namespace tarnwell::kit {

class Host;
class Turn;
class Window;

/// What stands in a window: state and logic that need no toolkit, shown by a host's peer. Setting from code tells the
/// peer and sends no action; a user's input always does. The peer of what has a value is shown it after each input,
/// taken or not: a platform's own control changes before it tells.
class Control {
 public:
  Control() = default;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
  virtual ~Control();

  bool isEnabled() const { return enabled_; }
  void setEnabled(bool enabled) { set(enabled_, enabled, Aspect::enabled); }

  /// In the parent's coordinates; empty until it was placed.
  const Rect& frame() const { return frame_; }
  Size bounds() const { return frame_.size(); }
  void setFrame(const Rect& frame);

  /// What a screen reader calls it.
  const std::string& accessibleName() const { return accessibleName_; }
  void setAccessibleName(std::string name) { set(accessibleName_, std::move(name), Aspect::accessibleName); }

  /// What it tells beside the name.
  const std::string& accessibleDescription() const { return accessibleDescription_; }
  void setAccessibleDescription(std::string description) {
    set(accessibleDescription_, std::move(description), Aspect::accessibleDescription);
  }

  /// The text on the screen that names it; null for none.
  Control* label() const { return label_ ? *label_ : nullptr; }
  void setLabel(const Control* label);

  /// What it is to those who cannot see it. Without a name that was given it goes by its own, a title for example.
  Accessible accessible() const;
  virtual std::vector<AccessiblePart> accessibleParts() const { return {}; }

  /// What `kit::perform` asks for. Nothing while the control is disabled or has no such action, value or part.
  void carryOut(const AccessibleRequest& request);

  /// User input runs as part of `turn`, which must outlive the control. Without one it runs by itself.
  void joinTurn(Turn& turn) { turn_ = &turn; }

  /// The window that it stands in; null while it is in none.
  Window* window() const { return window_; }
  void setWindow(Window* window) { window_ = window; }

  /// For work that may outlive the control: points to it as long as it lives, then to null.
  std::shared_ptr<Control* const> handle() const { return handle_; }

  /// Shows the current state, then every change.
  void attach(std::unique_ptr<Peer> peer);
  Peer* peer() const { return peer_.get(); }
  virtual std::unique_ptr<Peer> makePeer(Host& host, Peer& parent);
  /// Itself, as what a host knows it as.
  virtual AnyControl any() = 0;

  /// What it takes of a proposal: the peer says, or `sizeThatFits`.
  Measurement measure(Proposal proposal) const;

  /// Another number whenever the natural size may have become another.
  unsigned sizeRevision() const { return sizeRevision_; }
  /// Told, within the turn, when that happened without a setter having been called: by what stands in the control.
  void setSizeAction(Action changed) { sizeAction_ = std::move(changed); }

  // For controls with a tree of their own; the tree that they stand in tells them, and asks.

  /// Another font, style or scale.
  virtual void metricsChanged() {}
  virtual void showingChanged(bool /*shown*/) {}
  /// What stands in the control, in order; borrowed.
  virtual std::vector<Control*> hostedControls() const { return {}; }

  /// Whether the keyboard can reach it.
  virtual bool takesFocus() const { return false; }
  /// Whether text is being typed here that is not the value yet. Committing makes it the value, cancelling gives it up.
  virtual bool isEditing() const { return false; }
  virtual void commit() {}
  virtual void cancel() {}

 protected:
  /// With the control's own name.
  virtual Accessible ownAccessible() const = 0;
  /// One of the actions that `ownAccessible` names, with a value of its kind or an existing part.
  virtual void act(const AccessibleRequest& /*request*/) {}

  void changed(Aspect aspect);
  /// After a report of the host that changes nothing.
  void refuse() { changed(Aspect::value); }
  /// Tells the peer if `state` becomes another.
  template <class T>
  void set(T& state, T value, Aspect aspect) {
    if (value != state) {
      state = std::move(value);
      changed(aspect);
    }
  }
  void sizeChangedByItself();
  /// As part of the turn. It may end the control.
  void send(Action action);
  Turn* turn() const { return turn_; }

  /// What the content takes: all of what is proposed, unless it knows better. Asked where the peer says nothing.
  virtual Measurement sizeThatFits(Proposal proposal) const;

  virtual void attached() {}  // Told after a peer came or went,
  virtual void placed() {}    // and after another frame was set.

  /// What a new peer has to be told beside the aspects that every control has.
  virtual std::vector<Aspect> aspects() const = 0;

 private:
  bool takes(const AccessibleRequest& request) const;
  void replay();

  std::shared_ptr<Control*> handle_ = std::make_shared<Control*>(this);
  Turn* turn_ = nullptr;
  Window* window_ = nullptr;
  Rect frame_;
  std::string accessibleName_;
  std::string accessibleDescription_;
  std::shared_ptr<Control* const> label_;
  Action sizeAction_;
  unsigned sizeRevision_ = 0;
  bool enabled_ = true;
  // The last, so that it goes first: it may read the state above while it goes.
  std::unique_ptr<Peer> peer_;
};

}  // namespace tarnwell::kit
