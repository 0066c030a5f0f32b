#include <QtGui/QPainter>
#include <optional>

#include "host/qt/control/ControlWidget.h"
#include "host/qt/controls/ControlWidgets.h"
#include "host/qt/look/Theme.h"
#include "host/qt/look/WrappedText.h"
#include "kit/controls/text/TextLabel.h"

namespace tarnwell::host_qt {
namespace {

class LabelWidget final : public ControlWidget {
 public:
  LabelWidget(kit::TextLabel& label, const Theme& theme, QWidget* parent)
      : ControlWidget(label, theme, parent), label_(label) {}

  void fontsChanged() override { showState(); }

  void showState() override {
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

QWidget* makeWidget(kit::TextLabel& label, const Theme& theme, QWidget* parent) {
  return new LabelWidget(label, theme, parent);
}

}  // namespace tarnwell::host_qt
