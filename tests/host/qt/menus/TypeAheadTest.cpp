#include "host/qt/menus/TypeAhead.h"

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

  bool isTyping(const QString& text, quint64 milliseconds, Qt::KeyboardModifiers modifiers = {}) const {
    return search.isTyping(Key(text, milliseconds, modifiers), fruits);
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

TEST_F(TypeAheadTest, aBlankIsTypedOnlyWithinTheWordsOfATitle) {
  EXPECT_FALSE(isTyping(" ", 5000));
  for (const QChar letter : QStringLiteral("bloo")) {
    type(letter, 5000);
  }
  EXPECT_FALSE(isTyping(" ", 5100));
  type("d", 5200);
  EXPECT_TRUE(isTyping(" ", 5300));
  EXPECT_FALSE(isTyping(" ", 7000));
  type(" ", 5300);
  EXPECT_EQ(type("o", 5400), 4);
}

TEST_F(TypeAheadTest, onlyPlainLettersAreTyped) {
  EXPECT_TRUE(isTyping("a", 0));
  EXPECT_TRUE(isTyping("A", 0, Qt::ShiftModifier));
  EXPECT_TRUE(isTyping("1", 0, Qt::KeypadModifier));
  EXPECT_FALSE(isTyping("a", 0, Qt::AltModifier));
  EXPECT_FALSE(isTyping("\r", 0));
  EXPECT_FALSE(isTyping("", 0));
}

}  // namespace
}  // namespace tarnwell::host_qt
