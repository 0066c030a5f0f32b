#include "view/Dump.h"

#include <gtest/gtest.h>

#include "fixtures/ExpectDump.h"
#include "kit/controls/buttons/Toggle.h"
#include "view/Counter.h"
#include "view/Stage.h"
#include "view/controls/buttons/Toggle.h"
#include "view/controls/containers/Form.h"
#include "view/controls/containers/LabeledRow.h"
#include "view/controls/containers/Section.h"
#include "view/controls/text/Label.h"
#include "view/controls/text/Symbol.h"
#include "view/controls/text/Text.h"
#include "view/layout/Stack.h"
#include "view/tree/Composite.h"

namespace tarnwell::view {
namespace {

TEST(DumpTest, everyViewIsALineUnderItsContainer) {
  const View row = LabeledRow{.label = Label{.title = "Dim", .symbol = "eye"},
                              .title = "Dim",
                              .description = Text{"Dims."},
                              .control = Toggle{.title = "Dim", .isOn = {.get = [] { return true; }}}};
  const View save = Button{.title = "Save", .keyboardShortcut = KeyboardShortcut::defaultAction};
  const View reset = Button{.title = "Reset", .role = kit::Button::Role::destructive};
  const Stage stage{
      Form{.sections = {Section{.rows = {row}, .footer = Text{"Foot."}},
                        Section{.footer = HStack{.spacing = 3, .children = {save, Spacer{}, reset.disabled(true)}}}}}};
  fixtures::expectDump("view/tree/Form.dump", stage.dump());
}

TEST(DumpTest, framesAreTold) {
  const Stage stage{View(Button{.title = "framed"})
                        .frame({.width = 50, .alignment = kit::TextAlignment::leading})
                        .frame({.maxHeight = 70.5})};
  EXPECT_EQ(stage.dump(), "Frame at most 70.5 high centred\n  Frame width 50 leading\n    Button \"framed\"\n");
}

TEST(DumpTest, itShowsTheControlAndNotTheDescription) {
  const Stage stage{Toggle{.title = "switch", .isOn = {.get = [] { return false; }, .set = [](bool) {}}}};
  stage.first<kit::Toggle>().setOn(true);
  EXPECT_EQ(stage.dump(), "Toggle \"switch\": on\n");
}

TEST(DumpTest, itMakesNoBody) {
  int bodies = 0;
  const Stage stage{Numbered{.make = [&bodies](const State<int>&) -> View {
    ++bodies;
    return Text{"a"};
  }}};
  EXPECT_EQ(stage.dump(), stage.dump());
  EXPECT_EQ(bodies, 1);
}

}  // namespace
}  // namespace tarnwell::view
