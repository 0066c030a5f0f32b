#include <gtest/gtest.h>

#include <QtGui/QAccessible>
#include <vector>

#include "host/qt/Stage.h"
#include "host/qt/WidgetDriver.h"
#include "host/qt/control/Announcement.h"
#include "host/qt/controls/Controls.h"
#include "kit/controls/containers/ScrollArea.h"

namespace tarnwell::host_qt {
namespace {

using driver::seen;

using Types = std::vector<QAccessible::Event>;

Types typesOf(const kit::Control& control, kit::Aspect aspect) {
  Types types;
  for (const auto& announcement : announcementsOf(driver::widget(control), control, aspect)) {
    types.push_back(announcement->type());
  }
  return types;
}

QVariant announcedValue(const kit::Control& control) {
  const auto announcements = announcementsOf(driver::widget(control), control, kit::Aspect::value);
  return static_cast<QAccessibleValueChangeEvent&>(*announcements.at(0)).value();
}

TEST(AnnouncementTest, newValuesAreTold) {
  Stage stage;
  auto& slider = stage.add(makeSlider(0.5), usualPlace);
  auto& stepper = stage.add(makeStepper(), usualPlace);
  auto& popUp = stage.add(makePopUpButton(), usualPlace);
  stage.show();
  EXPECT_EQ(typesOf(slider, kit::Aspect::value), Types{QAccessible::ValueChanged});
  EXPECT_EQ(announcedValue(slider), QVariant(0.5));
  EXPECT_EQ(announcedValue(stepper), QVariant(0.0));
  EXPECT_EQ(announcedValue(popUp), QVariant("Genie"));
}

TEST(AnnouncementTest, switchTellsThatItsStateIsNew) {
  Stage stage;
  const auto& toggle = stage.add(makeToggle(), usualPlace);
  stage.show();
  EXPECT_EQ(typesOf(toggle, kit::Aspect::value), Types{QAccessible::StateChanged});
}

TEST(AnnouncementTest, namesAndDescriptionsAreToldOnce) {
  Stage stage;
  auto& label = stage.add(makeLabel("Text"), usualPlace);
  stage.show();
  EXPECT_EQ(typesOf(label, kit::Aspect::title), Types{QAccessible::NameChanged});
  EXPECT_EQ(typesOf(label, kit::Aspect::style), Types{});
  label.setAccessibleName("Text");
  EXPECT_EQ(typesOf(label, kit::Aspect::title), Types{});
  EXPECT_EQ(typesOf(label, kit::Aspect::accessibleName), Types{QAccessible::NameChanged});
  EXPECT_EQ(typesOf(label, kit::Aspect::accessibleDescription), Types{QAccessible::DescriptionChanged});
}

TEST(AnnouncementTest, everyTabTellsWhetherItIsChosenAndTheChosenOneThatItHasTheFocus) {
  Stage stage;
  auto& bar = stage.add(makeTabBar(), {.x = 0, .y = 0, .width = 400, .height = 60});
  stage.show();
  EXPECT_EQ(typesOf(bar, kit::Aspect::value), (Types{QAccessible::Selection, QAccessible::Selection}));
  driver::keyAt(bar, Qt::Key_Right);
  const auto told = announcementsOf(driver::widget(bar), bar, kit::Aspect::value);
  ASSERT_EQ(told.size(), 3U);
  EXPECT_EQ(told[0]->accessibleInterface(), seen(bar).child(0));
  EXPECT_EQ(told[1]->accessibleInterface(), seen(bar).child(1));
  EXPECT_EQ(told[2]->type(), QAccessible::Focus);
  EXPECT_EQ(told[2]->accessibleInterface(), seen(bar).child(1));
}

TEST(AnnouncementTest, aPageComesAndGoesAsAWhole) {
  Stage stage;
  auto& area = stage.add(std::make_unique<kit::ScrollArea>(), usualPlace);
  auto& toggle = stage.addTo(area, makeToggle(), usualPlace);
  for (const auto type : {QAccessible::ObjectShow, QAccessible::ObjectHide}) {
    EXPECT_TRUE(isWorthTelling(QAccessibleEvent(&driver::widget(area), type)));
    EXPECT_FALSE(isWorthTelling(QAccessibleEvent(&driver::widget(toggle), type)));
    EXPECT_TRUE(isWorthTelling(QAccessibleEvent(&driver::widget(stage.window()), type)));
  }
  EXPECT_TRUE(isWorthTelling(QAccessibleEvent(&driver::widget(toggle), QAccessible::Focus)));
}

TEST(AnnouncementTest, aControlThatIsNotSeenYetHasNoNews) {
  Stage stage;
  const auto& toggle = stage.add(makeToggle(), usualPlace);
  EXPECT_EQ(typesOf(toggle, kit::Aspect::value), Types{});
  EXPECT_EQ(typesOf(toggle, kit::Aspect::accessibleName), Types{});
}

}  // namespace
}  // namespace tarnwell::host_qt
