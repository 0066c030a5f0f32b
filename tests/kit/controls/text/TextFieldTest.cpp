#include "kit/controls/text/TextField.h"

#include <gtest/gtest.h>

#include "kit/ShownControl.h"
#include "kit/control/Window.h"

namespace tarnwell::kit {
namespace {

class TextFieldTest : public testing::Test {
 protected:
  TextFieldTest() {
    field->setAction([this](const std::string& typed) { committed.push_back(typed); });
    field->setText("0.2");
    field.told();
  }

  ShownControl<TextField> field;
  Lines committed = {};
};

TEST_F(TextFieldTest, settingItTellsThePeerOnceAndSendsNothing) {
  field->setText("0.5");
  field->setText("0.5");
  EXPECT_EQ(field.told(), Lines{"field: value"});
  EXPECT_EQ(committed, Lines{});
}

TEST_F(TextFieldTest, typingShowsButDoesNotCount) {
  field->type("0.");
  field->type("0.7");
  EXPECT_EQ(field->shownText(), "0.7");
  EXPECT_EQ(field->text(), "0.2");
  EXPECT_TRUE(field->isEditing());
  EXPECT_EQ(committed, Lines{});
}

TEST_F(TextFieldTest, typingIntoAnotherFieldOfTheWindowCommits) {
  TextField other;
  Window window("window", "Window");
  window.setControls({&*field, &other});
  field->type("0.7");
  field->type("0.8");
  EXPECT_EQ(committed, Lines{});
  other.type("1");
  EXPECT_EQ(committed, Lines{"0.8"});
  EXPECT_FALSE(field->isEditing());
  EXPECT_EQ(other.shownText(), "1");
  window.setControls({});
}

TEST_F(TextFieldTest, aCommitSendsWhatWasTypedOnce) {
  field->type("0.7");
  field->commit();
  field->commit();
  EXPECT_EQ(committed, Lines{"0.7"});
  EXPECT_FALSE(field->isEditing());
}

TEST_F(TextFieldTest, aCommitOfTheSameTextIsSentToo) {
  field->type("0.2");
  field->commit();
  EXPECT_EQ(committed, Lines{"0.2"});
}

TEST_F(TextFieldTest, afterACommitItShowsWhatItsOwnerDecided) {
  field->type("seven");
  field->commit();
  EXPECT_EQ(field->shownText(), "0.2");
  field->setAction([this](const std::string&) { field->setText("0.46"); });
  field->type("0.456");
  field->commit();
  EXPECT_EQ(field->shownText(), "0.46");
}

TEST_F(TextFieldTest, nothingCommitsWithoutTyping) {
  field->commit();
  EXPECT_EQ(committed, Lines{});
  EXPECT_EQ(field.told(), Lines{});
}

TEST_F(TextFieldTest, aCancelGivesUpWhatWasTyped) {
  field->type("0.7");
  field.told();
  field->cancel();
  EXPECT_EQ(field.told(), Lines{"field: value"});
  EXPECT_EQ(field->shownText(), "0.2");
  field->cancel();
  EXPECT_EQ(field.told(), Lines{});
  field->commit();
  EXPECT_EQ(committed, Lines{});
}

TEST_F(TextFieldTest, aTextSetMeanwhileLeavesTheTypingAlone) {
  field->type("0.7");
  field.told();
  field->setText("0.9");
  EXPECT_EQ(field.told(), Lines{});
  EXPECT_EQ(field->shownText(), "0.7");
  field->cancel();
  EXPECT_EQ(field->shownText(), "0.9");
}

TEST_F(TextFieldTest, aDisabledOneIgnoresTyping) {
  field->setEnabled(false);
  field->type("0.7");
  field->commit();
  EXPECT_EQ(field->shownText(), "0.2");
  EXPECT_EQ(committed, Lines{});
}

}  // namespace
}  // namespace tarnwell::kit
