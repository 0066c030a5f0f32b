#pragma once

#include <QtCore/QPointer>
#include <QtWidgets/QWidget>

#include "host/qt/control/Container.h"
#include "kit/host/Peer.h"

namespace tarnwell::kit {
class Control;
}

namespace tarnwell::host_qt {

/// The peer of a control that is one widget. The widget belongs to its parent widget in Qt's way; the peer takes it out
/// of sight at once and has it deleted when its events are over.
class WidgetPeer : public kit::Peer, public Container {
 public:
  /// `widget` is a ControlLink to `control`, and a child of the parent peer's content.
  WidgetPeer(kit::Control& control, QWidget* widget);
  ~WidgetPeer() override;

  /// Null once the parent widget is gone.
  QWidget* widget() const { return widget_; }
  QWidget* content() const override { return widget_; }

  void show(kit::Aspect aspect) noexcept final;
  void place(const kit::Rect& frame) noexcept final;
  bool canEdit(const kit::Selector& command) const final;
  void edit(const kit::Selector& command) final;

  /// The widget that shows `control`; null while it has no peer of this host.
  static QWidget* widgetOf(const kit::Control& control);

 protected:
  virtual void placed() {}

 private:
  void showEnabled();

  kit::Control& control_;
  QPointer<QWidget> widget_;
};

}  // namespace tarnwell::host_qt
