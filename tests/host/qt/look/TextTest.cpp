#include <gtest/gtest.h>

#include <QtGui/QImage>
#include <QtGui/QPainter>

#include "host/qt/Stage.h"
#include "host/qt/look/WrappedText.h"

namespace tarnwell::host_qt {
namespace {

constexpr const char* sentence = "How long the mouse must be against the screen edge before the dock reveals.";

kit::Measurement measured(const std::string& text, kit::FontRole role, std::optional<double> width = {}) {
  return testHost().measureText(text, role, width);
}

// Where the text left ink on a large sheet.
QRect inkOf(const WrappedText& text) {
  QImage sheet(800, 200, QImage::Format_RGB32);
  sheet.fill(Qt::white);
  QPainter painter(&sheet);
  text.draw(painter, {100, 50});
  painter.end();
  QRect ink;
  for (int y = 0; y < sheet.height(); ++y) {
    for (int x = 0; x < sheet.width(); ++x) {
      if (sheet.pixelColor(x, y).lightness() < 128) {
        ink |= QRect(x, y, 1, 1);
      }
    }
  }
  return ink.translated(-100, -50);
}

TEST(TextTest, measuresAreWholePoints) {
  for (const auto role : {kit::FontRole::body, kit::FontRole::subheadline, kit::FontRole::caption}) {
    const kit::Measurement size = measured("Animation", role);
    EXPECT_EQ(size.size.width, std::ceil(size.size.width));
    EXPECT_EQ(size.size.height, std::ceil(size.size.height));
    EXPECT_EQ(size.firstBaseline, std::round(size.firstBaseline));
  }
}

TEST(TextTest, rolesDifferInSize) {
  const double body = measured(sentence, kit::FontRole::body).size.width;
  const double subheadline = measured(sentence, kit::FontRole::subheadline).size.width;
  const double caption = measured(sentence, kit::FontRole::caption).size.width;
  EXPECT_GT(body, subheadline);
  EXPECT_GT(subheadline, caption);
}

TEST(TextTest, breaksAtTheGivenWidth) {
  const kit::Size whole = measured(sentence, kit::FontRole::subheadline).size;
  const kit::Size broken = measured(sentence, kit::FontRole::subheadline, 250).size;
  EXPECT_GT(whole.width, 250);
  EXPECT_LE(broken.width, 250);
  EXPECT_EQ(broken.height, 2 * whole.height);
}

TEST(TextTest, aWidthThatWasMeasuredBreaksNothing) {
  const kit::Size whole = measured(sentence, kit::FontRole::body).size;
  EXPECT_EQ(measured(sentence, kit::FontRole::body, whole.width).size, whole);
}

TEST(TextTest, emptyTextHasALine) {
  EXPECT_EQ(measured("", kit::FontRole::body).size.width, 0);
  EXPECT_EQ(measured("", kit::FontRole::body).size.height, measured("x", kit::FontRole::body).size.height);
}

TEST(TextTest, paintsWithinItsMeasures) {
  const WrappedText text(sentence, testHost().theme().font(kit::FontRole::body), 250);
  const QRect ink = inkOf(text);
  EXPECT_GE(ink.left(), -1);
  EXPECT_GE(ink.top(), 0);
  EXPECT_LE(ink.right(), text.size().width() + 1);
  EXPECT_LE(ink.bottom(), text.size().height());
  EXPECT_GT(ink.height(), text.size().height() / 2);
}

TEST(TextTest, lettersStandOnTheBaseline) {
  const WrappedText text("HHH", testHost().theme().font(kit::FontRole::body), std::nullopt);
  EXPECT_NEAR(inkOf(text).bottom() + 1, text.firstBaseline(), 1);
}

}  // namespace
}  // namespace tarnwell::host_qt
