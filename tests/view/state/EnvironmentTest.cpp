#include "view/state/Environment.h"

#include <gtest/gtest.h>

#include "view/Counter.h"
#include "view/Stage.h"
#include "view/controls/text/Text.h"
#include "view/layout/Stack.h"
#include "view/tree/Composite.h"

namespace tarnwell::view {
namespace {

struct TitleKey {
  using Value = std::string;
  static Value initial() { return "none"; }
};

struct SizeKey {
  using Value = int;
  static Value initial() { return 3; }
};

TEST(EnvironmentValuesTest, aKeyThatWasNotSetHasItsInitialValue) {
  EXPECT_EQ(EnvironmentValues().get<TitleKey>(), "none");
  EXPECT_EQ(EnvironmentValues().with<TitleKey>("a").get<SizeKey>(), 3);
}

TEST(EnvironmentValuesTest, theNearestValueCounts) {
  const auto values = EnvironmentValues().with<TitleKey>("far").with<SizeKey>(5).with<TitleKey>("near");
  EXPECT_EQ(values.get<TitleKey>(), "near");
  EXPECT_EQ(values.get<SizeKey>(), 5);
}

TEST(EnvironmentValuesTest, anotherOneLeavesTheFirstAlone) {
  const auto first = EnvironmentValues().with<TitleKey>("first");
  const auto second = first.with<TitleKey>("second");
  const auto third = first.with<SizeKey>(9);
  EXPECT_EQ(first.get<TitleKey>(), "first");
  EXPECT_EQ(first.get<SizeKey>(), 3);
  EXPECT_EQ(second.get<TitleKey>(), "second");
  EXPECT_EQ(third.get<TitleKey>(), "first");
}

TEST(EnvironmentValuesTest, objectsAreFoundByTheirType) {
  const auto number = std::make_shared<int>(5);
  const auto values = EnvironmentValues().withObject(number).withObject(std::make_shared<double>(2.5));
  EXPECT_EQ(values.object<int>(), number);
  EXPECT_EQ(*values.object<double>(), 2.5);
  EXPECT_EQ(values.object<std::string>(), nullptr);
}

/// Shows what its environment says.
struct Reader {
  Environment<TitleKey> title = {};

  auto stored() { return std::tie(title); }
  View body() const { return Text{title.get()}; }
};

TEST(EnvironmentTest, aMemberReadsTheNearestValueAbove) {
  const Stage stage{View(VStack{.children = {Reader{}, View(Reader{}).environment<TitleKey>("near"), Reader{}}})
                        .environment<TitleKey>("far")};
  EXPECT_EQ(stage.dump(), "VStack centred, spacing 2\n  Text \"far\"\n  Text \"near\"\n  Text \"far\"\n");
}

TEST(EnvironmentTest, whereItWasNotSetTheInitialValueIsRead) {
  EXPECT_EQ(Stage{Reader{}}.dump(), "Text \"none\"\n");
  EXPECT_EQ(Reader{}.title.get(), "none");
}

TEST(EnvironmentTest, theWindowsEnvironmentReachesEverything) {
  const Stage stage{Reader{}, EnvironmentValues().with<TitleKey>("window")};
  EXPECT_EQ(stage.dump(), "Text \"window\"\n");
}

TEST(EnvironmentTest, aChangedValueFlowsDownAndLeavesStatesAlone) {
  const View content = VStack{.children = {Reader{}, Counter{}}};
  Stage stage{content.environment<TitleKey>("before")};
  stage.find<kit::Button>("count").click();
  stage.show(content.environment<TitleKey>("after"));
  EXPECT_EQ(stage.dump(), "VStack centred, spacing 2\n  Text \"after\"\n  Button \"1\"\n");
}

TEST(EnvironmentTest, aBodyThatIsMadeAnewReadsItStill) {
  const Numbered numbered{.make = [](const State<int>& number) -> View {
    return VStack{.children = {Counter{.name = std::to_string(number.get())}, Reader{},
                               Button{.title = "next", .action = [number] { number.set(1); }}}};
  }};
  const Stage stage{View(numbered).environment<TitleKey>("kept")};
  stage.find<kit::Button>("next").click();
  EXPECT_TRUE(stage.has("1"));
  EXPECT_TRUE(stage.has("kept"));
}

TEST(EnvironmentTest, styleReachesEveryTextBelow) {
  const Stage stage{View(VStack{.children = {Text{"a"}, View(Text{"b"}).font(kit::FontRole::caption)}})
                        .font(kit::FontRole::subheadline)
                        .foregroundStyle(kit::ColorRole::secondary)};
  EXPECT_EQ(stage.dump(),
            "VStack centred, spacing 2\n  Text \"a\" subheadline secondary\n  Text \"b\" caption secondary\n");
}

TEST(EnvironmentTest, whatIsDisabledStaysDisabledBelow) {
  const View button = Button{.title = "a"};
  const Stage stage{VStack{.children = {button.disabled(false), button.disabled(true),
                                        button.disabled(false).disabled(true), button.disabled(true).disabled(false)}}};
  EXPECT_EQ(stage.dump(),
            "VStack centred, spacing 2\n  Button \"a\"\n  Button \"a\" disabled\n  Button \"a\" disabled\n  Button "
            "\"a\" disabled\n");
}

}  // namespace
}  // namespace tarnwell::view
