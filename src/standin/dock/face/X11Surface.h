#pragma once

#include <xcb/xcb.h>

#include <QtCore/QPointer>
#include <QtCore/QSocketNotifier>
#include <QtCore/QTimer>
#include <memory>

#include "standin/dock/face/Surface.h"

namespace tarnwell::standin {

/// The screen of an X11 desktop. Nothing is asked again and again: an invisible window along the lower edge hears of
/// the pointer, and whenever another program has put a window on top, the dock goes above it again.
class X11Surface final : public Surface {
 public:
  X11Surface();

  QRect area() const override;
  void adopt(QWidget& widget, Role role) override;
  bool blends() const override { return blends_; }
  QPixmap picture(const QRect& part) const override;
  QPoint toScreen(QPoint place) const override { return place; }
  void raiseDock() override;
  void setEdgeHeight(int points) override;
  void setScheme(Scheme scheme) override;

 private:
  struct Disconnect {
    void operator()(xcb_connection_t* display) const { xcb_disconnect(display); }
  };

  void hearAll();
  void hear(const xcb_generic_event_t& event);
  void makeEdge();
  void placeEdge();
  bool isOwn(xcb_window_t window) const;

  // Not the toolkit's, which would hear of other programs' windows too and wonder.
  std::unique_ptr<xcb_connection_t, Disconnect> display_;
  xcb_window_t root_ = 0;
  xcb_window_t edge_ = 0;
  int edgeHeight_ = 1;
  bool blends_ = false;
  QPointer<QWidget> dock_;
  QTimer raiseSoon_;
  std::unique_ptr<QSocketNotifier> arrival_;
};

}  // namespace tarnwell::standin
