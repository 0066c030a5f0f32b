#include <gtest/gtest.h>

#include <QtGui/QKeyEvent>

#include "host/qt/look/Keys.h"

namespace tarnwell::host_qt {
namespace {

struct Case {
  const char* name = "";
  Qt::Key key = Qt::Key_unknown;
  Qt::KeyboardModifiers modifiers = Qt::NoModifier;
  const char* text = "";
  std::string characters = {};
  unsigned flags = 0;
  std::string shown = {};
};

std::ostream& operator<<(std::ostream& out, const Case& tested) { return out << tested.name; }

class KeysTest : public testing::TestWithParam<Case> {};

TEST_P(KeysTest, saysWhatThePlatformsKeyMeans) {
  const Case& tested = GetParam();
  const kit::KeyEvent event =
      toKeyEvent(QKeyEvent(QEvent::KeyPress, tested.key, tested.modifiers, QString(tested.text)));
  EXPECT_EQ(event.charactersIgnoringModifiers, tested.characters);
  EXPECT_EQ(event.modifierFlags, tested.flags);
  EXPECT_EQ(event.shownInMenus, tested.shown);
}

INSTANTIATE_TEST_SUITE_P(
    keys, KeysTest,
    testing::Values(Case{.name = "returnKey", .key = Qt::Key_Return, .text = "\r", .characters = "\r", .shown = "\r"},
                    Case{.name = "enterOfTheKeypad",
                         .key = Qt::Key_Enter,
                         .modifiers = Qt::KeypadModifier,
                         .text = "\r",
                         .characters = "\r",
                         .shown = "\r"},
                    Case{
                        .name = "escape", .key = Qt::Key_Escape, .text = "\x1b", .characters = "\x1b", .shown = "\x1b"},
                    Case{.name = "whatWritesNothingHasACharacter",
                         .key = Qt::Key_PageDown,
                         .modifiers = Qt::KeypadModifier,
                         .characters = kit::pageDownKey,
                         .shown = kit::pageDownKey},
                    Case{.name = "controlIsCommand",
                         .key = Qt::Key_Comma,
                         .modifiers = Qt::ControlModifier,
                         .characters = ",",
                         .flags = 0x100000,
                         .shown = ","},
                    Case{.name = "shiftIsNoModifierThatIsLeftOut",
                         .key = Qt::Key_W,
                         .modifiers = Qt::ControlModifier | Qt::ShiftModifier,
                         .text = "\x17",
                         .characters = "W",
                         .flags = 0x120000,
                         .shown = "W"},
                    Case{.name = "altIsOption",
                         .key = Qt::Key_Q,
                         .modifiers = Qt::AltModifier,
                         .text = "q",
                         .characters = "q",
                         .flags = 0x80000,
                         .shown = "Q"}),
    [](const auto& tested) { return tested.param.name; });

}  // namespace
}  // namespace tarnwell::host_qt
