#include "host/qt/panels/NotesView.h"

#include <QtCore/QEvent>
#include <QtGui/QPainter>
#include <QtGui/QTextDocument>
#include <QtWidgets/QVBoxLayout>
#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>

#include "host/qt/look/Conversions.h"
#include "host/qt/look/Drawing.h"
#include "host/qt/look/Theme.h"
#include "host/qt/panels/NotesText.h"
#include "host/qt/panels/PanelScrollBar.h"

namespace tarnwell::host_qt {
namespace {

constexpr int leastHeight = 48;
constexpr int mostHeight = 190;
constexpr int frameWidth = 1;
constexpr int inset = 8;
constexpr int listIndent = 18;
constexpr double frameRadius = 6;

/// Has an empty answer for everything that a text could name.
class ClosedBrowser final : public QTextBrowser {
 public:
  using QTextBrowser::QTextBrowser;

  QVariant loadResource(int /*type*/, const QUrl& /*name*/) override { return QByteArray(""); }
};

}  // namespace

NotesView::NotesView(const std::string& notes, const Theme& theme, OpenUrl openUrl, QWidget* parent)
    : QWidget(parent), notes_(toQString(notes)), theme_(theme), text_(new ClosedBrowser(this)) {
  auto* frame = new QVBoxLayout(this);
  frame->setContentsMargins(frameWidth, frameWidth, frameWidth, frameWidth);
  frame->addWidget(text_);
  text_->setAccessibleName(QStringLiteral("Release notes"));
  text_->setFrameShape(QFrame::NoFrame);
  text_->setOpenLinks(false);
  text_->setVerticalScrollBar(new PanelScrollBar(theme, text_));
  text_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  // The ground is painted with the frame.
  text_->viewport()->setAutoFillBackground(false);
  text_->document()->setDocumentMargin(inset);
  text_->document()->setIndentWidth(listIndent);
  connect(text_, &QTextBrowser::anchorClicked, this, [open = std::move(openUrl)](const QUrl& address) noexcept {
    open(address.toString(QUrl::FullyEncoded).toStdString());
  });
  setFocusProxy(text_);
  take();
}

void NotesView::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange || event->type() == QEvent::ApplicationFontChange) {
    take();
  }
  QWidget::changeEvent(event);
}

void NotesView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const Palette& colors = theme_.palette();
  drawRounded(painter, rect(), frameRadius, colors.fieldFace, colors.hairline);
}

void NotesView::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  fitHeight();
}

void NotesView::take() {
  const int position = text_->verticalScrollBar()->value();
  text_->document()->setDefaultFont(theme_.font(kit::FontRole::body));
  text_->setHtml(safeNotes(notes_, theme_.palette().accentOnWindow));
  text_->verticalScrollBar()->setValue(position);
  fitHeight();
}

void NotesView::fitHeight() {
  const int textWidth = width() - 2 * frameWidth;
  // A copy, since the browser lays out its own only once it has its size.
  const std::unique_ptr<QTextDocument> copy(text_->document()->clone());
  copy->setTextWidth(textWidth);
  const int needed = static_cast<int>(std::ceil(copy->size().height())) + 2 * frameWidth;
  setFixedHeight(std::clamp(needed, leastHeight, mostHeight));
}

}  // namespace tarnwell::host_qt
