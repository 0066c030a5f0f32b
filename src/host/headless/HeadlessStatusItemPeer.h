#pragma once

#include <functional>
#include <string>
#include <vector>

#include "host/headless/Journal.h"
#include "kit/application/Application.h"
#include "kit/application/StatusItem.h"
#include "kit/menus/Menu.h"

namespace tarnwell::host_headless {

/// A menu that is on the screen, as its user sees it. Choosing an entry closes it.
class OpenMenu {
 public:
  /// Both are borrowed.
  OpenMenu(kit::Application& application, const kit::Menu& menu) : application_(application), menu_(menu) {}

  /// The entries in order, "-" for a separator.
  std::vector<std::string> titles() const;

  /// Chooses the first entry of that title; one that is not there is a fault of the test.
  void choose(const std::string& title);

  /// Presses a key. False when nothing answered.
  bool press(const kit::KeyEvent& key) { return application_.responders().performKeyEquivalent(key); }

 private:
  kit::Application& application_;
  const kit::Menu& menu_;
};

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
