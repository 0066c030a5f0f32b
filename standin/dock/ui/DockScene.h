#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "standin/dock/DockBehavior.h"
#include "standin/dock/model/Desk.h"
#include "standin/dock/motion/ScrollGesture.h"
#include "standin/dock/ui/DockMenu.h"
#include "standin/dock/ui/DockWidget.h"
#include "standin/dock/ui/DocumentWindow.h"
#include "standin/dock/ui/EffectOverlay.h"
#include "standin/dock/ui/SpreadOverlay.h"
#include "standin/dock/ui/surface/Surface.h"

namespace tarnwell::standin {

/// The dock, the windows of its demonstration applications, and what they do to each other.
class DockScene {
 public:
  DockScene(Surface& surface, const DockBehavior& behavior, Scheme scheme, std::string deskPath);
  DockScene(const DockScene&) = delete;
  DockScene& operator=(const DockScene&) = delete;
  ~DockScene();

  void setScheme(Scheme scheme);

 private:
  /// What an item of the dock stands for; nothing of it for separator and trash.
  struct Meaning {
    std::optional<std::size_t> application = {};
    std::optional<DocumentId> document = {};
  };

  void lowerWindows();

  // Brings items and windows in line with the desk, and keeps the desk.
  void show();
  void save() const;
  void showItems();
  void showWindow(DocumentId id);
  DocumentWindow& window(DocumentId id);
  std::unique_ptr<DocumentWindow> makeWindow(DocumentId id);
  DockItem applicationItem(std::size_t application) const;
  DockItem documentItem(DocumentId id);

  void click(std::size_t item);
  void open(std::size_t application, OthersOnActivation others);
  void activate(std::size_t application);
  void openMenu(std::size_t item);
  void scrollUp(std::size_t item);
  void spread(std::size_t application);

  void minimize(DocumentId id);
  void restore(DocumentId id);
  void travel(DocumentId id, QVariantAnimation::Direction direction, const QRect& icon, std::function<void()> arrived);
  QRect iconOf(DocumentId id) const;
  void comeBack(DocumentId id);
  void arrive();

  DockBehavior behavior_;
  Surface& surface_;
  std::string deskPath_;
  Desk desk_;
  std::vector<Bounce> bounces_;  // of the applications
  Scheme scheme_;
  std::vector<Meaning> meanings_;
  std::map<DocumentId, std::unique_ptr<DocumentWindow>> windows_;
  std::optional<DocumentId> travelling_;  // on its way into the dock or out of it
  ScrollGesture scrolling_;
  EffectOverlay effect_;
  SpreadOverlay spread_;
  DockWidget dock_;
  std::unique_ptr<DockMenu> menu_;  // the one that was opened last
};

}  // namespace tarnwell::standin
