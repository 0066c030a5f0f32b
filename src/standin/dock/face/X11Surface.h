#pragma once

#include <xcb/xcb.h>

#include <QtCore/QAbstractNativeEventFilter>
#include <QtCore/QPointer>
#include <QtCore/QTimer>

#include "standin/dock/face/Surface.h"

namespace tarnwell::standin {

/// The screen of an X11 desktop. Nothing is asked again and again: an invisible window along the lower edge hears of
/// the pointer, and whenever another program has put a window on top, the dock goes above it again.
class X11Surface final : public Surface, private QAbstractNativeEventFilter {
 public:
  X11Surface();
  ~X11Surface() override;

  QRect area() const override;
  void adopt(QWidget& widget, Role role) override;
  bool blends() const override { return blends_; }
  QPixmap picture(const QRect& part) const override;
  void raiseDock() override;
  void setEdgeHeight(int points) override;
  void setScheme(Scheme scheme) override;

 private:
  bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;
  void hear(const xcb_generic_event_t& event);
  void makeEdge();
  void placeEdge();
  void watchStacking();
  bool isOwn(xcb_window_t window) const;

  xcb_connection_t* display_;
  xcb_window_t root_ = 0;
  xcb_window_t edge_ = 0;
  int edgeHeight_ = 1;
  bool blends_ = false;
  QPointer<QWidget> dock_;
  QTimer raiseSoon_;
};

}  // namespace tarnwell::standin
