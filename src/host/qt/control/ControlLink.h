#pragma once

#include <QtCore/QObject>
#include <QtCore/QRectF>
#include <utility>

#include "kit/turn/Action.h"
#include "kit/turn/Object.h"

namespace tarnwell::kit {
class Control;
}

namespace tarnwell::host_qt {

/// What ties a widget to the control that it shows. A widget outlives its control by a moment, since it may be inside
/// an event of its own when the control goes; from then on it is cut off and hears nothing.
class ControlLink {
 public:
  explicit ControlLink(kit::Control& control) : control_(&control) {}
  ControlLink(const ControlLink&) = delete;
  ControlLink& operator=(const ControlLink&) = delete;
  virtual ~ControlLink() = default;

  /// Null when cut off.
  kit::Control* control() const { return control_; }
  void cut() { control_ = nullptr; }

  /// The control's state is new.
  virtual void showState() = 0;

  /// As of a peer.
  virtual bool canEdit(const kit::Selector& /*command*/) const { return false; }
  virtual void edit(const kit::Selector& /*command*/) {}

  /// What the focus ring goes around, in the widget's coordinates, and how round it is, in points.
  virtual QRectF focusShape() const = 0;
  virtual double cornerRadius() const = 0;
  /// Whether the ring is shown while the widget has the focus.
  virtual bool showsFocus() const = 0;

  /// Where a part of the control stands, in the widget's coordinates; empty for none.
  virtual QRectF partRect(int /*index*/) const { return {}; }
  /// The part that has the keyboard while the widget has it; -1 where none does.
  virtual int focusedPart() const { return -1; }

  /// The fonts of the theme are new.
  virtual void fontsChanged() = 0;

  /// Run when the control's state, and with it perhaps the focus shape, is new.
  void setFollower(kit::Action follower) { follower_ = std::move(follower); }
  void stateChanged() const {
    if (follower_) {
      follower_();
    }
  }

  /// The link of a widget that shows a control, else null.
  static ControlLink* of(QObject* object) noexcept { return dynamic_cast<ControlLink*>(object); }

 private:
  kit::Control* control_;
  kit::Action follower_;
};

}  // namespace tarnwell::host_qt
