#pragma once

#include <optional>
#include <string>

#include "kit/turn/Action.h"

class QWidget;

namespace tarnwell::host_qt {

class PanelCheckBox;

/// What the updater's panel shows at one time.
struct UpdatePage {
  struct Choice {
    std::string title = {};
    kit::Action chosen = {};
  };

  std::string heading = {};
  std::string message = {};
  // Between the texts and the buttons. The panel takes them over.
  QWidget* body = nullptr;
  PanelCheckBox* tick = nullptr;
  std::optional<Choice> defaultChoice = {};
  std::optional<Choice> otherChoice = {};
  std::optional<Choice> farChoice = {};  // At the other end of the row.
  /// What closing the panel means.
  kit::Action closed = {};
};

}  // namespace tarnwell::host_qt
