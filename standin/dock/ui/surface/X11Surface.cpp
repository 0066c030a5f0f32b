#include "standin/dock/ui/surface/X11Surface.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <QtGui/QWindow>
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace tarnwell::standin {
namespace {

struct FreeReply {
  void operator()(void* reply) const { std::free(reply); }
};
template <class T>
using Reply = std::unique_ptr<T, FreeReply>;

template <class Event>
const Event& as(const xcb_generic_event_t& event) {
  return reinterpret_cast<const Event&>(event);
}

xcb_window_t rootOf(xcb_connection_t* display, int number) {
  xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(display));
  for (; number > 0 && screens.rem > 1; --number) {
    xcb_screen_next(&screens);
  }
  return screens.data->root;
}

// A compositing manager owns the selection of that name.
bool hasCompositor(xcb_connection_t* display, int screen) {
  const std::string name = "_NET_WM_CM_S" + std::to_string(screen);
  const auto asked = xcb_intern_atom(display, 1, static_cast<std::uint16_t>(name.size()), name.data());
  const Reply<xcb_intern_atom_reply_t> atom(xcb_intern_atom_reply(display, asked, nullptr));
  if (!atom || atom->atom == XCB_ATOM_NONE) {
    return false;
  }
  const Reply<xcb_get_selection_owner_reply_t> owner(
      xcb_get_selection_owner_reply(display, xcb_get_selection_owner(display, atom->atom), nullptr));
  return owner && owner->owner != XCB_WINDOW_NONE;
}

// The keys that have Escape on their first level.
std::vector<xcb_keycode_t> escapeKeys(xcb_connection_t* display) {
  constexpr xcb_keysym_t escape = 0xff1b;
  const xcb_setup_t* setup = xcb_get_setup(display);
  const auto count = static_cast<std::uint8_t>(setup->max_keycode - setup->min_keycode + 1);
  const Reply<xcb_get_keyboard_mapping_reply_t> mapping(
      xcb_get_keyboard_mapping_reply(display, xcb_get_keyboard_mapping(display, setup->min_keycode, count), nullptr));
  std::vector<xcb_keycode_t> keys;
  for (std::size_t key = 0; mapping && key < count; ++key) {
    if (xcb_get_keyboard_mapping_keysyms(mapping.get())[key * mapping->keysyms_per_keycode] == escape) {
      keys.push_back(static_cast<xcb_keycode_t>(setup->min_keycode + key));
    }
  }
  return keys;
}

// Until the server has done what the toolkit has asked for: between two connections there is no order.
void waitForToolkit() {
  if (const auto* platform = qGuiApp->nativeInterface<QNativeInterface::QX11Application>()) {
    xcb_connection_t* connection = platform->connection();
    const Reply<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
  }
}

void setProperty(xcb_connection_t* display, xcb_window_t window, const std::string& name,
                 const std::vector<std::uint32_t>& values) {
  const auto asked = xcb_intern_atom(display, 0, static_cast<std::uint16_t>(name.size()), name.data());
  if (const Reply<xcb_intern_atom_reply_t> atom{xcb_intern_atom_reply(display, asked, nullptr)}) {
    xcb_change_property(display, XCB_PROP_MODE_REPLACE, window, atom->atom, XCB_ATOM_CARDINAL, 32,
                        static_cast<std::uint32_t>(values.size()), values.data());
  }
}

// Asked of a compositor in the two ways that those that draw shadows around every window know: that this one shall have
// none, and that the window draws its own within margins of no size. On the toolkit's connection, which makes the
// window.
void castNoShadow(const QWidget& widget) {
  if (const auto* platform = qGuiApp->nativeInterface<QNativeInterface::QX11Application>()) {
    const auto window = static_cast<xcb_window_t>(widget.winId());
    setProperty(platform->connection(), window, "_COMPTON_SHADOW", {0});
    setProperty(platform->connection(), window, "_GTK_FRAME_EXTENTS", {0, 0, 0, 0});
  }
}

QScreen* screen() { return QGuiApplication::primaryScreen(); }

// From points to pixels, where the screen starts at the same place in both. Edges are rounded, not sizes, or parts that
// touch would overlap.
QRect pixelsOf(const QRect& points) {
  const QPoint start = screen()->geometry().topLeft();
  const double ratio = screen()->devicePixelRatio();
  const auto scaled = [&](QPoint place) {
    const QPointF far = QPointF(place - start) * ratio;
    return start + QPoint(static_cast<int>(std::lround(far.x())), static_cast<int>(std::lround(far.y())));
  };
  return {scaled(points.topLeft()), scaled(points.bottomRight() + QPoint(1, 1)) - QPoint(1, 1)};
}

}  // namespace

std::unique_ptr<X11Surface> X11Surface::open() {
  int screenNumber = 0;
  Connection display(xcb_connect(nullptr, &screenNumber));
  if (xcb_connection_has_error(display.get()) != 0) {
    return nullptr;
  }
  return std::unique_ptr<X11Surface>(new X11Surface(std::move(display), screenNumber));
}

X11Surface::X11Surface(Connection display, int screenNumber)
    : display_(std::move(display)),
      root_(rootOf(display_.get(), screenNumber)),
      screenNumber_(screenNumber),
      blends_(hasCompositor(display_.get(), screenNumber)) {
  raiseSoon_.setSingleShot(true);
  raiseSoon_.setInterval(0);
  QObject::connect(&raiseSoon_, &QTimer::timeout, &raiseSoon_, [this] { raiseDock(); });
  makeEdge();
  arrival_ = std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(display_.get()), QSocketNotifier::Read);
  QObject::connect(arrival_.get(), &QSocketNotifier::activated, arrival_.get(), [this] { hearAll(); });
  QObject::connect(screen(), &QScreen::geometryChanged, &raiseSoon_, [this] {
    placeEdge();
    tellArea();
  });
}

QRect X11Surface::area() const { return screen()->geometry(); }

void X11Surface::adopt(QWidget& widget, Role role) {
  widget.setAttribute(Qt::WA_TranslucentBackground, blends_);
  widget.setAttribute(Qt::WA_ShowWithoutActivating);
  if (role == Role::document) {
    widget.setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
    return;
  }
  if (role == Role::menu) {
    return castNoShadow(widget);
  }
  // A window manager would give it a place among windows, and take its time for it.
  Qt::WindowFlags flags = Qt::Tool | Qt::FramelessWindowHint | Qt::BypassWindowManagerHint | Qt::WindowStaysOnTopHint |
                          Qt::WindowDoesNotAcceptFocus | Qt::NoDropShadowWindowHint;
  flags.setFlag(Qt::WindowTransparentForInput, role == Role::effect);
  widget.setWindowFlags(flags);
  // What appears of it is painted at once; a colour of the server's in between would flicker.
  widget.setAttribute(Qt::WA_NoSystemBackground);
  castNoShadow(widget);
  // Nor has a dock one, of whichever shape. Told of before there is a window, the toolkit would forget it.
  widget.setAttribute(Qt::WA_X11NetWmWindowTypeDock);
  if (role == Role::dock) {
    dock_ = &widget;
  }
}

QPixmap X11Surface::picture(const QRect& part) const {
  return screen()->grabWindow(0, part.x(), part.y(), part.width(), part.height());
}

// The edge comes last, also where the dock slides over it, or the pointer would leave it in the middle of the way. Only
// requests on one connection keep their order.
void X11Surface::raiseDock() {
  constexpr std::uint32_t above = XCB_STACK_MODE_ABOVE;
  waitForToolkit();
  if (dock_ && dock_->isVisible()) {
    xcb_configure_window(display_.get(), static_cast<xcb_window_t>(dock_->winId()), XCB_CONFIG_WINDOW_STACK_MODE,
                         &above);
  }
  stackEdge(XCB_STACK_MODE_ABOVE);
  xcb_flush(display_.get());
}

void X11Surface::stackEdge(std::uint32_t place) {
  xcb_configure_window(display_.get(), edge_, XCB_CONFIG_WINDOW_STACK_MODE, &place);
}

// Asked for only when it is needed: no other client gets the key meanwhile. With and without the locks of capitals and
// of numbers, but not with any other modifier: window managers have uses for those, and would have all of it refused.
void X11Surface::watchEscape(bool isWatched) {
  if (isWatched) {
    escapes_ = escapeKeys(display_.get());
  }
  constexpr std::array<std::uint16_t, 4> locks = {0, XCB_MOD_MASK_LOCK, XCB_MOD_MASK_2,
                                                  XCB_MOD_MASK_LOCK | XCB_MOD_MASK_2};
  for (const xcb_keycode_t key : escapes_) {
    for (const std::uint16_t locked : locks) {
      if (isWatched) {
        xcb_grab_key(display_.get(), 0, root_, locked, key, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
      } else {
        xcb_ungrab_key(display_.get(), key, root_, locked);
      }
    }
  }
  xcb_flush(display_.get());
}

void X11Surface::setEdgeHeight(int points) {
  if (std::exchange(edgeHeight_, points) != points) {
    placeEdge();
  }
}

void X11Surface::reset() {
  Surface::reset();
  // It may have come or gone meanwhile.
  blends_ = hasCompositor(display_.get(), screenNumber_);
}

void X11Surface::makeEdge() {
  // First, or windows that come meanwhile would be missed.
  constexpr std::uint32_t stacking = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
  xcb_change_window_attributes(display_.get(), root_, XCB_CW_EVENT_MASK, &stacking);
  edge_ = xcb_generate_id(display_.get());
  const std::array<std::uint32_t, 2> values = {1, XCB_EVENT_MASK_ENTER_WINDOW | XCB_EVENT_MASK_LEAVE_WINDOW};
  xcb_create_window(display_.get(), 0, edge_, root_, 0, 0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT,
                    XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, values.data());
  placeEdge();
  xcb_map_window(display_.get(), edge_);
  // A press waits until it is said what becomes of it.
  xcb_grab_button(display_.get(), 0, edge_, XCB_EVENT_MASK_BUTTON_PRESS, XCB_GRAB_MODE_SYNC, XCB_GRAB_MODE_ASYNC,
                  XCB_NONE, XCB_NONE, XCB_BUTTON_INDEX_ANY, XCB_MOD_MASK_ANY);
  xcb_flush(display_.get());
}

// A screen whose pixels make no whole number of points ends a little above or below where its points do.
int X11Surface::lastRow(int bottom) const {
  const Reply<xcb_get_geometry_reply_t> root(
      xcb_get_geometry_reply(display_.get(), xcb_get_geometry(display_.get(), root_), nullptr));
  const double point = std::ceil(screen()->devicePixelRatio());
  return root && std::abs(root->height - 1 - bottom) <= point ? root->height - 1 : bottom;
}

void X11Surface::placeEdge() {
  const QRect whole = area();
  QRect strip = pixelsOf(QRect(whole.x(), whole.bottom() + 1 - edgeHeight_, whole.width(), edgeHeight_));
  strip.setBottom(lastRow(strip.bottom()));
  if (edgeHeight_ == 1) {
    // The last row of pixels, even where a point has several.
    strip.setTop(strip.bottom());
  }
  const std::array<std::uint32_t, 4> values = {
      static_cast<std::uint32_t>(strip.x()), static_cast<std::uint32_t>(strip.y()),
      static_cast<std::uint32_t>(strip.width()), static_cast<std::uint32_t>(strip.height())};
  xcb_configure_window(display_.get(), edge_,
                       XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y | XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT,
                       values.data());
  xcb_flush(display_.get());
}

// The server looks anew for the window below the pointer, and finds the one that was covered.
void X11Surface::passOn(const xcb_button_press_event_t& press) {
  stackEdge(XCB_STACK_MODE_BELOW);
  xcb_allow_events(display_.get(), XCB_ALLOW_REPLAY_POINTER, press.time);
  stackEdge(XCB_STACK_MODE_ABOVE);
  xcb_flush(display_.get());
}

void X11Surface::hearAll() {
  while (const Reply<xcb_generic_event_t> event{xcb_poll_for_event(display_.get())}) {
    hear(*event);
  }
  if (xcb_connection_has_error(display_.get()) != 0) {
    // A dock that hears nothing would never come again; another one will.
    arrival_->setEnabled(false);
    QCoreApplication::exit(EXIT_FAILURE);
  }
}

void X11Surface::hear(const xcb_generic_event_t& event) {
  constexpr std::uint8_t sentByClient = 0x80;
  const int kind = event.response_type & ~sentByClient;
  switch (kind) {
    case XCB_ENTER_NOTIFY:
    case XCB_LEAVE_NOTIFY:
      if (as<xcb_enter_notify_event_t>(event).event == edge_) {
        tellEdge(kind == XCB_ENTER_NOTIFY);
      }
      break;
    case XCB_BUTTON_PRESS:
      passOn(as<xcb_button_press_event_t>(event));
      break;
    case XCB_KEY_PRESS:
      tellEscape();
      break;
    case XCB_CREATE_NOTIFY:
      // A window begins on top.
      above_.insert(as<xcb_create_notify_event_t>(event).window);
      break;
    case XCB_DESTROY_NOTIFY:
      above_.erase(as<xcb_destroy_notify_event_t>(event).window);
      break;
    case XCB_REPARENT_NOTIFY:
      noteParent(as<xcb_reparent_notify_event_t>(event));
      break;
    case XCB_MAP_NOTIFY:
      goAbove(as<xcb_map_notify_event_t>(event).window, as<xcb_map_notify_event_t>(event).override_redirect != 0);
      break;
    case XCB_CONFIGURE_NOTIFY:
      noteOrder(as<xcb_configure_notify_event_t>(event));
      break;
    default:
      break;
  }
}

void X11Surface::noteParent(const xcb_reparent_notify_event_t& moved) {
  above_.erase(moved.window);
  if (moved.parent == moved.event) {
    above_.insert(moved.window);
  }
}

void X11Surface::noteOrder(const xcb_configure_notify_event_t& configured) {
  const xcb_window_t below = configured.above_sibling;
  if (configured.window == edge_) {
    if (above_.contains(below)) {
      // It never goes anywhere but to the top, or below everything for a moment.
      above_.clear();
    }
  } else if (below == edge_ || above_.contains(below)) {
    above_.insert(configured.window);
  } else {
    above_.erase(configured.window);
  }
  goAbove(configured.window, configured.override_redirect != 0);
}

// A window that is only moved about is none of its business. Another program that wants to be on top of everything is
// left alone: menus belong there, and two of that kind would never rest.
void X11Surface::goAbove(xcb_window_t window, bool isOnTop) {
  if (!isOnTop && above_.contains(window) && !isOwn(window)) {
    raiseSoon_.start();
  }
}

bool X11Surface::isOwn(xcb_window_t window) const {
  return window == edge_ || std::ranges::any_of(QGuiApplication::topLevelWindows(), [&](const QWindow* each) {
           return each->handle() != nullptr && each->winId() == window;
         });
}

}  // namespace tarnwell::standin
