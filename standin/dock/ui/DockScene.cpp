#include "standin/dock/ui/DockScene.h"

#include <QtGui/QGuiApplication>
#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdio>
#include <fstream>
#include <utility>

#include "system/files/Folders.h"
#include "system/files/ReadFile.h"

namespace tarnwell::standin {
namespace {

// Many times what becomes of eight applications.
constexpr std::size_t longestDesk = 65536;

Reveal makeReveal(const DockBehavior& behavior) {
  return {Reveal::Seconds(behavior.autohideDelay), Reveal::Seconds(behavior.autohideTimeModifier),
          Reveal::Clock::now()};
}

// In slow motion where Shift is held.
std::chrono::milliseconds effectDuration() {
  constexpr std::chrono::milliseconds usual{420};
  constexpr int slower = 8;
  return QGuiApplication::keyboardModifiers().testFlag(Qt::ShiftModifier) ? usual * slower : usual;
}

}  // namespace

DockScene::DockScene(Surface& surface, const DockBehavior& behavior, Scheme scheme, std::string deskPath)
    : behavior_(behavior),
      surface_(surface),
      deskPath_(std::move(deskPath)),
      bounces_(desk_.applications().size()),
      scheme_(scheme),
      effect_(surface),
      spread_(surface, scrolling_),
      dock_(surface, makeReveal(behavior), scrolling_,
            {.click = [this](std::size_t item) { click(item); },
             .menu = [this](std::size_t item) { openMenu(item); },
             .scrollUp = [this](std::size_t item) { scrollUp(item); }}) {
  if (const auto text = system::readFile(deskPath_, longestDesk)) {
    desk_.restoreFrom(*text);
  }
  dock_.setScheme(scheme);
  show();
  lowerWindows();
  dock_.greet();
}

DockScene::~DockScene() { surface_.reset(); }

// The program that is in use when the dock starts stays in front.
void DockScene::lowerWindows() {
  // The first one ends up below all the others.
  std::for_each(windows_.rbegin(), windows_.rend(), [](const auto& each) { each.second->lower(); });
}

void DockScene::setScheme(Scheme scheme) {
  scheme_ = scheme;
  dock_.setScheme(scheme);
  for (const auto& [key, window] : windows_) {
    window->setScheme(scheme);
  }
  showItems();
}

void DockScene::show() {
  for (std::size_t application = 0; application < desk_.applications().size(); ++application) {
    for (std::size_t document = 0; document < desk_.applications()[application].documents.size(); ++document) {
      showWindow({application, document});
    }
  }
  showItems();
  save();
}

// The applications outlive the dock, as real ones do. It may be killed at any time, so that a file is either whole or
// not there; one that cannot be written costs nothing but the places of a few windows.
void DockScene::save() const {
  if (!system::makeFolders(system::folderOf(deskPath_))) {
    return;
  }
  const std::string fresh = deskPath_ + ".new";
  std::ofstream file(fresh);
  file << desk_.text();
  file.close();
  if (file) {
    (void)std::rename(fresh.c_str(), deskPath_.c_str());
  }
}

void DockScene::showWindow(DocumentId id) {
  const bool isVisible = desk_.isVisible(id) && travelling_ != id;
  if (isVisible) {
    window(id).show();
  } else if (const auto found = windows_.find(id); found != windows_.end() && travelling_ != id) {
    found->second->hide();
  }
}

DocumentWindow& DockScene::window(DocumentId id) {
  auto& window = windows_[id];
  if (!window) {
    window = makeWindow(id);
  }
  return *window;
}

std::unique_ptr<DocumentWindow> DockScene::makeWindow(DocumentId id) {
  const Document& document = desk_.document(id);
  auto made = std::make_unique<DocumentWindow>(
      surface_,
      DocumentWindow::Content{.application = desk_.applications()[id.application].id,
                              .variant = static_cast<int>(id.document),
                              .title = QString::fromStdString(document.title)},
      DocumentWindow::Actions{.minimize = [this, id] { minimize(id); },
                              .close =
                                  [this, id] {
                                    desk_.close(id);
                                    show();
                                  },
                              .hide =
                                  [this, id] {
                                    desk_.hide(id.application);
                                    show();
                                  },
                              .moved =
                                  [this, id] {
                                    const QPoint place = window(id).pos() - surface_.area().topLeft();
                                    desk_.move(id, {static_cast<double>(place.x()), static_cast<double>(place.y())});
                                    save();
                                  }});
  made->setScheme(scheme_);
  const QRect area = surface_.area();
  const int right = std::max(area.width() - made->width(), 0);
  const int bottom = std::max(area.height() - made->height(), 0);
  made->move(area.x() + std::clamp(static_cast<int>(document.place.x), 0, right),
             area.y() + std::clamp(static_cast<int>(document.place.y), 0, bottom));
  return made;
}

void DockScene::showItems() {
  meanings_.clear();
  std::vector<DockItem> items;
  const auto add = [&](DockItem item, Meaning meaning) {
    items.push_back(std::move(item));
    meanings_.push_back(meaning);
  };
  for (std::size_t i = 0; i < desk_.applications().size(); ++i) {
    if (desk_.applications()[i].isRunning || !behavior_.staticOnly) {
      add(applicationItem(i), {.application = i});
    }
  }
  add({.kind = DockItem::Kind::separator}, {});
  for (const DocumentId id : desk_.minimized()) {
    add(documentItem(id), {.document = id});
  }
  add({.kind = DockItem::Kind::trash, .icon = "trash", .label = QStringLiteral("Trash")}, {});
  dock_.setItems(std::move(items));
}

DockItem DockScene::applicationItem(std::size_t application) const {
  const DemoApplication& shown = desk_.applications()[application];
  return {.kind = DockItem::Kind::application,
          .icon = shown.id,
          .label = QString::fromStdString(shown.name),
          .isRunning = shown.isRunning,
          .isDimmed = shown.isHidden && behavior_.showHidden,
          .bounce = bounces_[application]};
}

DockItem DockScene::documentItem(DocumentId id) {
  return {.kind = DockItem::Kind::window,
          .icon = desk_.applications()[id.application].id,
          .label = QString::fromStdString(desk_.document(id).title),
          .picture = travelling_ == id ? QPixmap() : window(id).picture()};
}

void DockScene::click(std::size_t item) {
  const Meaning meaning = meanings_[item];
  if (spread_.isOpen()) {
    return spread_.close();
  }
  if (meaning.document) {
    restore(*meaning.document);
  } else if (meaning.application) {
    activate(*meaning.application);
  }
}

void DockScene::open(std::size_t application, OthersOnActivation others) {
  if (!desk_.applications()[application].isRunning) {
    bounces_[application] = Bounce(Bounce::Clock::now());
  }
  desk_.activate(application, others);
}

void DockScene::activate(std::size_t application) {
  open(application, behavior_.singleApp ? OthersOnActivation::hide : OthersOnActivation::stay);
  show();
  for (std::size_t i = 0; i < desk_.applications()[application].documents.size(); ++i) {
    if (desk_.isVisible({application, i})) {
      window({application, i}).activate();
    }
  }
  surface_.raiseDock();
}

void DockScene::openMenu(std::size_t item) {
  const auto application = meanings_[item].application;
  if (!application || spread_.isOpen()) {
    return;
  }
  const DemoApplication& shown = desk_.applications()[*application];
  menu_ = std::make_unique<DockMenu>(surface_, Look::of(scheme_));
  const auto addAction = [&](const char* text, auto&& action) {
    menu_->addAction(QString::fromUtf8(text), [this, action] {
      action();
      show();
    });
  };
  const std::size_t which = *application;
  if (!shown.isRunning) {
    addAction("Open", [this, which] { open(which, OthersOnActivation::stay); });
  } else {
    if (shown.isHidden) {
      addAction("Show", [this, which] { desk_.activate(which, OthersOnActivation::stay); });
    } else {
      addAction("Hide", [this, which] { desk_.hide(which); });
    }
    addAction("Quit", [this, which] { desk_.quit(which); });
  }
  dock_.hold();
  QObject::connect(menu_.get(), &QMenu::aboutToHide, &dock_, [this] { dock_.release(); });
  const QRect icon = dock_.iconPlace(item);
  constexpr int gap = 28;  // over an icon that has grown
  menu_->openAbove(QPoint(icon.center().x(), icon.top() - gap));
}

void DockScene::scrollUp(std::size_t item) {
  if (spread_.isOpen()) {
    spread_.close();
  } else if (const auto application = meanings_[item].application; application && behavior_.scrollToOpen) {
    spread(*application);
  }
}

void DockScene::spread(std::size_t application) {
  if (!desk_.applications()[application].isRunning || travelling_) {
    return;
  }
  desk_.activate(application, OthersOnActivation::stay);
  show();
  std::vector<SpreadOverlay::Window> windows;
  std::vector<DocumentId> ids;
  for (std::size_t i = 0; i < desk_.applications()[application].documents.size(); ++i) {
    const DocumentId id{application, i};
    if (desk_.isVisible(id)) {
      windows.push_back({window(id).geometry(), window(id).picture(), window(id).windowTitle()});
      ids.push_back(id);
    }
  }
  const QPixmap behind = spread_.isVisible() ? spread_.behind() : dock_.pictureWithout();
  dock_.hold();
  spread_.open(std::move(windows), behind, [this, ids](std::optional<std::size_t> chosen) {
    dock_.uncover();
    dock_.release();
    if (chosen && desk_.isVisible(ids[*chosen])) {
      window(ids[*chosen]).activate();
    }
  });
  dock_.cover(spread_.backdrop(dock_.geometry()));
}

void DockScene::minimize(DocumentId id) {
  if (travelling_ || spread_.isVisible() || !desk_.isVisible(id)) {
    return;
  }
  travelling_ = id;
  desk_.minimize(id);
  dock_.hold();
  show();
  travel(id, QVariantAnimation::Forward, iconOf(id), [this] {
    arrive();
    effect_.hide();
  });
  window(id).hide();
}

void DockScene::restore(DocumentId id) {
  if (travelling_) {
    return;
  }
  const QRect icon = iconOf(id);
  travelling_ = id;
  desk_.restore(id);
  dock_.hold();
  show();
  travel(id, QVariantAnimation::Backward, icon, [this, id] { comeBack(id); });
}

void DockScene::travel(DocumentId id, QVariantAnimation::Direction direction, const QRect& icon,
                       std::function<void()> arrived) {
  effect_.start(window(id).picture(),
                {.effect = behavior_.minimizeEffect,
                 .window = window(id).geometry(),
                 .icon = icon,
                 .direction = direction,
                 .duration = effectDuration()},
                std::move(arrived));
}

void DockScene::comeBack(DocumentId id) {
  if (!desk_.isVisible(id)) {
    // Its application was hidden or quit meanwhile.
    arrive();
    return effect_.hide();
  }
  // The picture stays until the window itself is there.
  DocumentWindow& shown = window(id);
  shown.onPainted([this] { effect_.hide(); });
  arrive();
  shown.activate();
}

void DockScene::arrive() {
  travelling_.reset();
  dock_.release();
  show();
}

QRect DockScene::iconOf(DocumentId id) const {
  const auto found = std::ranges::find(meanings_, std::optional(id), &Meaning::document);
  return dock_.iconPlace(static_cast<std::size_t>(found - meanings_.begin()));
}

}  // namespace tarnwell::standin
