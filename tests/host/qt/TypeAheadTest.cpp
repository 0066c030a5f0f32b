#include "host/qt/TypeAhead.h"

#include <gtest/gtest.h>

#include <QtGui/QKeyEvent>

namespace tarnwell::host_qt {
namespace {

const QStringList fruits = {"Apple", "Apricot", "", "Banana", "blood orange", "Avocado"};

/// A key that went down at a time of the test's.
struct Key : QKeyEvent {
  Key(const QString& text, quint64 milliseconds, Qt::KeyboardModifiers modifiers = {})
      : QKeyEvent(QEvent::KeyPress, 0, modifiers, text) {
    setTimestamp(milliseconds);
  }
};

class TypeAheadTest : public testing::Test {
 protected:
  int type(const QString& text, quint64 milliseconds) {
    current = search.rowFor(Key(text, milliseconds), fruits, current).value_or(current);
    return current;
  }

  TypeAhead search;
  int current = -1;
};

TEST_F(TypeAheadTest, aLetterGoesToTheNextRowThatBeginsWithIt) {
  EXPECT_EQ(type("a", 5000), 0);
  EXPECT_EQ(type("a", 10000), 1);
  EXPECT_EQ(type("A", 15000), 5);
  EXPECT_EQ(type("a", 20000), 0);
  EXPECT_EQ(type("b", 25000), 3);
}

TEST_F(TypeAheadTest, lettersThatFollowSoonAreOneWord) {
  EXPECT_EQ(type("a", 5000), 0);
  EXPECT_EQ(type("p", 5400), 0);
  EXPECT_EQ(type("r", 6400), 1);
  EXPECT_EQ(type("b", 9000), 3);
  EXPECT_EQ(type("l", 9100), 4);
}

TEST_F(TypeAheadTest, theSameLetterSoonGoesOn) {
  EXPECT_EQ(type("a", 5000), 0);
  EXPECT_EQ(type("a", 5100), 1);
  EXPECT_EQ(type("a", 5200), 5);
}

TEST_F(TypeAheadTest, aWordThatNoTitleBeginsWithGoesNowhere) {
  EXPECT_EQ(type("x", 5000), -1);
  EXPECT_EQ(type("b", 5100), 3);
}

TEST_F(TypeAheadTest, aBlankIsTypedOnlyWithinAWord) {
  EXPECT_FALSE(search.isTyping(Key(" ", 5000)));
  type("b", 5000);
  type("l", 5100);
  EXPECT_TRUE(search.isTyping(Key(" ", 5200)));
  EXPECT_FALSE(search.isTyping(Key(" ", 7000)));
}

TEST_F(TypeAheadTest, onlyPlainLettersAreTyped) {
  EXPECT_TRUE(search.isTyping(Key("a", 0)));
  EXPECT_TRUE(search.isTyping(Key("A", 0, Qt::ShiftModifier)));
  EXPECT_TRUE(search.isTyping(Key("1", 0, Qt::KeypadModifier)));
  EXPECT_FALSE(search.isTyping(Key("a", 0, Qt::AltModifier)));
  EXPECT_FALSE(search.isTyping(Key("\r", 0)));
  EXPECT_FALSE(search.isTyping(Key("", 0)));
}

}  // namespace
}  // namespace tarnwell::host_qt
