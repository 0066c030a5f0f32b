#pragma once

#include <functional>
#include <vector>

#include "host/headless/Journal.h"
#include "host/headless/OpenMenu.h"
#include "kit/application/StatusItem.h"

namespace tarnwell::host_headless {

/// What the user does with an open menu; it has closed when this returns.
using MenuScript = std::function<void(OpenMenu&)>;

/// An icon that is only told about, and whose menu a script uses.
class HeadlessStatusItemPeer final : public kit::StatusItemPeer {
 public:
  /// What all icons of a platform share.
  struct StatusBar {
    std::vector<kit::StatusItem*> items = {};
    MenuScript script = {};
  };

  /// All are borrowed.
  HeadlessStatusItemPeer(Journal& journal, StatusBar& bar, kit::StatusItem& item);
  ~HeadlessStatusItemPeer() override;

  void popUp(kit::Menu& menu) override;
  void menuChanged() override { note(item_.menu() ? "menu attached" : "menu detached"); }

 private:
  void note(const std::string& what) { journal_.note("status item \"" + item_.title() + "\": " + what); }

  Journal& journal_;
  StatusBar& bar_;
  kit::StatusItem& item_;
  kit::Subscription imageChanges_;
};

}  // namespace tarnwell::host_headless
