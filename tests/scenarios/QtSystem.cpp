#include <QtCore/QTimer>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <algorithm>
#include <filesystem>
#include <stdexcept>

#include "app/Product.h"
#include "fixtures/EnvironmentScope.h"
#include "fixtures/Sandbox.h"
#include "host/headless/HeadlessLog.h"
#include "host/headless/Journal.h"
#include "host/headless/PointNumberFormat.h"
#include "host/qt/Desktop.h"
#include "host/qt/WidgetDriver.h"
#include "host/qt/platform/QtPlatform.h"
#include "host/qt/session/RunLater.h"
#include "host/qt/tray/FakePanel.h"
#include "scenarios/System.h"
#include "view/scenes/SceneRunner.h"

namespace tarnwell::scenarios {
namespace {

namespace driver = host_qt::driver;

constexpr int longestEnd = 10000;  // Milliseconds.

QMenuBar& menuBarOnScreen() {
  for (const QWidget* widget : QApplication::topLevelWidgets()) {
    auto* bar = widget->findChild<QMenuBar*>();
    if (bar != nullptr && bar->isVisible()) {
      return *bar;
    }
  }
  throw std::logic_error("no window on the screen carries a menu bar");
}

/// Null while there is none on the screen.
const QWidget* aboutWindowOnScreen() {
  const auto widgets = QApplication::topLevelWidgets();
  const auto found = std::ranges::find_if(
      widgets, [](const QWidget* widget) { return widget->isVisible() && widget->windowTitle() == "About Tarnwell"; });
  return found != widgets.end() ? *found : nullptr;
}

/// Without the keys that stand beside each title, which are a host's own affair.
std::vector<std::string> withoutKeys(std::vector<std::string> lines, const std::string& beforeKeys) {
  for (std::string& line : lines) {
    const bool disabled = line.starts_with('(');
    line = line.substr(0, line.find(beforeKeys));
    line += disabled && !line.ends_with(')') ? ")" : "";
  }
  return lines;
}

class QtSystem final : public System {
 public:
  QtSystem()
      : platform_(host_qt::testApplication(),
                  {.product = app::product(),
                   .numberFormat = std::make_shared<host_headless::PointNumberFormat>(),
                   .loginItem = &loginItem_,
                   .log = &log_,
                   .makeUpdaterController =
                       [this](auto&, const auto&) {
                         return std::make_unique<host_headless::HeadlessUpdaterController>(updater_);
                       },
                   .startAgainAtEnd = [this] { journal_.note("startAgainAtEnd"); },
                   .menuWindow = view::SceneRunner::settingsWindowIdentifier}) {
    browser_.write("xdg-open", "#!/bin/sh\necho \"$1\" >>'" + (browser_ / "opened").string() + "'\n");
    std::filesystem::permissions(browser_ / "xdg-open", std::filesystem::perms::owner_all);
  }
  QtSystem(const QtSystem&) = delete;
  QtSystem& operator=(const QtSystem&) = delete;
  ~QtSystem() override { driver::settle(); }

  kit::Platform& platform() override { return platform_; }
  host_headless::HeadlessUpdater& updater() override { return updater_; }
  host_headless::HeadlessLoginItem& loginItem() override { return loginItem_; }
  const std::vector<std::string>& journal() override { return journal_.lines(); }

  void launch(kit::Application& application) override {
    platform_.launch(application);
    if (!panel_.hasIcon()) {
      throw std::logic_error("no icon came to the panel");
    }
    if (!host_qt::becomes([&application] { return application.windows().keyWindow() != nullptr; })) {
      throw std::logic_error("no window opens");
    }
    settle();
  }

  void settle() override {
    if (!host_qt::becomes([] { return kit::Application::shared().events().isEmpty(); })) {
      throw std::logic_error("the application does not come to rest");
    }
  }

  std::vector<std::string> entries(const std::string& menu) override {
    if (menu == icon) {
      return withoutKeys(panel_.openMenu(), " [");
    }
    QMenu& shown = open(menu);
    auto lines = withoutKeys(host_qt::linesOf(shown), "|");
    shown.close();
    return lines;
  }

  void choose(const std::string& menu, const std::string& entry) override {
    if (menu == icon) {
      panel_.choose(entry);
    } else {
      QMenu& shown = open(menu);
      const auto titles = withoutKeys(host_qt::linesOf(shown), "|");
      const auto found = std::ranges::find(titles, entry);
      if (found == titles.end()) {
        shown.close();
        throw std::invalid_argument("there is no entry " + entry);
      }
      const auto index = static_cast<int>(found - titles.begin());
      QTest::mouseClick(shown.windowHandle(), Qt::LeftButton, {},
                        shown.actionGeometry(shown.actions().at(index)).center());
    }
    settle();
  }

  void pressCommand(char key) override {
    const QWidget& window = *menuBarOnScreen().window();
    if (!host_qt::becomes([&window] { return window.isActiveWindow(); })) {
      throw std::logic_error("the window does not come to the front");
    }
    QTest::keyClick(window.windowHandle(), key, Qt::ControlModifier);
    settle();
  }

  void closeWindow(kit::Window& window) override {
    driver::widget(window).close();
    settle();
  }

  bool isOnScreen(const kit::Window& window) override { return driver::widget(window).isVisible(); }

  kit::Size sizeOf(const kit::Window& window) override {
    const QSize size = driver::widget(window).size();
    return {.width = static_cast<double>(size.width()), .height = static_cast<double>(size.height())};
  }

  bool aboutIsShown() override { return aboutWindowOnScreen() != nullptr; }
  void closeAbout() override { driver::keyTo(*aboutWindowOnScreen(), Qt::Key_Escape); }

  std::string openedAddress() override {
    host_qt::becomes([this] { return browser_.read("opened").ends_with('\n'); });
    std::string opened = browser_.read("opened");
    std::filesystem::remove(browser_ / "opened");
    opened.erase(opened.find_last_not_of('\n') + 1);
    return opened;
  }

  void reopen() override {
    platform_.reopen({});
    settle();
  }
  void end() override { host_qt::testApplication().quit(); }
  bool endsBy(const std::function<void()>& action) override {
    QTimer tooLate;
    QObject::connect(&tooLate, &QTimer::timeout, [] { host_qt::testApplication().quit(EXIT_FAILURE); });
    tooLate.start(longestEnd);
    host_qt::runLater(tooLate, action);
    return host_qt::testApplication().run() == EXIT_SUCCESS;
  }

 private:
  static QMenu& open(const std::string& title) {
    for (const QAction* action : menuBarOnScreen().actions()) {
      if (action->text().remove('&').toStdString() == title) {
        action->menu()->popup({0, 0});
        return *action->menu();
      }
    }
    throw std::invalid_argument("there is no menu " + title);
  }

  const fixtures::Sandbox browser_;
  const fixtures::EnvironmentScope path_{"PATH", browser_.path().string() + ":/usr/bin:/bin"};
  host_headless::Journal journal_;
  host_headless::HeadlessUpdater updater_{journal_};
  host_headless::HeadlessLoginItem loginItem_{journal_};
  host_headless::HeadlessLog log_;
  host_qt::FakePanel panel_;
  host_qt::QtPlatform platform_;
};

}  // namespace

std::unique_ptr<System> makeSystem() { return std::make_unique<QtSystem>(); }

}  // namespace tarnwell::scenarios
