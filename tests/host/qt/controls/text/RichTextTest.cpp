#include "kit/controls/text/RichText.h"

#include <gtest/gtest.h>

#include <QtGui/QAccessible>
#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>
#include <chrono>
#include <string>
#include <vector>

#include "host/qt/Stage.h"
#include "host/qt/WidgetDriver.h"
#include "host/qt/control/ControlLink.h"
#include "host/qt/controls/Controls.h"
#include "kit/controls/containers/ScrollArea.h"

namespace tarnwell::host_qt {
namespace {

constexpr kit::Rect place = {.x = 20, .y = 20, .width = 300, .height = 120};

class RichTextTest : public testing::Test {
 protected:
  kit::RichText& add() {
    auto made = std::make_unique<kit::RichText>();
    made->setText({{{.style = kit::StyledText::Paragraph::Style::heading, .level = 1, .runs = {{.text = "New"}}},
                    {.runs = {{.text = "See "},
                              {.text = "one", .link = "https://updates.invalid/1"},
                              {.text = " and "},
                              {.text = "two", .link = "https://updates.invalid/2"}}}}});
    made->setLinkAction([this](const std::string& link) { followed.push_back(link); });
    auto& text = stage.add(std::move(made), place);
    stage.add(makeButton("after"), {.x = 20, .y = 160, .width = 80, .height = 24});
    stage.show();
    return text;
  }

  static kit::Point middleOf(const kit::RichText& text, int link) {
    const QPointF centre = ControlLink::of(&driver::widget(text))->partRect(link).center();
    return {.x = centre.x(), .y = centre.y()};
  }

  Stage stage;
  std::vector<std::string> followed;
};

TEST_F(RichTextTest, clickOnALinkFollowsItAndBesideItDoesNothing) {
  auto& text = add();
  driver::clickAt(text, {.x = 12, .y = 12});
  EXPECT_TRUE(followed.empty());
  driver::clickAt(text, middleOf(text, 1));
  driver::clickAt(text, middleOf(text, 0));
  EXPECT_EQ(followed, (std::vector<std::string>{"https://updates.invalid/2", "https://updates.invalid/1"}));
}

TEST_F(RichTextTest, aPressThatIsLetGoElsewhereFollowsNothing) {
  auto& text = add();
  driver::press(text, middleOf(text, 0));
  driver::release(text, middleOf(text, 1));
  EXPECT_TRUE(followed.empty());
}

TEST_F(RichTextTest, tabGoesFromLinkToLinkAndReturnFollowsIt) {
  auto& text = add();
  driver::keyAt(text, Qt::Key_Return);
  driver::key(stage.window(), Qt::Key_Tab);
  EXPECT_TRUE(driver::widget(text).hasFocus());
  driver::key(stage.window(), Qt::Key_Space);
  EXPECT_EQ(followed, (std::vector<std::string>{"https://updates.invalid/1", "https://updates.invalid/2"}));
  driver::key(stage.window(), Qt::Key_Tab);
  EXPECT_FALSE(driver::widget(text).hasFocus());
}

TEST_F(RichTextTest, tellsWhichLinkHasTheKeyboard) {
  auto& text = add();
  QAccessibleInterface* told = QAccessible::queryAccessibleInterface(&driver::widget(text));
  EXPECT_EQ(told->focusChild(), nullptr);
  driver::key(stage.window(), Qt::Key_Tab);
  EXPECT_TRUE(told->child(0)->state().focused);
  driver::key(stage.window(), Qt::Key_Tab);
  EXPECT_FALSE(told->child(0)->state().focused);
  EXPECT_TRUE(told->child(1)->state().focused);
}

TEST_F(RichTextTest, aLinkBelowWhatIsSeenIsScrolledIntoView) {
  auto& area = stage.add(std::make_unique<kit::ScrollArea>(), {.x = 20, .y = 20, .width = 300, .height = 60});
  const kit::StyledText::Run first = {.text = "one", .link = "https://updates.invalid/1"};
  const kit::StyledText::Run last = {.text = "two", .link = "https://updates.invalid/2"};
  auto text = std::make_unique<kit::RichText>();
  text->setText({{{.runs = {first}}, {.runs = {{.text = std::string(20, '\n')}}}, {.runs = {last}}}});
  stage.addTo(area, std::move(text), {.width = 300, .height = 600});
  area.setContentHeight(600);
  stage.show();
  driver::key(stage.window(), Qt::Key_Tab);
  EXPECT_EQ(area.offset(), 0);
  driver::key(stage.window(), Qt::Key_Tab);
  EXPECT_GT(area.offset(), 100);
}

TEST_F(RichTextTest, numbersGoOnBehindAListWithinTheList) {
  using Paragraph = kit::StyledText::Paragraph;
  const Paragraph one = {.style = Paragraph::Style::item, .level = 1, .number = 1, .runs = {{.text = "one"}}};
  const Paragraph within = {.style = Paragraph::Style::item, .level = 2, .runs = {{.text = "within"}}};
  const Paragraph two = {.style = Paragraph::Style::item, .level = 1, .number = 2, .runs = {{.text = "two"}}};
  const auto lastLine = [this](std::vector<Paragraph> paragraphs) {
    auto text = std::make_unique<kit::RichText>();
    text->setText({std::move(paragraphs)});
    kit::RichText& added = stage.add(std::move(text), place);
    const double height = added.measure({.width = 300}).size.height;
    added.setFrame({.width = 300, .height = height});
    stage.show();
    return driver::widget(added).grab(QRect(0, static_cast<int>(height) - 26, 300, 26)).toImage();
  };
  Paragraph alone = two;
  alone.number = 1;
  EXPECT_EQ(lastLine({one, within, two}), lastLine({one, two}));
  EXPECT_NE(lastLine({one, within, two}), lastLine({alone}));
}

TEST_F(RichTextTest, listsThatAreFarWithinEachOtherLeaveRoomForTheirText) {
  const auto heightAt = [this](unsigned level) {
    auto text = std::make_unique<kit::RichText>();
    text->setText({{{.style = kit::StyledText::Paragraph::Style::item,
                     .level = level,
                     .runs = {{.text = "one two three four five six seven eight nine ten"}}}}});
    return stage.add(std::move(text), place).measure({.width = 300}).size.height;
  };
  EXPECT_EQ(heightAt(256), heightAt(6));
  EXPECT_EQ(heightAt(0), heightAt(1));
}

TEST_F(RichTextTest, whatIsSelectedByTheMouseIsCopied) {
  auto& text = add();
  QGuiApplication::clipboard()->clear();
  driver::press(text, {.x = 0, .y = 0});
  driver::moveTo(text, middleOf(text, 0));
  driver::release(text, middleOf(text, 0));
  EXPECT_TRUE(followed.empty());
  driver::key(stage.window(), Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString().substr(0, 8), "New\nSee ");
  driver::key(stage.window(), Qt::Key_A, Qt::ControlModifier);
  driver::key(stage.window(), Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), "New\nSee one and two");
}

TEST_F(RichTextTest, copyWithNothingSelectedLeavesTheClipboardAlone) {
  auto& text = add();
  QGuiApplication::clipboard()->setText("mine");
  driver::clickAt(text, {.x = 12, .y = 12});
  driver::key(stage.window(), Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), "mine");
}

TEST_F(RichTextTest, returnInATextWithoutLinksPressesTheDefaultButton) {
  auto& text = add();
  text.setText({{{.runs = {{.text = "Nothing to follow"}}}}});
  int pressed = 0;
  auto button = makeButton("Install");
  button->setDefault(true);
  button->setAction([&pressed] { ++pressed; });
  stage.add(std::move(button), {.x = 120, .y = 160, .width = 80, .height = 24});
  stage.show();
  driver::clickAt(text, {.x = 12, .y = 12});
  ASSERT_TRUE(driver::widget(text).hasFocus());
  driver::key(stage.window(), Qt::Key_Return);
  EXPECT_EQ(pressed, 1);
}

TEST_F(RichTextTest, isLaidOutInLittleTimeHoweverManyPartsItHas) {
  kit::StyledText many = {{{}}};
  for (int count = 0; count < 4000; ++count) {
    many.paragraphs.front().runs.push_back({.text = "x", .isBold = true});
    many.paragraphs.front().runs.push_back({.text = "y "});
  }
  auto& text = add();
  const auto began = std::chrono::steady_clock::now();
  text.setText(std::move(many));
  EXPECT_LT(std::chrono::steady_clock::now() - began, std::chrono::seconds(10));
}

TEST_F(RichTextTest, isAsHighAsItsWidthMakesIt) {
  auto& text = add();
  const double wide = text.measure({.width = 300}).size.height;
  EXPECT_GT(text.measure({.width = 60}).size.height, wide);
  text.setText({});
  EXPECT_LT(text.measure({.width = 300}).size.height, wide);
}

TEST_F(RichTextTest, tellsItsLinksWhereTheyStand) {
  auto& text = add();
  QAccessibleInterface* told = QAccessible::queryAccessibleInterface(&driver::widget(text));
  ASSERT_EQ(told->childCount(), 2);
  EXPECT_EQ(told->child(1)->role(), QAccessible::Link);
  EXPECT_EQ(told->child(1)->text(QAccessible::Name), "two");
  EXPECT_GT(told->child(1)->rect().left(), told->child(0)->rect().right());
  auto* content = told->textInterface();
  ASSERT_NE(content, nullptr);
  EXPECT_EQ(content->text(0, content->characterCount()), "New\nSee one and two");
}

}  // namespace
}  // namespace tarnwell::host_qt
