#include "kit/control/Control.h"

#include <gtest/gtest.h>

#include <functional>

#include "kit/ShownControl.h"
#include "kit/controls/buttons/Button.h"
#include "kit/controls/buttons/Toggle.h"
#include "kit/controls/choices/PopUpButton.h"
#include "kit/controls/choices/TabBar.h"
#include "kit/controls/containers/Box.h"
#include "kit/controls/containers/ScrollArea.h"
#include "kit/controls/ranges/Slider.h"
#include "kit/controls/ranges/Stepper.h"
#include "kit/controls/text/SymbolView.h"
#include "kit/controls/text/TextField.h"
#include "kit/controls/text/TextLabel.h"
#include "kit/turn/Turn.h"

namespace tarnwell::kit {
namespace {

TEST(ControlTest, aChangedPropertyIsToldOnceAndTheSameOneNot) {
  struct Row {
    std::function<void(Control&)> change = {};
    Lines told = {};
  };
  const std::vector<Row> table = {
      {[](Control& control) { control.setEnabled(false); }, {"switch: enabled"}},
      {[](Control& control) { control.setFrame({.x = 1, .width = 38, .height = 22}); }, {"switch: place"}},
      {[](Control& control) { control.setAccessibleDescription("Dims icons."); }, {"switch: accessible description"}},
      {[](Control& control) { control.setAccessibleName("Dim"); }, {"switch \"Dim\": accessible name"}},
  };
  for (const Row& row : table) {
    ShownControl<Toggle> toggle;
    row.change(*toggle);
    EXPECT_EQ(toggle.told(), row.told);
    row.change(*toggle);
    EXPECT_EQ(toggle.told(), Lines{}) << row.told.front();
  }
}

/// What the peer of a control that is disabled is told when its host reports an input.
template <class C, class Report>
Lines toldAfterInTheDisabled(ShownControl<C> control, const Report& report) {
  control->setEnabled(false);
  control.told();
  report(*control);
  return control.told();
}

TEST(ControlTest, whatAHostReportsIsFollowedByTheStateThoughItIsRefused) {
  EXPECT_EQ(toldAfterInTheDisabled(ShownControl<Toggle>(), [](auto& control) { control.choose(true); }),
            Lines{"switch: value"});
  EXPECT_EQ(toldAfterInTheDisabled(ShownControl<Stepper>(), [](auto& control) { control.choose(5); }),
            Lines{"stepper: value"});
  EXPECT_EQ(toldAfterInTheDisabled(ShownControl<Slider>(Rect{}), [](auto& control) { control.choose(0.5); }),
            Lines{"slider: value"});
  EXPECT_EQ(toldAfterInTheDisabled(ShownControl<PopUpButton>(), [](auto& control) { control.choose(1); }),
            Lines{"pop-up button: value"});
  EXPECT_EQ(toldAfterInTheDisabled(ShownControl<TabBar>(), [](auto& control) { control.choose(1); }),
            Lines{"tabs: value"});
  EXPECT_EQ(toldAfterInTheDisabled(ShownControl<TextField>(), [](auto& control) { control.type("typed"); }),
            Lines{"field: value"});
}

TEST(ControlTest, whatAHostReportsIsFollowedByTheStateThoughItIsNoOther) {
  ShownControl<Stepper> stepper;
  stepper->setValue(stepper->range().most);
  ShownControl<Toggle> toggle;
  stepper.told();
  stepper->increment();
  EXPECT_EQ(stepper.told(), Lines{"stepper: value"});
  toggle->choose(false);
  EXPECT_EQ(toggle.told(), Lines{"switch: value"});
}

TEST(ControlTest, attachingReplaysTheState) {
  ShownControl<Toggle> toggle;
  toggle->setOn(true);
  toggle->setEnabled(false);
  toggle.told();
  toggle.showAgain();
  EXPECT_EQ(toggle.told(), (Lines{"switch: removed", "switch: value", "switch: enabled", "switch: accessible name",
                                  "switch: accessible description", "switch: place"}));
}

template <class C>
void expectReplay(ShownControl<C> control, const Lines& ownAspects) {
  control.showAgain();
  Lines told;
  for (const std::string& line : control.told()) {
    told.push_back(line.substr(line.find(": ") + 2));
  }
  Lines expected = {"removed"};
  expected.insert(expected.end(), ownAspects.begin(), ownAspects.end());
  expected.insert(expected.end(), {"enabled", "accessible name", "accessible description", "place"});
  EXPECT_EQ(told, expected);
}

TEST(ControlTest, everyKindReplaysWhatItHas) {
  expectReplay(ShownControl<Box>(Box::Kind::group), {});
  expectReplay(ShownControl<Button>(), {"style", "title"});
  expectReplay(ShownControl<PopUpButton>(), {"title", "value"});
  expectReplay(ShownControl<ScrollArea>(), {"value"});
  expectReplay(ShownControl<Slider>(0, 0, 1, nullptr), {"style", "value"});
  expectReplay(ShownControl<Stepper>(), {"value"});
  expectReplay(ShownControl<SymbolView>(), {"value", "style"});
  expectReplay(ShownControl<TextField>(), {"value"});
  expectReplay(ShownControl<TextLabel>(), {"style", "title"});
  expectReplay(ShownControl<Toggle>(), {"value"});
}

TEST(ControlTest, aDetachedControlSendsNothing) {
  ShownControl<Toggle> toggle;
  toggle->attach(nullptr);
  EXPECT_EQ(toggle.told(), Lines{"switch: removed"});
  toggle->setOn(true);
  toggle->setFrame({.x = 5});
  EXPECT_EQ(toggle.told(), Lines{});
  EXPECT_EQ(toggle->peer(), nullptr);
}

// A peer that reads its control to the very last, as one does that hands the name to a screen reader.
class LastWords final : public Peer {
 public:
  LastWords(const Control& control, std::string& words) : control_(control), words_(words) {}
  LastWords(const LastWords&) = delete;
  LastWords& operator=(const LastWords&) = delete;
  ~LastWords() override { words_ = control_.accessibleName(); }

  void show(Aspect /*aspect*/) noexcept override {}
  void place(const Rect& /*frame*/) noexcept override {}

 private:
  const Control& control_;
  std::string& words_;
};

TEST(ControlTest, thePeerGoesBeforeTheStateThatItShows) {
  const std::string name = "a name that is too long to be kept in place";
  std::string words;
  {
    Toggle toggle;
    toggle.setAccessibleName(name);
    toggle.attach(std::make_unique<LastWords>(toggle, words));
  }
  EXPECT_EQ(words, name);
}

TEST(ControlTest, onlyTheKeyboardsControlsTakeTheFocus) {
  EXPECT_TRUE(Button().takesFocus());
  EXPECT_TRUE(PopUpButton().takesFocus());
  EXPECT_TRUE(Slider(0, 0, 1, nullptr).takesFocus());
  EXPECT_TRUE(Stepper().takesFocus());
  EXPECT_TRUE(TextField().takesFocus());
  EXPECT_TRUE(Toggle().takesFocus());
  EXPECT_FALSE(Box(Box::Kind::separator).takesFocus());
  EXPECT_FALSE(ScrollArea().takesFocus());
  EXPECT_FALSE(SymbolView().takesFocus());
  EXPECT_FALSE(TextLabel().takesFocus());
}

TEST(ControlTest, thePeerSaysHowLargeAControlIs) {
  class NativePeer final : public Peer {
   public:
    void show(Aspect /*aspect*/) noexcept override {}
    void place(const Rect& /*frame*/) noexcept override {}
    std::optional<Measurement> measure(Proposal proposal) const override {
      return Measurement{.size = {.width = proposal.width.value_or(51), .height = 31}, .firstBaseline = 20};
    }
  };
  Toggle toggle;
  EXPECT_EQ(toggle.measure({.width = 7}).size, (Size{.width = 7}));
  toggle.attach(std::make_unique<NativePeer>());
  EXPECT_EQ(toggle.measure({}), (Measurement{.size = {.width = 51, .height = 31}, .firstBaseline = 20}));
  EXPECT_EQ(toggle.measure({.width = 7}).size, (Size{.width = 7, .height = 31}));
}

// Notes when it is brought to rest.
class RestNotingSettler final : public Settler {
 public:
  explicit RestNotingSettler(Lines& notes) : notes_(notes) {}
  bool settleStep() override { return false; }
  void settled() override { notes_.emplace_back("settled"); }

 private:
  Lines& notes_;
};

TEST(ControlTest, inputIsPartOfTheTurn) {
  Lines notes;
  RestNotingSettler settler(notes);
  Turn turn;
  turn.join(settler);
  Button button;
  button.setAction([&notes] { notes.emplace_back("action"); });
  button.click();
  EXPECT_EQ(notes, Lines{"action"});
  button.joinTurn(turn);
  button.click();
  EXPECT_EQ(notes, (Lines{"action", "action", "settled"}));
}

TEST(ControlTest, onlyTitleAndStyleMayChangeTheNaturalSize) {
  Button button;
  const unsigned first = button.sizeRevision();
  button.setEnabled(false);
  button.setAccessibleName("Save");
  button.setFrame({.width = 5});
  EXPECT_EQ(button.sizeRevision(), first);
  button.setTitle("Save");
  const unsigned titled = button.sizeRevision();
  EXPECT_NE(titled, first);
  button.setRole(Button::Role::destructive);
  EXPECT_NE(button.sizeRevision(), titled);
}

}  // namespace
}  // namespace tarnwell::kit
