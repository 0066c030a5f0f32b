#include "view/scenes/SceneRunner.h"

#include <algorithm>
#include <utility>

#include "kit/application/Platform.h"
#include "kit/application/StatusItem.h"
#include "kit/host/Host.h"
#include "view/controls/buttons/SettingsLink.h"
#include "view/tree/MountedNode.h"

namespace tarnwell::view {
namespace {

std::vector<CommandGroup> commandsOf(const std::vector<Scene>& scenes) {
  std::vector<CommandGroup> commands;
  for (const Scene& scene : scenes) {
    if (const auto* group = std::get_if<WindowGroup>(&scene)) {
      commands.insert(commands.end(), group->commands.begin(), group->commands.end());
    }
  }
  return commands;
}

}  // namespace

/// A status item with the menu that a view describes, made anew each time it is opened.
struct SceneRunner::Extra {
  Extra(kit::Application& application, const MenuBarExtra& scene, const EnvironmentValues& environment)
      : menu(std::make_shared<kit::Menu>(scene.title)),
        tree(application.turn(), *menu),
        item(application, kit::StatusItem::variableLength, scene.title) {
    application.turn().perform([&] { tree.mount(scene.content, environment); });
    menu->setOpenAction([this] { tree.root().markDirty(); });
    item.setMenu(menu);
    if (item.button()) {
      item.button()->setImage({.symbol = scene.systemImage, .accessibilityDescription = scene.title});
    }
  }

  std::shared_ptr<kit::Menu> menu;
  MountedTree tree;
  kit::StatusItem item;
};

SceneRunner::SceneRunner(kit::Application& application, const EnvironmentValues& environment)
    : application_(application),
      environment_(environment.with<OpenSettingsSceneKey>([this] { openSettings(); })
                       .with<DismissWindowKey>([this](const std::string& identifier) { dismissWindow(identifier); })) {}

SceneRunner::~SceneRunner() = default;

void SceneRunner::install(const std::vector<Scene>& scenes) {
  mainMenu_ = std::make_unique<MainMenu>(application_, commandsOf(scenes), environment_);
  for (const Scene& scene : scenes) {
    if (const auto* extra = std::get_if<MenuBarExtra>(&scene)) {
      extras_.push_back(std::make_unique<Extra>(application_, *extra, environment_));
    }
  }
  opening_ = application_.platform().whenReady([this, scenes] { open(scenes); });
}

void SceneRunner::openSettings() {
  if (!settingsContent_) {
    return;
  }
  if (!settings_) {
    settings_ =
        makeWindow(settingsWindowIdentifier, application_.platform().product().name + " Settings", *settingsContent_);
  }
  if (settings_->window().isVisible()) {
    settings_->window().peer()->orderFront();
  } else {
    openWindow(*settings_);
  }
}

void SceneRunner::dismissWindow(const std::string& identifier) {
  const auto found = std::ranges::find_if(
      groupWindows_, [&](const auto& hosted) { return hosted->window().identifier() == identifier; });
  if (found != groupWindows_.end()) {
    const std::shared_ptr<HostedWindow> hosted = *found;
    closeWindow(*hosted);
  }
}

void SceneRunner::open(const std::vector<Scene>& scenes) {
  const WindowGroup* first = nullptr;
  for (const Scene& scene : scenes) {
    if (const auto* settings = std::get_if<Settings>(&scene)) {
      settingsContent_ = settings->content;
    } else if (first == nullptr) {
      first = std::get_if<WindowGroup>(&scene);
    }
  }
  if (first != nullptr) {
    application_.turn().perform([&] {
      groupWindows_.push_back(makeWindow(first->id, {}, first->content));
      openWindow(*groupWindows_.back());
    });
  }
}

std::shared_ptr<HostedWindow> SceneRunner::makeWindow(const std::string& identifier, const std::string& title,
                                                      const View& content) {
  auto hosted = std::make_shared<HostedWindow>(
      application_.turn(), application_.platform().host(),
      HostedWindow::Content{.identifier = identifier, .title = title, .view = content, .environment = environment_});
  hosted->window().setCloseAction([this, weak = std::weak_ptr(hosted)] {
    if (const auto closing = weak.lock()) {
      closeWindow(*closing);
    }
  });
  return hosted;
}

void SceneRunner::openWindow(HostedWindow& hosted) {
  application_.turn().perform([&] {
    application_.windows().add(hosted.window());
    hosted.open();
  });
}

void SceneRunner::closeWindow(HostedWindow& hosted) {
  application_.turn().perform([&] {
    announceClosing(hosted.window());
    application_.windows().remove(hosted.window());
    hosted.close();
    const auto group = std::ranges::find_if(groupWindows_, [&](const auto& own) { return own.get() == &hosted; });
    if (group != groupWindows_.end()) {
      // Its own appear handler may be what closes it.
      application_.turn().releaseLater(*group);
      groupWindows_.erase(group);
    }
  });
}

void SceneRunner::announceClosing(kit::Window& window) {
  application_.notificationCenter().post({.name = kit::windowWillCloseNotification, .object = &window});
  if (const auto delegate = window.delegate()) {
    delegate->perform(kit::selectors::windowWillClose, &window);
  }
}

}  // namespace tarnwell::view
