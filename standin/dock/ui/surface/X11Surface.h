#pragma once

#include <xcb/xcb.h>

#include <QtCore/QPointer>
#include <QtCore/QSocketNotifier>
#include <QtCore/QTimer>
#include <cstdint>
#include <memory>
#include <set>
#include <vector>

#include "standin/dock/ui/surface/Surface.h"

namespace tarnwell::standin {

/// The screen of an X11 desktop. Nothing is asked again and again: an invisible window along the lower edge hears of
/// the pointer, and hands its clicks on to what is below it; whenever another program has put a window on top, the dock
/// goes above it again.
class X11Surface final : public Surface {
 public:
  /// Nothing when the display cannot be reached.
  static std::unique_ptr<X11Surface> open();

  QRect area() const override;
  void adopt(QWidget& widget, Role role) override;
  bool blends() const override { return blends_; }
  QPixmap picture(const QRect& part) const override;
  void raiseDock() override;
  void setEdgeHeight(int points) override;
  void watchEscape(bool isWatched) override;
  void reset() override;

 private:
  struct Disconnect {
    void operator()(xcb_connection_t* display) const { xcb_disconnect(display); }
  };
  using Connection = std::unique_ptr<xcb_connection_t, Disconnect>;

  X11Surface(Connection display, int screenNumber);

  void hearAll();
  void hear(const xcb_generic_event_t& event);
  void makeEdge();
  void placeEdge();
  int lastRow(int bottom) const;
  void stackEdge(std::uint32_t place);
  void passOn(const xcb_button_press_event_t& press);
  void noteParent(const xcb_reparent_notify_event_t& moved);
  void noteOrder(const xcb_configure_notify_event_t& configured);
  void goAbove(xcb_window_t window, bool isOnTop);
  bool isOwn(xcb_window_t window) const;

  // Not the toolkit's, which would hear of other programs' windows too and wonder.
  Connection display_;
  xcb_window_t root_ = 0;
  xcb_window_t edge_ = 0;
  std::vector<xcb_keycode_t> escapes_;
  std::set<xcb_window_t> above_;  // the edge, as far as the server's events tell
  int edgeHeight_ = 1;
  int screenNumber_;
  bool blends_;
  QPointer<QWidget> dock_;
  QTimer raiseSoon_;
  std::unique_ptr<QSocketNotifier> arrival_;
};

}  // namespace tarnwell::standin
