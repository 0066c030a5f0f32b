#include "kit/control/Window.h"

#include <gtest/gtest.h>

#include "kit/ShownControl.h"
#include "kit/controls/buttons/Button.h"
#include "kit/controls/text/TextField.h"
#include "kit/turn/Turn.h"

namespace tarnwell::kit {
namespace {

const KeyEvent returnDown{.charactersIgnoringModifiers = returnKey};
const KeyEvent escapeDown{.charactersIgnoringModifiers = escapeKey};

// A field and a default button.
class WindowTest : public testing::Test {
 protected:
  WindowTest() {
    window.attach(host.peer(window));
    save.setDefault(true);
    save.setAction([this] { events.emplace_back("save"); });
    field.setAction([this](const std::string& typed) { events.push_back("commit " + typed); });
    window.setControls({&field, &plain, &save});
    host.journal().clear();
  }

  Lines told() {
    Lines lines = host.journal().lines();
    host.journal().clear();
    return lines;
  }

  host_headless::HeadlessHost host;
  TextField field;
  Button plain;
  Button save;
  Window window = Window("dock", "Dock");
  Lines events = {};
};

TEST_F(WindowTest, aChangeIsToldOnce) {
  for (int i = 0; i < 2; ++i) {
    window.setContentSize({.width = 600, .height = 400});
    window.setControls({&save, &field});
    window.setVisible(true);
  }
  EXPECT_EQ(told(), (Lines{"window dock: 600 x 400", "window dock: 2 controls in order", "window dock: shown"}));
}

TEST_F(WindowTest, attachingReplaysTheState) {
  window.setContentSize({.width = 600, .height = 400});
  told();
  window.attach(host.peer(window));
  EXPECT_EQ(told(), (Lines{"window dock: title", "window dock: 600 x 400", "window dock: hidden",
                           "window dock: 3 controls in order"}));
}

TEST_F(WindowTest, theHostHearsWhetherItTakesTheKeyboardWhenItComes) {
  window.setTakesKeyboard(false);
  window.setVisible(true);
  window.setVisible(false);
  window.setTakesKeyboard(true);
  window.setVisible(true);
  EXPECT_EQ(told(), (Lines{"window dock: shown without the keyboard", "window dock: hidden", "window dock: shown"}));
}

TEST_F(WindowTest, returnPressesTheDefaultButton) {
  EXPECT_TRUE(window.keyDown(returnDown));
  EXPECT_EQ(events, Lines{"save"});
}

TEST_F(WindowTest, returnCommitsFirst) {
  field.type("5");
  EXPECT_TRUE(window.keyDown(returnDown));
  EXPECT_EQ(events, (Lines{"commit 5", "save"}));
}

TEST_F(WindowTest, inAPanelReturnPressesTheButtonThatHasTheKeyboard) {
  for (const auto kind : {Window::Kind::standard, Window::Kind::panel}) {
    Window panel("panel", "Panel", kind);
    Button other;
    other.setAction([this] { events.emplace_back("other"); });
    panel.setControls({&other, &save});
    panel.setFocusedControl(&other);
    EXPECT_TRUE(panel.keyDown(returnDown));
    other.setEnabled(false);
    EXPECT_TRUE(panel.keyDown(returnDown));
    panel.setControls({});
  }
  EXPECT_EQ(events, (Lines{"save", "save", "other", "save"}));
}

TEST_F(WindowTest, nothingHasTheKeyboardEachTimeThatAWindowComes) {
  for (int i = 0; i < 2; ++i) {
    window.setFocusedControl(&field);
    window.setVisible(true);
    EXPECT_EQ(window.focusedControl(), nullptr);
    window.setVisible(false);
  }
}

/// A panel with that button, which has just come.
std::unique_ptr<Window> openPanel(host_headless::HeadlessHost& host, Button& button, bool takesKeyboard) {
  auto panel = std::make_unique<Window>("panel", "Panel", Window::Kind::panel);
  panel->attach(host.peer(*panel));
  panel->setTakesKeyboard(takesKeyboard);
  panel->setControls({&button});
  panel->setVisible(true);
  return panel;
}

TEST_F(WindowTest, theDefaultButtonOfAPanelHasTheKeyboardAtFirst) {
  const auto panel = openPanel(host, save, true);
  EXPECT_EQ(panel->focusedControl(), &save);
  panel->setControls({&save, &plain});
  panel->setFocusedControl(&plain);
  panel->setControls({&plain, &save});
  EXPECT_EQ(panel->focusedControl(), &plain);
  Button next;
  next.setDefault(true);
  panel->setControls({&plain, &next});
  EXPECT_EQ(panel->focusedControl(), &next);
  panel->setControls({});
}

TEST_F(WindowTest, inAPanelNothingHasTheKeyboardWhereItTakesNoneOrCannotBePressed) {
  EXPECT_EQ(openPanel(host, save, false)->focusedControl(), nullptr);
  save.setEnabled(false);
  EXPECT_EQ(openPanel(host, save, true)->focusedControl(), nullptr);
  EXPECT_EQ(openPanel(host, plain, true)->focusedControl(), nullptr);
}

TEST_F(WindowTest, escapeClosesAPanelAndNoOtherWindow) {
  for (const auto kind : {Window::Kind::standard, Window::Kind::panel}) {
    Window closed("panel", "Panel", kind);
    closed.setCloseAction([this] { events.emplace_back("close"); });
    EXPECT_EQ(closed.keyDown(escapeDown), kind == Window::Kind::panel);
  }
  EXPECT_EQ(events, Lines{"close"});
}

TEST_F(WindowTest, aPanelCannotBeMinimized) {
  EXPECT_TRUE(window.respondsToSelector(selectors::performMiniaturize));
  const Window panel("panel", "Panel", Window::Kind::panel);
  EXPECT_FALSE(panel.respondsToSelector(selectors::performMiniaturize));
  EXPECT_TRUE(panel.respondsToSelector(selectors::performClose));
}

// Enables the button only when everything is at rest, as a view tree does.
class Enabler final : public Settler {
 public:
  explicit Enabler(Button& button) : button_(button) {}
  bool settleStep() override { return false; }
  void settled() override { button_.setEnabled(true); }

 private:
  Button& button_;
};

TEST_F(WindowTest, returnPressesTheButtonThatTheCommitEnabled) {
  Turn turn;
  Enabler enabler(save);
  turn.join(enabler);
  field.joinTurn(turn);
  save.joinTurn(turn);
  save.setEnabled(false);
  field.type("5");
  EXPECT_TRUE(window.keyDown(returnDown));
  EXPECT_EQ(events, (Lines{"commit 5", "save"}));
}

TEST_F(WindowTest, returnDoesNotPressTheButtonThatTheCommitDisabled) {
  field.setAction([this](const std::string&) { save.setEnabled(false); });
  field.type("5");
  EXPECT_FALSE(window.keyDown(returnDown));
  EXPECT_EQ(events, Lines{});
}

TEST_F(WindowTest, returnWithoutADefaultButtonMeansNothing) {
  save.setDefault(false);
  EXPECT_FALSE(window.keyDown(returnDown));
  EXPECT_EQ(events, Lines{});
}

TEST_F(WindowTest, escapeGivesUpWhatWasTyped) {
  field.setText("1");
  field.type("5");
  EXPECT_TRUE(window.keyDown(escapeDown));
  EXPECT_EQ(field.shownText(), "1");
  EXPECT_EQ(events, Lines{});
  EXPECT_FALSE(window.keyDown(escapeDown));
}

TEST_F(WindowTest, otherKeysMeanNothingHere) {
  field.type("5");
  EXPECT_FALSE(window.keyDown({.charactersIgnoringModifiers = "a"}));
  EXPECT_FALSE(window.keyDown({}));
  EXPECT_FALSE(window.keyDown({.charactersIgnoringModifiers = ",", .modifierFlags = 0x100000}));
  EXPECT_FALSE(window.keyDown({.charactersIgnoringModifiers = returnKey, .modifierFlags = 0x100000}));
  EXPECT_FALSE(window.keyDown({.charactersIgnoringModifiers = escapeKey, .modifierFlags = 0x100000}));
  EXPECT_TRUE(field.isEditing());
  EXPECT_EQ(events, Lines{});
}

TEST_F(WindowTest, endingTheEditingCommitsWhatWasTyped) {
  window.endEditing();
  EXPECT_EQ(events, Lines{});
  field.type("5");
  window.endEditing();
  EXPECT_EQ(events, Lines{"commit 5"});
}

TEST_F(WindowTest, closingCommitsAndThenAsksItsOwner) {
  window.setCloseAction([this] { events.emplace_back("close"); });
  field.type("5");
  window.performClose();
  EXPECT_EQ(events, (Lines{"commit 5", "close"}));
}

TEST_F(WindowTest, aWindowWithoutOwnersCanBeClosedAndMeasuredAnew) {
  window.performClose();
  window.metricsChanged();
  EXPECT_EQ(events, Lines{});
}

TEST_F(WindowTest, otherMetricsAreToldToItsOwner) {
  window.setMetricsAction([this] { events.emplace_back("metrics"); });
  window.metricsChanged();
  EXPECT_EQ(events, Lines{"metrics"});
}

TEST(WindowEndTest, aCommitMayEndItsWindow) {
  TextField field;
  auto window = std::make_unique<Window>("dock", "Dock");
  window->setControls({&field});
  field.setAction([&window](const std::string&) { window.reset(); });
  field.type("5");
  EXPECT_TRUE(window->keyDown(returnDown));
  EXPECT_EQ(window, nullptr);
}

TEST(WindowEndTest, aCommitMayEndTheWindowThatIsBeingClosed) {
  TextField field;
  auto window = std::make_unique<Window>("dock", "Dock");
  window->setControls({&field});
  window->setCloseAction([] { FAIL() << "there is no window left to close"; });
  field.setAction([&window](const std::string&) { window.reset(); });
  field.type("5");
  window->performClose();
  EXPECT_EQ(window, nullptr);
}

using WindowDeathTest = WindowTest;

TEST_F(WindowDeathTest, aKeyInTheMiddleOfAnotherEventIsAFault) {
  Turn turn;
  window.joinTurn(turn);
  EXPECT_DEATH(turn.perform([this] { window.keyDown(returnDown); }),
               "tarnwell: a window was given a key in the middle of another event");
  turn.perform([&] { turn.nestedLoop([this] { EXPECT_TRUE(window.keyDown(returnDown)); }); });
}

}  // namespace
}  // namespace tarnwell::kit
