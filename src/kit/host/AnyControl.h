#pragma once

#include <variant>

namespace tarnwell::kit {

class Box;
class Button;
class Pane;
class PopUpButton;
class ProgressBar;
class RichText;
class ScrollArea;
class Slider;
class Stepper;
class SymbolView;
class TabBar;
class TextField;
class TextLabel;
class Toggle;

/// A control of one of the kinds that hosts know; never null.
using AnyControl = std::variant<Box*, Button*, Pane*, PopUpButton*, ProgressBar*, RichText*, ScrollArea*, Slider*,
                                Stepper*, SymbolView*, TabBar*, TextField*, TextLabel*, Toggle*>;

}  // namespace tarnwell::kit
