#include <algorithm>
#include <stdexcept>

#include "app/Product.h"
#include "host/headless/HeadlessPlatform.h"
#include "kit/application/Application.h"
#include "kit/control/Window.h"
#include "scenarios/System.h"

namespace tarnwell::scenarios {
namespace {

class HeadlessSystem final : public System {
 public:
  kit::Platform& platform() override { return platform_; }
  host_headless::HeadlessUpdater& updater() override { return platform_.updater(); }
  host_headless::HeadlessLoginItem& loginItem() override { return platform_.loginItem(); }
  const std::vector<std::string>& journal() override { return platform_.journal().lines(); }

  void launch(kit::Application& application) override {
    platform_.launch(application, {.eventID = kit::openApplicationEvent});
    settle();
  }
  void settle() override { platform_.runUntilIdle(application()); }

  std::vector<std::string> entries(const std::string& menu) override {
    std::vector<std::string> lines;
    for (const auto& item : opened(menu).items()) {
      const bool canBeChosen = item->isSeparator() || application().responders().canChoose(*item);
      const std::string title = item->isSeparator() ? "-" : item->title();
      lines.push_back(canBeChosen ? title : "(" + title + ")");
    }
    return lines;
  }

  void choose(const std::string& menu, const std::string& entry) override {
    if (menu == icon) {
      platform_.setMenuScript([entry](host_headless::OpenMenu& open) { open.choose(entry); });
      platform_.statusItems().at(0)->mouseUp(kit::Event::Type::leftMouseUp);
    } else {
      application().responders().choose(titled(entry, opened(menu)));
    }
    settle();
  }

  void pressCommand(char key) override {
    application().responders().performKeyEquivalent(
        {.charactersIgnoringModifiers = std::string(1, key), .modifierFlags = kit::commandFlag});
    settle();
  }

  void closeWindow(kit::Window& window) override {
    window.performClose();
    settle();
  }

  bool isOnScreen(const kit::Window& window) override { return window.isVisible(); }
  kit::Size sizeOf(const kit::Window& window) override { return window.contentSize(); }
  bool aboutIsShown() override { return aboutPanels() > closedPanels_; }
  void closeAbout() override { closedPanels_ = aboutPanels(); }

  std::string openedAddress() override {
    const std::string start = "open ";
    std::string opened;
    for (; seen_ < journal().size(); ++seen_) {
      if (journal()[seen_].starts_with(start)) {
        opened += journal()[seen_].substr(start.size());
      }
    }
    return opened;
  }

  void reopen() override {
    application().reopen();
    settle();
  }
  void end() override { platform_.end(application()); }
  bool endsBy(const std::function<void()>& action) override {
    action();
    return platform_.hasTerminated();
  }

 private:
  static kit::Application& application() { return kit::Application::shared(); }

  const kit::Menu& opened(const std::string& title) {
    if (title == icon) {
      platform_.setMenuScript({});
      platform_.statusItems().at(0)->mouseUp(kit::Event::Type::leftMouseUp);
      return *platform_.statusItems().at(0)->menu();
    }
    return *titled(title, *platform_.shownMainMenu())->submenu();
  }

  static std::shared_ptr<kit::MenuItem> titled(const std::string& title, const kit::Menu& menu) {
    const auto found = std::ranges::find(menu.items(), title, [](const auto& item) { return item->title(); });
    if (found == menu.items().end()) {
      throw std::invalid_argument("there is no entry " + title);
    }
    return *found;
  }

  long aboutPanels() { return std::ranges::count(journal(), "about panel"); }

  host_headless::HeadlessPlatform platform_{app::product()};
  std::size_t seen_ = 0;
  long closedPanels_ = 0;
};

}  // namespace

std::unique_ptr<System> makeSystem() { return std::make_unique<HeadlessSystem>(); }

}  // namespace tarnwell::scenarios
