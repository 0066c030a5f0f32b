#include "host/qt/controls/TextLabelPeer.h"

#include <QtGui/QPainter>
#include <optional>

#include "host/qt/controls/ControlWidget.h"
#include "host/qt/look/Theme.h"
#include "host/qt/look/WrappedText.h"
#include "kit/controls/TextLabel.h"

namespace tarnwell::host_qt {
namespace {

class LabelWidget final : public ControlWidget {
 public:
  LabelWidget(kit::TextLabel& label, const Theme& theme, QWidget* parent)
      : ControlWidget(label, theme, parent), label_(label) {}

  void fontsChanged() override { layOutAnew(); }

  void layOutAnew() {
    lines_.reset();
    update();
  }

 protected:
  void draw(QPainter& painter) override {
    if (!lines_) {
      lines_.emplace(label_.text(), theme().font(label_.style().font), bounds().width());
    }
    painter.setPen(theme().textColor(label_.style().color));
    lines_->draw(painter, {0, 0});
  }

  void resizeEvent(QResizeEvent* /*event*/) override { lines_.reset(); }

 private:
  kit::TextLabel& label_;
  std::optional<WrappedText> lines_;
};

}  // namespace

TextLabelPeer::TextLabelPeer(kit::TextLabel& label, const Theme& theme, QWidget* parent)
    : WidgetPeer(label, new LabelWidget(label, theme, parent)) {}

void TextLabelPeer::showState(kit::Aspect /*aspect*/) { static_cast<LabelWidget*>(widget())->layOutAnew(); }

}  // namespace tarnwell::host_qt
