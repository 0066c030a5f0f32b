#pragma once

#include <xcb/xcb.h>

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "fixtures/Sandbox.h"
#include "standin/Process.h"

namespace tarnwell::standin {

/// Colours of a part of the screen, line by line, without their unused byte.
using Colors = std::vector<std::uint32_t>;

/// A display of a test's own, without window manager, which is looked at from outside.
class Display {
 public:
  static constexpr int width = 1280;
  static constexpr int height = 800;

  explicit Display(int wide = width, int high = height);

  /// ":7" or the like.
  const std::string& name() const { return name_; }

  Colors colors(int x, int y, int wide, int high) const;
  std::uint32_t color(int x, int y) const { return colors(x, y, 1, 1).front(); }
  Colors everything() const { return colors(0, 0, width, height); }

  /// Whether the pointer is on a line of the screen.
  bool isPointerAtLine(int y) const;

  /// Does what the words say with mouse and keys, and waits for it.
  void act(const std::string& words) const;

  /// Opens a window of the test's own, of one colour and without a frame that a window manager would give it.
  xcb_window_t openWindow(int x, int y, int wide, int high, std::uint32_t color);

  /// One of the kind that menus are, which no window manager would touch.
  xcb_window_t openMenu(int x, int y, int wide, int high, std::uint32_t color);

  /// Puts one of those above all windows.
  void raise(xcb_window_t window);

  /// Gives the keyboard to one of those.
  void focus(xcb_window_t window);

  /// Which window has the keyboard.
  xcb_window_t focused() const;

  /// Closes the connection of the program whose invisible window lies along the lower edge.
  void disconnectOwnerOfEdge();

  /// Takes the Escape key from the keyboard.
  void dropEscapeKey();

  /// Whether a button of the mouse was pressed on one of those since the call before.
  bool wasPressed();

  /// The numbers in a property of the window of a title, whether it can be seen or not; nothing where it has none.
  std::vector<std::uint32_t> property(const std::string& title, const std::string& name) const;

  /// What number a name has there.
  std::uint32_t atom(const std::string& name) const;

  /// How many windows of a title can be seen.
  int windowCount(const std::string& title) const;

 private:
  struct Disconnect {
    void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
  };

  enum class Kind { window, menu };

  xcb_window_t open(int x, int y, int wide, int high, std::uint32_t color, Kind kind);
  bool isMapped(xcb_window_t window) const;
  bool isEdge(xcb_window_t window) const;
  std::string title(xcb_window_t window) const;

  fixtures::Sandbox folder_;
  std::optional<Process> server_;
  std::string name_;
  std::unique_ptr<xcb_connection_t, Disconnect> connection_;
  xcb_window_t root_ = 0;
};

/// In how many places two pictures of the same size differ.
std::size_t differences(const Colors& left, const Colors& right);

}  // namespace tarnwell::standin
