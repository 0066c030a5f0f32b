#include "scenarios/QtStartedTarnwell.h"

#include <QtCore/QEvent>
#include <QtWidgets/QApplication>
#include <algorithm>
#include <utility>

#include "app/Product.h"
#include "host/headless/PointNumberFormat.h"
#include "host/qt/Desktop.h"
#include "host/qt/WidgetDriver.h"
#include "host/qt/window/WindowWidget.h"

namespace tarnwell::scenarios {

std::string QtStartedTarnwell::Runner::runCaptured(const std::string& /*commandLine*/) {
  if (const auto first = std::exchange(reading_, nullptr)) {
    first();
  }
  return "0\n";
}

QtStartedTarnwell::QtStartedTarnwell(std::chrono::milliseconds longestWait, std::function<void()> reading)
    : runner_([this, reading = std::move(reading)] {
        timeUntilReading_ = std::chrono::milliseconds(sinceStart_.elapsed());
        reading();
      }),
      platform_((sinceStart_.start(), host_qt::testApplication()),
                {.product = app::product(),
                 .numberFormat = std::make_shared<host_headless::PointNumberFormat>(),
                 .loginItem = &loginItem_,
                 .log = &log_,
                 .makeUpdaterController =
                     [this](auto&, const auto&) {
                       return std::make_unique<host_headless::HeadlessUpdaterController>(updater_);
                     },
                 .menuWindow = view::SceneRunner::settingsWindowIdentifier,
                 .longestWait = longestWait}),
      composition_(std::make_unique<app::Composition>(platform_, runner_)) {
  qApp->installEventFilter(this);
  composition_->install();
  platform_.launch(composition_->application());
}

QtStartedTarnwell::~QtStartedTarnwell() {
  composition_.reset();
  host_qt::driver::settle();
  platform_.host().theme().setColorScheme(std::nullopt);
}

bool QtStartedTarnwell::hasChangedItsLook() const {
  return std::ranges::any_of(pictures_, [this](const Picture& picture) { return picture != pictures_.front(); });
}

bool QtStartedTarnwell::showsSettings() {
  return host_qt::becomes([this] { return !pictures_.empty(); });
}

QWidget& QtStartedTarnwell::settings() {
  return host_qt::driver::widget(composition_->scenes().settingsWindow()->window());
}

bool QtStartedTarnwell::eventFilter(QObject* object, QEvent* event) noexcept {
  if (event->type() == QEvent::Paint) {
    if (const auto* window = dynamic_cast<host_qt::WindowWidget*>(object)) {
      pictures_.push_back({.size = window->size(), .isDark = window->palette().window().color().lightnessF() < 0.5F});
    }
  }
  return false;
}

}  // namespace tarnwell::scenarios
