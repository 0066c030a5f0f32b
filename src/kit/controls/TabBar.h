#pragma once

#include <functional>
#include <vector>

#include "kit/controls/Control.h"

namespace tarnwell::kit {

/// The tabs of a settings window: a symbol over a title each, one of them chosen.
class TabBar final : public Control {
 public:
  struct Tab {
    std::string title = {};
    std::string symbol = {};
    friend bool operator==(const Tab&, const Tab&) = default;
  };
  using ChooseAction = std::function<void(int)>;

  const std::vector<Tab>& tabs() const { return tabs_; }
  void setTabs(std::vector<Tab> tabs);

  /// -1 while none is chosen.
  int selectedIndex() const { return selected_; }
  /// An index that is not a tab's is a fault.
  void setSelectedIndex(int index);

  void setAction(ChooseAction action) { action_ = std::move(action); }

  /// The user's doing. Choosing what is chosen already is no action.
  void choose(int index);
  /// The one that many tabs to the right, to the left where negative; the first follows the last.
  void chooseBeside(int distance);

  std::unique_ptr<Peer> makePeer(Host& host, Peer& parent) override;
  bool takesFocus() const override { return true; }
  std::vector<AccessiblePart> accessibleParts() const override;

 protected:
  Accessible ownAccessible() const override;
  void act(const AccessibleRequest& request) override { choose(request.part); }
  std::vector<Aspect> aspects() const override { return {Aspect::title, Aspect::value}; }

 private:
  ChooseAction action_;
  std::vector<Tab> tabs_;
  int selected_ = -1;
};

}  // namespace tarnwell::kit
