#include "host/qt/panels/AboutPanel.h"

#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QVBoxLayout>

#include "host/qt/look/ApplicationPicture.h"
#include "host/qt/look/Conversions.h"

namespace tarnwell::host_qt {
namespace {

constexpr int leastWidth = 300;
constexpr int margin = 28;
constexpr int iconSide = 96;
constexpr int belowIcon = 12;
constexpr int belowName = 4;
constexpr int belowVersion = 14;
constexpr double nameShare = 1.4;
constexpr double smallShare = 0.9;

QFont sized(double share) {
  QFont font = QApplication::font();
  font.setPointSizeF(font.pointSizeF() * share);
  return font;
}

}  // namespace

AboutPanel::AboutPanel(const kit::Product& product) {
  setWindowTitle("About " + toQString(product.name));
  auto* lines = new QVBoxLayout(this);
  lines->setContentsMargins(margin, margin, margin, margin);
  lines->setSpacing(0);
  lines->setSizeConstraint(QLayout::SetFixedSize);
  lines->addStrut(leastWidth - 2 * margin);
  lines->addWidget(new ApplicationPicture(iconSide, this), 0, Qt::AlignHCenter);
  lines->addSpacing(belowIcon);
  name_ = addLine(product.name);
  lines->addSpacing(belowName);
  version_ = addLine("Version " + product.version);
  lines->addSpacing(belowVersion);
  copyright_ = addLine(product.copyright);
  // The palette's quiet text.
  copyright_->setForegroundRole(QPalette::PlaceholderText);
  setFonts();
}

void AboutPanel::orderFront(Manner manner) {
  setAttribute(Qt::WA_ShowWithoutActivating, manner == Manner::quiet);
  setWindowState(windowState() & ~Qt::WindowMinimized);
  show();
  raise();
  if (manner == Manner::inFront) {
    activateWindow();
  }
}

void AboutPanel::changeEvent(QEvent* event) {
  if (event->type() == QEvent::ApplicationFontChange) {
    setFonts();
  }
  Panel::changeEvent(event);
}

QLabel* AboutPanel::addLine(const std::string& text) {
  auto* label = new QLabel(toQString(text), this);
  label->setAlignment(Qt::AlignHCenter);
  layout()->addWidget(label);
  return label;
}

void AboutPanel::setFonts() {
  QFont bold = sized(nameShare);
  bold.setBold(true);
  name_->setFont(bold);
  version_->setFont(sized(1));
  copyright_->setFont(sized(smallShare));
}

}  // namespace tarnwell::host_qt
