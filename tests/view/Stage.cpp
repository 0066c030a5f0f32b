#include "view/Stage.h"

#include <tuple>
#include <utility>

#include "host/headless/PointNumberFormat.h"
#include "view/Dump.h"
#include "view/state/State.h"
#include "view/tree/Composite.h"

namespace tarnwell::view {
namespace {

/// Shows a view that is exchanged from outside.
struct Slot {
  State<std::shared_ptr<const View>> content = {};
  std::shared_ptr<Binding<std::shared_ptr<const View>>> remote = {};

  auto stored() { return std::tie(content); }
  View body() const {
    *remote = content.binding();
    return *content.get();
  }
};

}  // namespace

Stage::Stage(const View& content, const EnvironmentValues& environment) {
  window_ = std::make_unique<HostedWindow>(
      turn_, host_,
      HostedWindow::Content{.identifier = "stage",
                            .title = "Stage",
                            .view = Slot{.content = std::make_shared<const View>(content), .remote = content_},
                            .environment = environment});
  told();
}

EnvironmentValues Stage::makeEnvironment() {
  return EnvironmentValues()
      .with<NumberFormatKey>(std::make_shared<host_headless::PointNumberFormat>())
      .with<ProductKey>({.webHost = "tarnwell.example"});
}

void Stage::show(const View& content) {
  turn_.perform([this, content] { content_->set(std::make_shared<const View>(content)); });
}

std::string Stage::dump() const { return view::dump(window_->tree().root()); }

bool Stage::has(const std::string& name) const {
  for (const kit::Control* control : window_->tree().controls()) {
    if (control->accessibleName() == name) {
      return true;
    }
  }
  return false;
}

Lines Stage::told() {
  Lines lines = host_.journal().lines();
  host_.journal().clear();
  return lines;
}

}  // namespace tarnwell::view
