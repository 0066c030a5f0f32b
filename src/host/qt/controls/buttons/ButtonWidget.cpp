#include <QtGui/QPainter>
#include <cmath>

#include "host/qt/control/PressableWidget.h"
#include "host/qt/controls/ControlWidgets.h"
#include "host/qt/look/Drawing.h"
#include "host/qt/look/Theme.h"
#include "host/qt/look/WrappedText.h"
#include "kit/controls/buttons/Button.h"

namespace tarnwell::host_qt {
namespace {

constexpr double pushRadius = 6;
constexpr double glyphSide = 14;

class ButtonWidget final : public PressableWidget {
 public:
  ButtonWidget(kit::Button& button, const Theme& theme, QWidget* parent)
      : PressableWidget(button, theme, parent), button_(button) {}

  double cornerRadius() const override { return isHelp() ? bounds().height() / 2 : pushRadius; }

 protected:
  void draw(QPainter& painter) override {
    drawFace(painter, face(), cornerRadius(), faceColor(), theme().palette());
    if (isHelp()) {
      drawGlyph(painter);
    } else {
      drawTitle(painter);
    }
  }

  void activated() override { button_.click(); }

 private:
  bool isHelp() const { return button_.bezelStyle() == kit::Button::BezelStyle::help; }
  // A default button that cannot be pressed does not ask to be.
  bool isProminent() const { return button_.isDefault() && isEnabled(); }

  // The shadow below it is part of the frame.
  QRectF face() const { return bounds().adjusted(0, 0, 0, -1); }

  QColor faceColor() const {
    const Palette& palette = theme().palette();
    if (isProminent()) {
      return isPressed() ? pressedShade(palette.accent, palette.accentText) : palette.accent;
    }
    return isPressed() ? palette.controlFacePressed : palette.controlFace;
  }

  QColor titleColor() const {
    const Palette& palette = theme().palette();
    if (isProminent()) {
      return palette.accentText;
    }
    return button_.role() == kit::Button::Role::destructive ? palette.destructive : palette.primaryText;
  }

  void drawTitle(QPainter& painter) {
    const WrappedText title(button_.title(), theme().font(kit::FontRole::body), std::nullopt);
    painter.setPen(titleColor());
    const double left = std::round((bounds().width() - title.size().width()) / 2);
    title.draw(painter, {left, title.topAround(bounds().center().y())});
  }

  void drawGlyph(QPainter& painter) {
    QRectF glyph(0, 0, glyphSide, glyphSide);
    glyph.moveCenter(face().center());
    theme().symbols().draw(painter, "questionmark", glyph, titleColor());
  }

  kit::Button& button_;
};

}  // namespace

QWidget* makeWidget(kit::Button& button, const Theme& theme, QWidget* parent) {
  return new ButtonWidget(button, theme, parent);
}

}  // namespace tarnwell::host_qt
