#include "view/tree/ControlNode.h"

#include <gtest/gtest.h>

#include <limits>

#include "host/headless/PointNumberFormat.h"
#include "kit/controls/buttons/Toggle.h"
#include "kit/controls/choices/PopUpButton.h"
#include "kit/controls/ranges/ProgressBar.h"
#include "kit/controls/ranges/Stepper.h"
#include "kit/controls/text/TextField.h"
#include "view/Counter.h"
#include "view/Stage.h"
#include "view/controls/buttons/Button.h"
#include "view/controls/buttons/Toggle.h"
#include "view/controls/choices/Picker.h"
#include "view/controls/containers/LabeledRow.h"
#include "view/controls/ranges/ProgressBar.h"
#include "view/controls/ranges/Stepper.h"
#include "view/controls/text/Label.h"
#include "view/controls/text/Symbol.h"
#include "view/controls/text/Text.h"
#include "view/controls/text/TextField.h"
#include "view/layout/Spacer.h"
#include "view/layout/Stack.h"

namespace tarnwell::view {
namespace {

template <class T>
Binding<T> bindingTo(T& value) {
  return {.get = [&value] { return value; }, .set = [&value](T written) { value = written; }};
}

template <class T>
Binding<T> refusing(T value) {
  return {.get = [value] { return value; }, .set = [](T) {}};
}

TEST(ControlNodeTest, progressIsShownAndFollowed) {
  Stage stage{ProgressBar{.title = "Download"}};
  auto& bar = stage.find<kit::ProgressBar>("Download");
  EXPECT_EQ(bar.share(), std::nullopt);
  stage.show(ProgressBar{.title = "Download", .share = 0.5});
  EXPECT_EQ(&stage.find<kit::ProgressBar>("Download"), &bar);
  EXPECT_EQ(bar.share(), 0.5);
}

TEST(ControlNodeTest, checkBoxShowsTheTitleThatASwitchHides) {
  bool on = false;
  const Stage stage{
      VStack{.children = {Toggle{.title = "switch", .isOn = bindingTo(on)},
                          Toggle{.title = "box", .isOn = bindingTo(on), .style = kit::Toggle::Style::checkBox}}}};
  EXPECT_EQ(stage.find<kit::Toggle>("switch").title(), "");
  EXPECT_EQ(stage.find<kit::Toggle>("box").title(), "box");
  stage.find<kit::Toggle>("box").press();
  EXPECT_TRUE(on);
}

TEST(ControlNodeTest, inputReachesTheBinding) {
  bool on = false;
  double speed = 0.5;
  int index = 0;
  const Stage stage{VStack{
      .children = {
          Toggle{.title = "switch", .isOn = bindingTo(on)},
          Stepper{.title = "stepper", .value = bindingTo(speed), .range = {.step = 0.25}},
          TextField{.title = "field", .value = bindingTo(speed)},
          Picker{.title = "picker", .items = {{.title = "a"}, {.title = "b"}}, .selectedIndex = bindingTo(index)}}}};
  stage.find<kit::Toggle>("switch").press();
  EXPECT_TRUE(on);
  stage.find<kit::Stepper>("stepper").increment();
  EXPECT_EQ(speed, 0.75);
  stage.find<kit::PopUpButton>("picker").choose(1);
  EXPECT_EQ(index, 1);
  auto& field = stage.find<kit::TextField>("field");
  field.type("1,234.5");
  field.commit();
  EXPECT_EQ(speed, 1234.5);
}

TEST(ControlNodeTest, aControlWhoseValueDidNotChangeSpringsBack) {
  const Stage stage{
      VStack{.children = {
                 Toggle{.title = "switch", .isOn = refusing(true)}, Stepper{.title = "stepper", .value = refusing(5.0)},
                 TextField{.title = "field", .value = refusing(5.0)},
                 Picker{.title = "picker", .items = {{.title = "a"}, {.title = "b"}}, .selectedIndex = refusing(0)}}}};
  stage.find<kit::Toggle>("switch").press();
  EXPECT_TRUE(stage.find<kit::Toggle>("switch").isOn());
  stage.find<kit::Stepper>("stepper").increment();
  EXPECT_EQ(stage.find<kit::Stepper>("stepper").value(), 5);
  stage.find<kit::PopUpButton>("picker").choose(1);
  EXPECT_EQ(stage.find<kit::PopUpButton>("picker").selectedIndex(), 0);
  auto& field = stage.find<kit::TextField>("field");
  field.type("7");
  field.commit();
  EXPECT_EQ(field.shownText(), "5");
}

TEST(ControlNodeTest, aTypedTextThatIsNoNumberChangesNothing) {
  double speed = 0.5;
  const Stage stage{TextField{.title = "field", .value = bindingTo(speed)}};
  auto& field = stage.find<kit::TextField>("field");
  for (const char* typed : {"", "abc", "0,5", "1e5", "nan"}) {
    field.type(typed);
    field.commit();
    EXPECT_EQ(speed, 0.5) << typed;
    EXPECT_EQ(field.shownText(), "0.5") << typed;
  }
}

TEST(ControlNodeTest, aFieldShowsItsNumberInTheEnvironmentsNotation) {
  const auto german = std::make_shared<host_headless::PointNumberFormat>(',', '.');
  const auto shown = [&german](double value) {
    const Stage stage{View(TextField{.title = "field", .value = refusing(value)}).environment<NumberFormatKey>(german)};
    return stage.find<kit::TextField>("field").text();
  };
  EXPECT_EQ(shown(1234.5), "1.234,5");
  EXPECT_EQ(shown(1.0 / 3), "0,333333");
  EXPECT_EQ(shown(std::numeric_limits<double>::infinity()), "∞");
  EXPECT_EQ(shown(std::numeric_limits<double>::quiet_NaN()), "NaN");
}

TEST(ControlNodeTest, whatIsBeingTypedOutlivesUpdates) {
  const auto speed = std::make_unique<double>(0.5);
  const View content = VStack{.children = {TextField{.title = "field", .value = bindingTo(*speed)}, Counter{}}};
  Stage stage{content};
  auto& field = stage.find<kit::TextField>("field");
  field.type("0.7");
  *speed = 0.9;
  stage.show(content);
  EXPECT_EQ(field.shownText(), "0.7");
  field.cancel();
  EXPECT_EQ(field.shownText(), "0.9");
}

TEST(ControlNodeTest, aNanIsToldOnce) {
  const View content = Stepper{.title = "stepper", .value = refusing(std::numeric_limits<double>::quiet_NaN())};
  Stage stage{content};
  stage.open();
  stage.told();
  stage.show(content);
  EXPECT_EQ(stage.told(), Lines{});
}

TEST(ControlNodeDeathTest, aFieldWithoutANumberFormatIsAFault) {
  EXPECT_DEATH((Stage{TextField{.value = refusing(1.0)}, EnvironmentValues()}),
               "tarnwell: a number field stands where the environment has no number format");
}

// Its removal while it acts.

TEST(ControlNodeTest, anActionMayRemoveItsOwnView) {
  Stage stage{EmptyView{}};
  const std::string note = "a text that is too long to be kept in the closure itself";
  std::string said;
  stage.show(Button{.title = "leave", .action = [&stage, &said, note] {
                      stage.show(Text{"gone"});
                      said = note;
                    }});
  stage.open();
  stage.find<kit::Button>("leave").click();
  EXPECT_EQ(said, note);
  EXPECT_EQ(stage.dump(), "Text \"gone\"\n");
}

TEST(ControlNodeTest, aRemovedNodesLateActionDoesNothing) {
  int clicks = 0;
  bool on = false;
  Stage stage{VStack{.children = {Button{.title = "late", .action = [&clicks] { ++clicks; }},
                                  Toggle{.title = "switch", .isOn = bindingTo(on)}}}};
  auto& button = stage.find<kit::Button>("late");
  auto& toggle = stage.find<kit::Toggle>("switch");
  stage.perform([&] {
    stage.turn().nestedLoop([&] { stage.show(Text{"gone"}); });
    button.click();
    toggle.press();
  });
  EXPECT_EQ(clicks, 0);
  EXPECT_FALSE(on);
}

TEST(ControlNodeTest, anActionMayDropItsOwnWindow) {
  Stage stage{EmptyView{}};
  bool ran = false;
  stage.show(VStack{.children = {Button{.title = "close", .action = [&] {
                                          stage.drop();
                                          ran = true;
                                        }}}});
  stage.open();
  stage.find<kit::Button>("close").click();
  EXPECT_TRUE(ran);
}

// Names.

TEST(ControlNodeTest, controlsAreCalledByTheirTitleUnlessTheEnvironmentSaysOtherwise) {
  const Stage stage{
      VStack{.children = {Toggle{.title = "own", .isOn = refusing(true)},
                          View(Toggle{.title = "own", .isOn = refusing(true)}).accessibilityLabel("given"),
                          Button{.title = "press"}, Text{"text"}, Symbol{.name = "timer", .title = "clock"}}}};
  for (const char* name : {"own", "given", "press", "text", "clock"}) {
    EXPECT_TRUE(stage.has(name)) << name;
  }
}

TEST(ControlNodeTest, aRowNamesItsControlButNoTextNorSymbol) {
  const Stage stage{LabeledRow{.label = Label{.title = "Delay", .symbol = "timer"},
                               .title = "Delay",
                               .description = Text{"How long."},
                               .control = HStack{.children = {Symbol{.name = "hare", .title = "Fast"}, Text{"sec"},
                                                              Toggle{.title = "own", .isOn = refusing(true)}}}}};
  EXPECT_EQ(stage.find<kit::Toggle>("Delay").accessibleName(), "Delay");
  EXPECT_TRUE(stage.has("Fast"));
  EXPECT_TRUE(stage.has("sec"));
  EXPECT_TRUE(stage.has("How long."));
}

TEST(ControlNodeTest, aLabelThatIsIconOnlyTellsItsTitleToScreenReaders) {
  const Label label{.title = "Slow", .symbol = "tortoise.fill"};
  EXPECT_EQ(Stage{label}.dump(), "HStack on baseline, spacing 8\n  Symbol tortoise.fill\n  Text \"Slow\"\n");
  const Stage stage{View(label).labelStyle(LabelStyle::iconOnly)};
  EXPECT_EQ(stage.dump(), "Symbol \"Slow\" tortoise.fill\n");
  EXPECT_EQ(stage.first<kit::Control>().accessibleName(), "Slow");
}

// Pickers.

TEST(ControlNodeTest, aPickerWithAValueThatIsNoItemsShowsNone) {
  const auto value = std::make_unique<int>(7);
  const View content = makePicker<int>("picker", bindingTo(*value),
                                       {{.tag = 1, .item = {.title = "one"}}, {.tag = 2, .item = {.title = "two"}}});
  Stage stage{content};
  auto& popUp = stage.find<kit::PopUpButton>("picker");
  EXPECT_EQ(popUp.selectedIndex(), -1);
  popUp.choose(0);
  EXPECT_EQ(*value, 1);
  *value = 9;
  stage.show(content);
  EXPECT_EQ(popUp.selectedIndex(), -1);
}

TEST(ControlNodeTest, aPickerFindsANanAmongItsItems) {
  double value = std::numeric_limits<double>::quiet_NaN();
  const Stage stage{makePicker<double>(
      "picker", bindingTo(value), {{.tag = 1, .item = {.title = "one"}}, {.tag = value, .item = {.title = "none"}}})};
  EXPECT_EQ(stage.find<kit::PopUpButton>("picker").selectedIndex(), 1);
}

}  // namespace
}  // namespace tarnwell::view
