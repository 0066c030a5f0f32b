#include "host/qt/Stage.h"

#include <gtest/gtest.h>

#include <QtWidgets/QApplication>
#include <array>
#include <string>

#include "fixtures/WaitFor.h"
#include "host/qt/WidgetDriver.h"
#include "host/qt/platform/QtApplication.h"

namespace tarnwell::host_qt {
namespace {

std::unique_ptr<QtApplication> applicationOfTests;

class ApplicationOfTheTests final : public testing::Environment {
 public:
  void SetUp() override {
    static std::string name = "test";
    static std::array<char*, 2> arguments = {name.data(), nullptr};
    applicationOfTests = QtApplication::create(1, arguments.data());
    ASSERT_NE(applicationOfTests, nullptr);
  }
  void TearDown() override { applicationOfTests.reset(); }
};

[[maybe_unused]] const auto* const registered = testing::AddGlobalTestEnvironment(new ApplicationOfTheTests);

}  // namespace

QtHost& testHost() { return applicationOfTests->host(); }

Stage::Stage() : window_(std::make_unique<kit::Window>("stage", "Stage")) {
  window_->setContentSize({.width = 400, .height = 300});
  window_->attach(testHost().peer(*window_));
}

Stage::~Stage() {
  clear();
  window_.reset();
  driver::settle();
}

void Stage::show() {
  window_->setVisible(true);
  const QWidget& widget = driver::widget(*window_);
  ASSERT_TRUE(fixtures::waitFor([&widget] {
    QApplication::processEvents();
    return widget.isActiveWindow();
  }));
}

void Stage::clear() {
  if (window_) {
    window_->setControls({});
  }
  // The inner ones first, as a tree of views goes.
  while (!controls_.empty()) {
    controls_.pop_back();
  }
}

void Stage::put(std::unique_ptr<kit::Control> control, const kit::Rect& frame, kit::Peer& parent) {
  control->setFrame(frame);
  control->attach(control->makePeer(testHost(), parent));
  std::vector<kit::Control*> order = window_->controls();
  order.push_back(control.get());
  controls_.push_back(std::move(control));
  window_->setControls(std::move(order));
}

}  // namespace tarnwell::host_qt
