#include "standin/dock/ui/Display.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <functional>
#include <numeric>
#include <stdexcept>

#include "fixtures/WaitFor.h"

namespace tarnwell::standin {
namespace {

struct FreeReply {
  void operator()(void* reply) const { std::free(reply); }
};
template <class T>
using Reply = std::unique_ptr<T, FreeReply>;

}  // namespace

Display::Display(int wide, int high) {
  // The server chooses a number that is free, and says it once it can be used.
  server_.emplace(Words{"/bin/sh", "-c",
                        "exec /usr/bin/Xvfb -displayfd 3 -screen 0 " + std::to_string(wide) + "x" +
                            std::to_string(high) + "x24 -nolisten tcp 3>" + (folder_ / "number").string()},
                  Words{"PATH=/usr/bin:/bin"});
  if (!fixtures::waitFor([this] { return folder_.read("number").ends_with('\n'); })) {
    throw std::runtime_error("no display");
  }
  name_ = ":" + std::to_string(std::stoi(folder_.read("number")));
  connection_.reset(xcb_connect(name_.c_str(), nullptr));
  root_ = xcb_setup_roots_iterator(xcb_get_setup(connection_.get())).data->root;
}

Colors Display::colors(int x, int y, int wide, int high) const {
  const auto asked = xcb_get_image(connection_.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, root_, static_cast<std::int16_t>(x),
                                   static_cast<std::int16_t>(y), static_cast<std::uint16_t>(wide),
                                   static_cast<std::uint16_t>(high), ~0U);
  const Reply<xcb_get_image_reply_t> image(xcb_get_image_reply(connection_.get(), asked, nullptr));
  if (!image) {
    throw std::runtime_error("no picture of the screen");
  }
  const auto* first = reinterpret_cast<const std::uint32_t*>(xcb_get_image_data(image.get()));
  Colors colors(first, first + static_cast<std::ptrdiff_t>(wide) * high);
  for (std::uint32_t& color : colors) {
    color &= 0xffffffU;
  }
  return colors;
}

bool Display::isPointerAtLine(int y) const {
  const Reply<xcb_query_pointer_reply_t> pointer(
      xcb_query_pointer_reply(connection_.get(), xcb_query_pointer(connection_.get(), root_), nullptr));
  return pointer && pointer->root_y == y;
}

void Display::act(const std::string& words) const {
  const Outcome outcome = run({"/bin/sh", "-c", "exec xdotool " + words}, {"PATH=/usr/bin:/bin", "DISPLAY=" + name_});
  if (outcome.status != 0) {
    throw std::runtime_error("xdotool " + words + ": " + outcome.errors);
  }
}

xcb_window_t Display::openWindow(int x, int y, int wide, int high, std::uint32_t color) {
  return open(x, y, wide, high, color, Kind::window);
}

xcb_window_t Display::openMenu(int x, int y, int wide, int high, std::uint32_t color) {
  return open(x, y, wide, high, color, Kind::menu);
}

xcb_window_t Display::open(int x, int y, int wide, int high, std::uint32_t color, Kind kind) {
  const xcb_window_t window = xcb_generate_id(connection_.get());
  const std::array<std::uint32_t, 3> values = {color, kind == Kind::menu ? 1U : 0U, XCB_EVENT_MASK_BUTTON_PRESS};
  xcb_create_window(connection_.get(), XCB_COPY_FROM_PARENT, window, root_, static_cast<std::int16_t>(x),
                    static_cast<std::int16_t>(y), static_cast<std::uint16_t>(wide), static_cast<std::uint16_t>(high), 0,
                    XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                    XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, values.data());
  xcb_map_window(connection_.get(), window);
  xcb_flush(connection_.get());
  return window;
}

void Display::raise(xcb_window_t window) {
  constexpr std::uint32_t above = XCB_STACK_MODE_ABOVE;
  xcb_configure_window(connection_.get(), window, XCB_CONFIG_WINDOW_STACK_MODE, &above);
  xcb_flush(connection_.get());
}

void Display::focus(xcb_window_t window) {
  xcb_set_input_focus(connection_.get(), XCB_INPUT_FOCUS_POINTER_ROOT, window, XCB_CURRENT_TIME);
  xcb_flush(connection_.get());
}

xcb_window_t Display::focused() const {
  const Reply<xcb_get_input_focus_reply_t> reply(
      xcb_get_input_focus_reply(connection_.get(), xcb_get_input_focus(connection_.get()), nullptr));
  return reply ? reply->focus : xcb_window_t{XCB_WINDOW_NONE};
}

bool Display::wasPressed() {
  bool isPressed = false;
  while (const Reply<xcb_generic_event_t> event{xcb_poll_for_event(connection_.get())}) {
    isPressed = isPressed || (event->response_type & 0x7f) == XCB_BUTTON_PRESS;
  }
  return isPressed;
}

void Display::disconnectOwnerOfEdge() {
  const Reply<xcb_query_tree_reply_t> tree(
      xcb_query_tree_reply(connection_.get(), xcb_query_tree(connection_.get(), root_), nullptr));
  const xcb_window_t* windows = xcb_query_tree_children(tree.get());
  const xcb_window_t* end = windows + xcb_query_tree_children_length(tree.get());
  const xcb_window_t* edge = std::find_if(windows, end, [&](xcb_window_t each) { return isEdge(each); });
  if (edge == end) {
    throw std::runtime_error("no window along the lower edge");
  }
  xcb_kill_client(connection_.get(), *edge);
  xcb_flush(connection_.get());
}

void Display::dropEscapeKey() {
  constexpr xcb_keysym_t escape = 0xff1b;
  const xcb_setup_t* setup = xcb_get_setup(connection_.get());
  const auto count = static_cast<std::uint8_t>(setup->max_keycode - setup->min_keycode + 1);
  const Reply<xcb_get_keyboard_mapping_reply_t> mapping(xcb_get_keyboard_mapping_reply(
      connection_.get(), xcb_get_keyboard_mapping(connection_.get(), setup->min_keycode, count), nullptr));
  xcb_keysym_t* symbols = xcb_get_keyboard_mapping_keysyms(mapping.get());
  std::replace(symbols, symbols + xcb_get_keyboard_mapping_keysyms_length(mapping.get()), escape,
               xcb_keysym_t{XCB_NO_SYMBOL});
  xcb_change_keyboard_mapping(connection_.get(), count, setup->min_keycode, mapping->keysyms_per_keycode, symbols);
  xcb_flush(connection_.get());
}

std::uint32_t Display::atom(const std::string& name) const {
  const auto asked = xcb_intern_atom(connection_.get(), 0, static_cast<std::uint16_t>(name.size()), name.data());
  const Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection_.get(), asked, nullptr));
  return reply ? reply->atom : std::uint32_t{XCB_ATOM_NONE};
}

std::vector<std::uint32_t> Display::property(const std::string& title, const std::string& name) const {
  constexpr std::uint32_t longest = 16;
  const Reply<xcb_query_tree_reply_t> tree(
      xcb_query_tree_reply(connection_.get(), xcb_query_tree(connection_.get(), root_), nullptr));
  for (int i = 0; tree && i < xcb_query_tree_children_length(tree.get()); ++i) {
    const xcb_window_t window = xcb_query_tree_children(tree.get())[i];
    const Reply<xcb_get_property_reply_t> found(xcb_get_property_reply(
        connection_.get(),
        xcb_get_property(connection_.get(), 0, window, atom(name), XCB_GET_PROPERTY_TYPE_ANY, 0, longest), nullptr));
    if (this->title(window) == title && found && found->format == 32) {
      const auto* first = static_cast<const std::uint32_t*>(xcb_get_property_value(found.get()));
      return {first, first + found->value_len};
    }
  }
  return {};
}

int Display::windowCount(const std::string& title) const {
  const Reply<xcb_query_tree_reply_t> tree(
      xcb_query_tree_reply(connection_.get(), xcb_query_tree(connection_.get(), root_), nullptr));
  int count = 0;
  for (int i = 0; tree && i < xcb_query_tree_children_length(tree.get()); ++i) {
    const xcb_window_t window = xcb_query_tree_children(tree.get())[i];
    count += this->title(window) == title && isMapped(window) ? 1 : 0;
  }
  return count;
}

bool Display::isMapped(xcb_window_t window) const {
  const Reply<xcb_get_window_attributes_reply_t> attributes(xcb_get_window_attributes_reply(
      connection_.get(), xcb_get_window_attributes(connection_.get(), window), nullptr));
  return attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE;
}

bool Display::isEdge(xcb_window_t window) const {
  const Reply<xcb_get_window_attributes_reply_t> attributes(xcb_get_window_attributes_reply(
      connection_.get(), xcb_get_window_attributes(connection_.get(), window), nullptr));
  const Reply<xcb_get_geometry_reply_t> place(
      xcb_get_geometry_reply(connection_.get(), xcb_get_geometry(connection_.get(), window), nullptr));
  return attributes && place && attributes->_class == XCB_WINDOW_CLASS_INPUT_ONLY && place->width == width &&
         place->y + place->height == height;
}

std::string Display::title(xcb_window_t window) const {
  constexpr std::uint32_t longest = 64;
  const Reply<xcb_get_property_reply_t> property(xcb_get_property_reply(
      connection_.get(),
      xcb_get_property(connection_.get(), 0, window, XCB_ATOM_WM_NAME, XCB_GET_PROPERTY_TYPE_ANY, 0, longest),
      nullptr));
  if (!property) {
    return "";
  }
  return {static_cast<const char*>(xcb_get_property_value(property.get())),
          static_cast<std::size_t>(xcb_get_property_value_length(property.get()))};
}

std::size_t differences(const Colors& left, const Colors& right) {
  return std::transform_reduce(left.begin(), left.end(), right.begin(), std::size_t{0}, std::plus<>(),
                               [](std::uint32_t a, std::uint32_t b) { return a == b ? 0U : 1U; });
}

}  // namespace tarnwell::standin
