#include "host/qt/Desktop.h"

#include <gtest/gtest.h>

#include <QtWidgets/QApplication>
#include <QtWidgets/QMenuBar>
#include <array>

#include "fixtures/WaitFor.h"
#include "host/qt/WidgetDriver.h"
#include "host/qt/bus/PrivateBus.h"
#include "host/qt/menus/MenuWidget.h"
#include "kit/ports/Updater.h"

namespace tarnwell::host_qt {
namespace {

std::unique_ptr<PrivateBus> bus;
std::unique_ptr<QtApplication> toolkit;

class ToolkitOfTheTests final : public testing::Environment {
 public:
  void SetUp() override {
    static std::string name = "test";
    static std::array<char*, 2> arguments = {name.data(), nullptr};
    bus = std::make_unique<PrivateBus>();
    toolkit = QtApplication::create(1, arguments.data());
    ASSERT_NE(toolkit, nullptr);
  }
  void TearDown() override {
    toolkit.reset();
    bus.reset();
  }
};

[[maybe_unused]] const auto* const environment = testing::AddGlobalTestEnvironment(new ToolkitOfTheTests);

QtPlatform::Services services(kit::LoginItem& loginItem, kit::Log& log) {
  return {.product = {.name = "Tarnwell",
                      .identifier = "example.tarnwell.Tarnwell",
                      .version = "1.2.3",
                      .copyright = "© Example"},
          .loginItem = &loginItem,
          .log = &log,
          .menuWindow = Desktop::menuWindow};
}

}  // namespace

QtApplication& testApplication() { return *toolkit; }

bool becomes(const std::function<bool()>& condition) {
  return fixtures::waitFor([&condition] {
    driver::settle();
    return condition();
  });
}

Desktop::Desktop()
    : loginItem_(journal_),
      platform_(testApplication(), services(loginItem_, log_)),
      application_(kit::Application::create(platform_)) {
  platform_.showMainMenu(*application_);
}

Desktop::~Desktop() {
  if (window_) {
    application_->windows().remove(*window_);
    window_->setControls({});
    controls_.clear();
    window_.reset();
  }
  driver::settle();
}

std::shared_ptr<kit::Menu> Desktop::addMenu(const std::string& title,
                                            std::vector<std::shared_ptr<kit::MenuItem>> items) {
  auto menu = std::make_shared<kit::Menu>(title);
  menu->setItems(std::move(items));
  application_->mainMenu().addItem(kit::MenuItem::withSubmenu(title, menu));
  return menu;
}

kit::Window& Desktop::window() {
  if (!window_) {
    window_ = std::make_unique<kit::Window>(menuWindow, "Settings");
    window_->setContentSize({.width = 600, .height = 300});
    window_->attach(platform_.host().peer(*window_));
    application_->windows().add(*window_);
  }
  return *window_;
}

void Desktop::showWindow() {
  window().setVisible(true);
  ASSERT_TRUE(becomes([this] { return driver::widget(window()).isActiveWindow(); }));
}

QMenuBar& Desktop::menuBar() { return *driver::widget(window()).findChild<QMenuBar*>(); }

QMenu& Desktop::menu(int index) { return *menuBar().actions().at(index)->menu(); }

void Desktop::put(std::unique_ptr<kit::Control> control, const kit::Rect& frame) {
  control->setFrame(frame);
  control->joinTurn(application_->turn());
  control->attach(control->makePeer(platform_.host(), *window().peer()));
  std::vector<kit::Control*> order = window().controls();
  order.push_back(control.get());
  controls_.push_back(std::move(control));
  window().setControls(std::move(order));
}

std::shared_ptr<kit::MenuItem> entry(const std::string& title, kit::Action handler, kit::MenuItem::KeyEquivalent key) {
  auto item = kit::MenuItem::create(title, {}, {});
  item->setHandler(std::move(handler));
  item->setKeyEquivalent(std::move(key));
  return item;
}

std::vector<std::string> linesOf(const QMenu& menu) {
  std::vector<std::string> lines;
  for (const QAction* action : menu.actions()) {
    const auto* ours = dynamic_cast<const MenuWidget*>(&menu);
    const QString keys = ours != nullptr ? ours->keysOf(*action) : QString();
    const QString text = keys.isEmpty() ? action->text() : action->text() + '|' + keys;
    const QString shown = action->isEnabled() ? text : '(' + text + ')';
    lines.push_back(action->isSeparator() ? "-" : shown.toStdString());
  }
  return lines;
}

}  // namespace tarnwell::host_qt
