#include "view/controls/containers/Form.h"

#include <gtest/gtest.h>

#include "kit/controls/buttons/Button.h"
#include "kit/controls/buttons/Toggle.h"
#include "kit/controls/containers/ScrollArea.h"
#include "kit/controls/text/TextLabel.h"
#include "view/Block.h"
#include "view/Counter.h"
#include "view/Stage.h"
#include "view/controls/buttons/Toggle.h"
#include "view/controls/containers/FormMetrics.h"
#include "view/controls/containers/LabeledRow.h"
#include "view/controls/containers/Section.h"
#include "view/controls/text/Label.h"
#include "view/controls/text/Symbol.h"
#include "view/controls/text/Text.h"
#include "view/layout/Stack.h"
#include "view/tree/Composite.h"

namespace tarnwell::view {
namespace {

using BoxKind = kit::Box::Kind;

// A form 300 wide has boxes of 260 from x = 20 on; rows stand 12 inside of them, 40 high at least.
struct FormStage : Stage {
  explicit FormStage(std::vector<View> sections) : Stage(page(std::move(sections))) { open(); }

  static View page(std::vector<View> sections) {
    return View(Form{.sections = std::move(sections)}).frame({.width = 300});
  }
};

TEST(SectionTest, rowsStandInABoxWithALineBetweenEachTwo) {
  FormStage stage{{Section{.rows = {fixedBlock("a", 10, 10), fixedBlock("b", 10, 60), fixedBlock("c", 10, 22)}}}};
  EXPECT_EQ(stage.host().boxes(BoxKind::group), (std::vector<kit::Rect>{{20, 20, 260, 40 + 78 + 40}}));
  EXPECT_EQ(stage.host().boxes(BoxKind::separator), (std::vector<kit::Rect>{{32, 60, 236, 1}, {32, 138, 236, 1}}));
  EXPECT_EQ(stage.frame("a"), (kit::Rect{32, 35, 236, 10}));
  EXPECT_EQ(stage.frame("b"), (kit::Rect{32, 69, 236, 60}));
  EXPECT_EQ(stage.frame("c"), (kit::Rect{32, 147, 236, 22}));
}

TEST(SectionTest, aFooterStandsUnderTheBoxInLineWithTheRows) {
  FormStage stage{{Section{.rows = {fixedBlock("a", 10, 22)}, .footer = fixedBlock("foot", 10, 14)}}};
  EXPECT_EQ(stage.frame("foot"), (kit::Rect{32, 66, 10, 14}));
  EXPECT_EQ(stage.window().contentSize().height, 20 + 40 + 6 + 14 + 20);
}

TEST(SectionTest, aFooterIsAsWideAsTheRows) {
  FormStage stage{{Section{.rows = {fixedBlock("a", 10, 22)}, .footer = wideBlock("foot", 10, 14)}}};
  EXPECT_EQ(stage.frame("foot"), (kit::Rect{32, 66, 236, 14}));
}

TEST(SectionTest, aFooterBreaksItsLinesWhereTheRowsEnd) {
  const auto heightWith = [](std::size_t characters) {
    FormStage stage{{Section{.rows = {fixedBlock("a", 10, 22)}, .footer = Text{std::string(characters, 'x')}}}};
    return stage.window().contentSize().height;
  };
  // Between the rows' edges there is room for 33 characters of 7 points.
  EXPECT_EQ(heightWith(33), 20 + 40 + 6 + 16 + 20);
  EXPECT_EQ(heightWith(34), 20 + 40 + 6 + 32 + 20);
}

TEST(SectionTest, withoutRowsThereIsNoBoxAndTheFooterStandsInItsPlace) {
  FormStage stage{{Section{.footer = wideBlock("foot", 10, 24)}}};
  EXPECT_EQ(stage.host().boxes(BoxKind::group), std::vector<kit::Rect>{});
  EXPECT_EQ(stage.frame("foot"), (kit::Rect{20, 20, 260, 24}));
  EXPECT_EQ(stage.window().contentSize().height, 64);
}

TEST(SectionTest, anEmptyRowLeavesNeitherGapNorLine) {
  FormStage stage{{Section{.rows = {fixedBlock("a", 10, 22), EmptyView{}, fixedBlock("b", 10, 22), EmptyView{}}}}};
  EXPECT_EQ(stage.host().boxes(BoxKind::separator).size(), 1U);
  EXPECT_EQ(stage.frame("b").y, 20 + 40 + 9);
  EXPECT_EQ(stage.window().contentSize().height, 120);
}

TEST(SectionTest, oneWithNothingButAbsentRowsIsAsOneWithoutRows) {
  FormStage stage{{Section{.rows = {EmptyView{}, EmptyView{}}, .footer = wideBlock("foot", 10, 24)}}};
  EXPECT_EQ(stage.host().boxes(BoxKind::group), (std::vector<kit::Rect>{{20, 20, 260, 0}}));
  EXPECT_EQ(stage.frame("foot"), (kit::Rect{20, 20, 260, 24}));
  EXPECT_EQ(stage.window().contentSize().height, 64);
}

TEST(SectionTest, boxesComeAndGoWithTheRows) {
  FormStage stage{{Section{.footer = Text{"foot"}}}};
  stage.show(FormStage::page({Section{.rows = {Text{"a"}, Text{"b"}}, .footer = Text{"foot"}}}));
  EXPECT_EQ(stage.host().boxes(BoxKind::group).size(), 1U);
  EXPECT_EQ(stage.host().boxes(BoxKind::separator).size(), 1U);
  stage.show(FormStage::page({Section{.rows = {Text{"a"}}, .footer = Text{"foot"}}}));
  EXPECT_EQ(stage.host().boxes(BoxKind::separator).size(), 0U);
  stage.show(FormStage::page({Section{.footer = Text{"foot"}}}));
  EXPECT_EQ(stage.host().boxes(BoxKind::group).size(), 0U);
  stage.show(Text{"away"});
  EXPECT_EQ(stage.host().boxes(BoxKind::group).size(), 0U);
}

TEST(SectionTest, boxesAndLinesAreGoneWhileTheEventThatTookThemAwayStillRuns) {
  FormStage stage{{Section{.rows = {Text{"a"}, Text{"b"}}}}};
  stage.perform([&] {
    stage.turn().nestedLoop([&] { stage.show(Text{"away"}); });
    EXPECT_EQ(stage.host().boxes(BoxKind::group), std::vector<kit::Rect>{});
    EXPECT_EQ(stage.host().boxes(BoxKind::separator), std::vector<kit::Rect>{});
  });
}

TEST(SectionTest, linesThatStandAreNotMadeAnew) {
  FormStage stage{{Section{.rows = {Text{"a"}, Text{"b"}}}}};
  const int made = stage.host().boxesMade();
  stage.show(FormStage::page({Section{.rows = {Text{"a"}, Text{"longer"}}}}));
  EXPECT_EQ(stage.host().boxesMade(), made);
}

TEST(SectionTest, aBoxThatComesLaterStandsBeforeItsRowsInTheTree) {
  FormStage stage{{Section{.footer = Text{"foot"}}}};
  stage.show(FormStage::page({Section{.rows = {Text{"a"}}, .footer = Text{"foot"}}}));
  const auto& controls = stage.window().controls();
  ASSERT_EQ(controls.size(), 4U);
  EXPECT_NE(dynamic_cast<kit::ScrollArea*>(controls[0]), nullptr);
  EXPECT_NE(dynamic_cast<kit::Box*>(controls[1]), nullptr);
  EXPECT_EQ(controls[2]->accessibleName(), "a");
  EXPECT_EQ(controls[3]->accessibleName(), "foot");
}

TEST(SectionTest, aRowThatFillsByItselfGetsItsLine) {
  Binding<int> remote;
  const Numbered late{.make = [&remote](const State<int>& number) {
    remote = number.binding();
    return number.get() == 0 ? View(EmptyView{}) : fixedBlock("late", 10, 22);
  }};
  FormStage stage{{Section{.rows = {fixedBlock("a", 10, 22), late}}}};
  EXPECT_EQ(stage.host().boxes(BoxKind::separator).size(), 0U);
  stage.perform([&] { remote.set(1); });
  EXPECT_EQ(stage.host().boxes(BoxKind::separator), (std::vector<kit::Rect>{{32, 60, 236, 1}}));
  EXPECT_EQ(stage.frame("late").y, 69);
  stage.perform([&] { remote.set(0); });
  EXPECT_EQ(stage.host().boxes(BoxKind::separator).size(), 0U);
  EXPECT_EQ(stage.window().contentSize().height, 80);
}

TEST(SectionTest, boxesAndLinesStandOnWholePoints) {
  FormStage stage{{Section{.rows = {fixedBlock("a", 10, 30.4), fixedBlock("b", 10, 30.4)}}}};
  EXPECT_EQ(stage.host().boxes(BoxKind::group), (std::vector<kit::Rect>{{20, 20, 260, 97}}));
  EXPECT_EQ(stage.host().boxes(BoxKind::separator), (std::vector<kit::Rect>{{32, 68, 236, 1}}));
}

TEST(FormTest, sectionsStandOneUnderAnother) {
  FormStage stage{{Section{.rows = {fixedBlock("a", 10, 22)}}, Section{.rows = {fixedBlock("b", 10, 22)}}}};
  EXPECT_EQ(stage.host().boxes(BoxKind::group), (std::vector<kit::Rect>{{20, 20, 260, 40}, {20, 78, 260, 40}}));
  EXPECT_EQ(stage.window().contentSize(), (kit::Size{300, 138}));
}

TEST(FormTest, anAbsentSectionLeavesNoGap) {
  FormStage stage{{EmptyView{}, Section{.rows = {fixedBlock("a", 10, 22)}}, EmptyView{},
                   Section{.rows = {fixedBlock("b", 10, 22)}}}};
  EXPECT_EQ(stage.host().boxes(BoxKind::group), (std::vector<kit::Rect>{{20, 20, 260, 40}, {20, 78, 260, 40}}));
  EXPECT_EQ(stage.window().contentSize(), (kit::Size{300, 138}));
}

TEST(FormTest, oneThatFitsDoesNotScroll) {
  FormStage stage{{Section{.rows = {fixedBlock("a", 10, 22)}}}};
  const auto& area = stage.first<kit::ScrollArea>();
  EXPECT_EQ(area.frame(), (kit::Rect{0, 0, 300, 80}));
  EXPECT_EQ(area.contentHeight(), 80);
}

TEST(FormTest, theHostShowsItsScrollArea) {
  FormStage stage{{Section{.rows = {fixedBlock("a", 10, 22)}}}};
  EXPECT_NE(stage.first<kit::ScrollArea>().peer(), nullptr);
}

TEST(FormTest, oneThatIsTooTallScrolls) {
  Stage stage{FormStage::page({Section{.rows = {fixedBlock("a", 10, 500)}}}).frame({.maxHeight = 200})};
  stage.open();
  const auto& area = stage.first<kit::ScrollArea>();
  EXPECT_EQ(area.frame(), (kit::Rect{0, 0, 300, 200}));
  EXPECT_EQ(area.contentHeight(), 558);
  EXPECT_EQ(stage.frame("a"), (kit::Rect{32, 29, 236, 500}));
}

TEST(FormTest, aLowScreenMakesItScroll) {
  Stage stage{FormStage::page({Section{.rows = {fixedBlock("a", 10, 500)}}}).fixedSize()};
  stage.host().setAvailableHeight(300);
  stage.open();
  EXPECT_EQ(stage.window().contentSize(), (kit::Size{300, 300}));
  EXPECT_EQ(stage.first<kit::ScrollArea>().frame().height, 300);
  EXPECT_EQ(stage.first<kit::ScrollArea>().contentHeight(), 558);
}

TEST(FormTest, aTallerScreenScrollsItBack) {
  Stage stage{FormStage::page({Section{.rows = {fixedBlock("a", 10, 500)}}})};
  stage.host().setAvailableHeight(300);
  stage.open();
  auto& area = stage.first<kit::ScrollArea>();
  area.scrollTo(258);
  stage.host().setAvailableHeight(1000);
  stage.window().metricsChanged();
  EXPECT_EQ(area.offset(), 0);
}

TEST(FormTest, aControlIsDescribedByItsRowAndItsSection) {
  const View caution = Symbol{.name = "exclamationmark.circle", .title = "Caution"};
  FormStage stage{
      {Section{.rows = {LabeledRow{.label = Label{.title = "Delay", .symbol = "timer"},
                                   .title = "Delay",
                                   .description = Text{"How long."},
                                   .control = Counter{.name = "delay"}},
                        LabeledRow{.label = Text{"Dim"}, .control = Counter{.name = "dim"}}, Counter{.name = "free"}},
               .footer = HStack{.children = {caution, Text{"Not always."}, Counter{.name = "foot"}}}},
       Section{.rows = {Counter{.name = "other"}}}}};
  const auto described = [&stage](const std::string& name) {
    return stage.find<kit::Button>(name).accessibleDescription();
  };
  EXPECT_EQ(described("delay"), "How long. Caution Not always.");
  EXPECT_EQ(described("dim"), "Caution Not always.");
  EXPECT_EQ(described("free"), "Caution Not always.");
  EXPECT_EQ(described("foot"), "");
  EXPECT_EQ(described("other"), "");
  EXPECT_EQ(stage.find<kit::Button>("delay").label(), &stage.find<kit::TextLabel>("Delay"));
  EXPECT_EQ(stage.find<kit::Button>("free").label(), nullptr);
  EXPECT_EQ(stage.find<kit::TextLabel>("Not always.").accessibleDescription(), "");
}

TEST(FormTest, otherWordsAreTakenOver) {
  const auto content = [](const std::string& description) {
    return FormStage::page(
        {Section{.rows = {LabeledRow{
                     .label = Text{"Delay"}, .description = Text{description}, .control = Counter{.name = "delay"}}}}});
  };
  Stage stage{content("before")};
  stage.open();
  stage.show(content("after"));
  EXPECT_EQ(stage.find<kit::Button>("delay").accessibleDescription(), "after");
}

View labelled(const View& label, const View& description, const View& control) {
  return View(LabeledRow{.label = label, .title = "row", .description = description, .control = control})
      .frame({.width = 236});
}

TEST(LabeledRowTest, theControlStandsOnTheRightInTheMiddle) {
  Stage stage{labelled(fixedBlock("label", 50, 18), EmptyView{}, fixedBlock("control", 40, 24))};
  stage.open();
  EXPECT_EQ(stage.window().contentSize(), (kit::Size{236, 24}));
  EXPECT_EQ(stage.frame("label"), (kit::Rect{0, 3, 50, 18}));
  EXPECT_EQ(stage.first<BlockControl>().sizes().ideal.width, 50);
  EXPECT_EQ(stage.window().controls().back()->frame(), (kit::Rect{196, 0, 40, 24}));
}

TEST(LabeledRowTest, aSwitchKnowsWhereItsLabelStands) {
  const Binding<bool> off = {.get = [] { return false; }, .set = [](bool) {}};
  Stage stage{labelled(fixedBlock("label", 50, 18), fixedBlock("description", 60, 14), Toggle{.isOn = off})};
  stage.open();
  EXPECT_EQ(stage.first<kit::Toggle>().labelFrame(), (kit::Rect{0, 0, 236 - 38, 34}));
  stage.show(labelled(fixedBlock("label", 50, 18), EmptyView{},
                      HStack{.children = {Toggle{.isOn = off}, fixedBlock("beside", 10, 10)}}));
  EXPECT_EQ(stage.first<kit::Toggle>().labelFrame(), kit::Rect{});
}

TEST(LabeledRowTest, theDescriptionStandsUnderTheTitle) {
  Stage stage{labelled(fixedBlock("label", 50, 18), fixedBlock("description", 60, 14), fixedBlock("control", 40, 24))};
  stage.open();
  EXPECT_EQ(stage.window().contentSize().height, 34);
  EXPECT_EQ(stage.frame("label"), (kit::Rect{0, 0, 50, 18}));
  EXPECT_EQ(stage.frame("description"), (kit::Rect{26, 20, 60, 14}));
  EXPECT_EQ(stage.window().controls().back()->frame(), (kit::Rect{196, 5, 40, 24}));
}

TEST(LabeledRowTest, theControlTakesItsIdealWidthAndTheLabelTheRest) {
  Stage stage{labelled(wideBlock("label", 10, 18), Text{"0123456789012345678901234567890123456789"},
                       wideBlock("control", 100, 24))};
  stage.open();
  EXPECT_EQ(stage.frame("label").width, 236 - 100 - 12);
  EXPECT_EQ(stage.window().controls().back()->frame().width, 100);
  const kit::Rect& description = stage.frame("0123456789012345678901234567890123456789");
  EXPECT_EQ(description.width, 236 - 100 - 12 - 26);
  EXPECT_EQ(description.height, 3 * 14);
}

}  // namespace
}  // namespace tarnwell::view
