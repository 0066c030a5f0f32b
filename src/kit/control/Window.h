#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "kit/host/Geometry.h"
#include "kit/host/KeyEvent.h"
#include "kit/host/WindowPeer.h"
#include "kit/turn/Action.h"
#include "kit/turn/Object.h"

namespace tarnwell::kit {

class Control;
class Host;
class Turn;
struct AccessibleRequest;

/// A window of the application: its size follows its content, never the user.
class Window final : public Object {
 public:
  static constexpr int normalLevel = 0;

  /// A panel is a dialog beside the application's other windows: it cannot be minimized, Escape closes it, and Return
  /// presses the button that has the keyboard before it presses the default one. That one has it at first, if the panel
  /// takes the keyboard, so that Space presses it; in any other window nothing has.
  enum class Kind { standard, panel };

  Window(std::string identifier, std::string title, Kind kind = Kind::standard);
  ~Window() override;

  /// Empty for none.
  const std::string& identifier() const { return identifier_; }
  const std::string& title() const { return title_; }

  Kind kind() const { return kind_; }

  /// What a screen reader tells of it beside the title.
  const std::string& accessibleDescription() const { return accessibleDescription_; }
  void setAccessibleDescription(std::string description);

  Size contentSize() const { return contentSize_; }
  void setContentSize(Size size);

  bool isVisible() const { return visible_; }
  void setVisible(bool visible);

  /// Whether it takes the keyboard when it comes. One that does not waits until the user goes there.
  bool takesKeyboard() const { return takesKeyboard_; }
  void setTakesKeyboard(bool takesKeyboard) { takesKeyboard_ = takesKeyboard; }

  int level() const { return level_; }
  void setLevel(int level);

  /// Hears that the window will close, with the window as sender.
  std::shared_ptr<Object> delegate() const { return delegate_.lock(); }
  void setDelegate(const std::shared_ptr<Object>& delegate) { delegate_ = delegate; }

  /// What the user does here is part of `turn`, which must outlive the window; `keyDown` has to know.
  void joinTurn(Turn& turn) { turn_ = &turn; }

  /// Shows the current state, then every change.
  void attach(std::unique_ptr<WindowPeer> peer);
  WindowPeer* peer() const { return peer_.get(); }

  /// What stands in the window, in the order of the tree; borrowed until the next call.
  const std::vector<Control*>& controls() const { return controls_; }
  void setControls(std::vector<Control*> inTreeOrder);

  /// Where the keyboard goes; null for none. The host tells.
  Control* focusedControl() const { return focused_; }
  void setFocusedControl(Control* control) { focused_ = control; }

  /// Asked when the user closes the window; the owner closes it.
  void setCloseAction(Action action) { closeAction_ = std::move(action); }

  /// Asked when the host measures differently: another font, style or scale.
  void setMetricsAction(Action action) { metricsAction_ = std::move(action); }
  void metricsChanged();

  // The user's doing. A commit may end the window.

  void performClose();

  /// Commits the field that is being typed into, unless it is `kept`. A press elsewhere does this before it is
  /// delivered.
  void endEditing(const Control* kept = nullptr);

  /// One place for the keys that belong to no control: Return commits and presses the default button if that is
  /// enabled then, Escape gives up what was typed or closes a panel. False for a key that means nothing here. An event
  /// of its own: what the commit changes has to settle before the button is asked, so a call in the middle of another
  /// event is a fault.
  bool keyDown(const KeyEvent& event);

  /// The focused control's editing commands, close and miniaturize.
  bool respondsToSelector(const Selector& selector) const override;
  void perform(const Selector& selector, Object* sender) override;

 private:
  Peer* editorFor(const Selector& command) const;
  bool commitAndPressButton();
  Control* defaultButton() const;
  Control* buttonForReturn() const;
  Control* initialControl() const;
  void focusInitialControl();
  void focusNextPage();
  bool cancelEditing();
  bool closePanel();

  /// Points to null once the window is gone.
  std::shared_ptr<Window*> handle_ = std::make_shared<Window*>(this);
  Turn* turn_ = nullptr;
  std::string identifier_;
  std::string title_;
  std::string accessibleDescription_;
  Kind kind_;
  std::unique_ptr<WindowPeer> peer_;
  std::vector<Control*> controls_;
  Action closeAction_;
  Action metricsAction_;
  Control* focused_ = nullptr;
  std::shared_ptr<Control* const> initial_;  // What was last given the keyboard from here.
  std::weak_ptr<Object> delegate_;
  Size contentSize_;
  int level_ = normalLevel;
  bool visible_ = false;
  bool takesKeyboard_ = true;
};

/// Commits what is being typed elsewhere in the control's window, then does `work`, unless that has ended the control.
void afterCommit(Control& control, const Action& work);

/// The user's doing without a pointer, after such a commit.
void perform(Control& control, const AccessibleRequest& request);

}  // namespace tarnwell::kit
