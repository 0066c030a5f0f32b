#pragma once

#include <memory>
#include <string>

#include <vector>

#include "kit/control/Accessible.h"

namespace tarnwell::kit {
class Control;
class Host;
class PopUpButton;
class Slider;
class Stepper;
class TabBar;
class TextField;
class Window;
}  // namespace tarnwell::kit

namespace tarnwell::scenarios {

enum class Key { enter, escape, tab, space };

/// "on" and "off", a number as short as it goes, a text; empty for none.
std::string inWords(const kit::AccessibleValue& value);

/// Acts on a host's controls the way its user does, and looks at them the way its user does.
class Driver {
 public:
  virtual ~Driver() = default;

  virtual kit::Host& host() = 0;

  virtual void click(kit::Control& control) = 0;
  /// Presses the knob, moves it to a place on the track as seen, 0 the left end and 1 the right one, and lets go.
  virtual void drag(kit::Slider& slider, double place) = 0;
  /// With the arrow keys, to the left where negative.
  virtual void nudge(kit::Slider& slider, int steps) = 0;
  /// Puts the text into the field and leaves it there, not committed.
  virtual void type(kit::TextField& field, const std::string& text) = 0;
  virtual void stepUp(kit::Stepper& stepper) = 0;
  virtual void stepDown(kit::Stepper& stepper) = 0;
  virtual void choose(kit::PopUpButton& button, int index) = 0;
  virtual void chooseTab(kit::TabBar& bar, int index) = 0;
  /// Gives the keyboard to `control` and presses the key.
  virtual void pressKey(kit::Window& window, kit::Control& control, Key key) = 0;

  /// To whatever has the keyboard there.
  virtual void pressKey(kit::Window& window, Key key) = 0;

  // As an assistive client, which knows of no pointer.

  virtual kit::Accessible look(kit::Control& control) = 0;
  virtual std::vector<kit::AccessiblePart> parts(kit::Control& control) = 0;
  virtual void perform(kit::Control& control, const kit::AccessibleRequest& request) = 0;
  /// Whether such a client is told how far an increment goes.
  virtual bool tellsSteps() { return true; }
};

/// The driver of the host that this test program is for.
std::unique_ptr<Driver> makeDriver();

}  // namespace tarnwell::scenarios
