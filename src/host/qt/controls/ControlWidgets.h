#pragma once

#include "kit/host/AnyControl.h"

class QWidget;

namespace tarnwell::host_qt {

class Theme;

// The widgets of the controls that need no more than a WidgetPeer. The parent has them.

QWidget* makeWidget(kit::Box& box, const Theme& theme, QWidget* parent);
QWidget* makeWidget(kit::Button& button, const Theme& theme, QWidget* parent);
QWidget* makeWidget(kit::Pane& pane, const Theme& theme, QWidget* parent);
QWidget* makeWidget(kit::ProgressBar& bar, const Theme& theme, QWidget* parent);
QWidget* makeWidget(kit::Slider& slider, const Theme& theme, QWidget* parent);
QWidget* makeWidget(kit::Stepper& stepper, const Theme& theme, QWidget* parent);
QWidget* makeWidget(kit::SymbolView& symbol, const Theme& theme, QWidget* parent);
QWidget* makeWidget(kit::TabBar& bar, const Theme& theme, QWidget* parent);
QWidget* makeWidget(kit::TextField& field, const Theme& theme, QWidget* parent);
QWidget* makeWidget(kit::TextLabel& label, const Theme& theme, QWidget* parent);
QWidget* makeWidget(kit::Toggle& toggle, const Theme& theme, QWidget* parent);

}  // namespace tarnwell::host_qt
