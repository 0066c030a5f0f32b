#include "host/qt/controls/text/RichTextPeer.h"

#include <QtGui/QAbstractTextDocumentLayout>
#include <QtGui/QAccessible>
#include <QtGui/QClipboard>
#include <QtGui/QFontDatabase>
#include <QtGui/QGuiApplication>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtGui/QTextBlock>
#include <QtGui/QTextCursor>
#include <QtGui/QTextDocument>
#include <QtGui/QTextDocumentFragment>
#include <QtGui/QTextList>
#include <algorithm>
#include <cmath>
#include <vector>

#include "host/painted/ControlMetrics.h"
#include "host/qt/control/ControlWidget.h"
#include "host/qt/controls/containers/ScrollAreaPeer.h"
#include "host/qt/look/Conversions.h"
#include "host/qt/look/Theme.h"

namespace tarnwell::host_qt {
namespace {

using Paragraph = kit::StyledText::Paragraph;
using Style = Paragraph::Style;

constexpr double paragraphGap = 6;
constexpr double listIndent = 18;
constexpr double quoteIndent = 14;
constexpr unsigned deepestList = 6;
constexpr double ringReach = 2;

/// Where a link stands in the text.
struct Link {
  int start = 0;
  int end = 0;
};

/// Writes paragraphs into a document of the toolkit's, which lays them out.
class Composer {
 public:
  Composer(QTextDocument& document, const Theme& theme) : theme_(theme), cursor_(&document) {}

  void write(const Paragraph& paragraph, bool isFirst) {
    QTextBlockFormat block;
    block.setTopMargin(isFirst || (isItem(paragraph) && !lists_.empty()) ? 0 : paragraphGap);
    const unsigned depth = depthOf(paragraph);
    if (depth == 0) {
      lists_.clear();
    }
    // A body below an item stands as far in as the item does, which its list moves.
    block.setLeftMargin((paragraph.style == Style::quote ? quoteIndent : 0) +
                        (isItem(paragraph) ? 0 : listIndent * depth));
    if (isFirst) {
      cursor_.setBlockFormat(block);
    } else {
      cursor_.insertBlock(block);
    }
    if (isItem(paragraph)) {
      joinList(paragraph.number, depth);
    }
    for (std::size_t run = 0; run < paragraph.runs.size(); ++run) {
      write(paragraph, run);
    }
  }

  std::vector<Link> links() const { return links_; }

 private:
  static bool isItem(const Paragraph& paragraph) { return paragraph.style == Style::item; }

  // Lists within each other; deeper ones would leave no room for their text.
  static unsigned depthOf(const Paragraph& paragraph) {
    const unsigned level = paragraph.style == Style::heading ? 0 : paragraph.level;
    return std::clamp(level, isItem(paragraph) ? 1U : 0U, deepestList);
  }

  void joinList(unsigned number, unsigned depth) {
    QTextListFormat list;
    list.setIndent(static_cast<int>(depth));
    list.setStyle(number == 0 ? QTextListFormat::ListDisc : QTextListFormat::ListDecimal);
    // An item may follow what stands in the one before it.
    lists_.resize(depth, nullptr);
    if (lists_.back() != nullptr && lists_.back()->format().style() == list.style() && number != 1) {
      lists_.back()->add(cursor_.block());
    } else {
      lists_.back() = cursor_.createList(list);
    }
  }

  void write(const Paragraph& paragraph, std::size_t index) {
    const kit::StyledText::Run& run = paragraph.runs[index];
    const int start = cursor_.position();
    cursor_.insertText(toQString(run.text).replace('\n', QChar::LineSeparator), formatOf(run, paragraph.style));
    if (paragraph.beginsLink(index)) {
      links_.push_back({start, cursor_.position()});
    } else if (!run.link.empty()) {
      links_.back().end = cursor_.position();
    }
  }

  QTextCharFormat formatOf(const kit::StyledText::Run& run, Style style) const {
    QFont font = theme_.font(kit::FontRole::body);
    font.setBold(run.isBold || style == Style::heading);
    font.setItalic(run.isItalic);
    if (run.isCode || style == Style::code) {
      font.setFamilies(QFontDatabase::systemFont(QFontDatabase::FixedFont).families());
      font.setFixedPitch(true);
    }
    QTextCharFormat format;
    format.setFont(font);
    const auto role = style == Style::quote ? kit::ColorRole::secondary : kit::ColorRole::primary;
    format.setForeground(run.link.empty() ? theme_.textColor(role) : theme_.palette().accentOnWindow);
    format.setFontUnderline(!run.link.empty());
    return format;
  }

  const Theme& theme_;
  QTextCursor cursor_;
  std::vector<Link> links_;
  std::vector<QTextList*> lists_;  // The last of each depth; the document's.
};

std::vector<Link> compose(QTextDocument& document, const kit::RichText& text, const Theme& theme, double width) {
  document.clear();
  document.setDocumentMargin(host_painted::metrics::richTextInset);
  document.setIndentWidth(listIndent);
  document.setDefaultFont(theme.font(kit::FontRole::body));
  // Laid out once, and not with each run.
  QTextCursor whole(&document);
  whole.beginEditBlock();
  Composer composer(document, theme);
  bool isFirst = true;
  for (const Paragraph& paragraph : text.text().paragraphs) {
    composer.write(paragraph, isFirst);
    isFirst = false;
  }
  whole.endEditBlock();
  document.setTextWidth(width);
  return composer.links();
}

class RichTextWidget final : public ControlWidget {
 public:
  RichTextWidget(kit::RichText& text, const Theme& theme, QWidget* parent)
      : ControlWidget(text, theme, parent), text_(text) {
    document_.setUndoRedoEnabled(false);
    setMouseTracking(true);
  }

  kit::Measurement measureIn(double width) const {
    QTextDocument copy;
    compose(copy, text_, theme(), width);
    const double height = std::ceil(copy.size().height());
    const QTextLine first = copy.firstBlock().layout()->lineAt(0);
    return {.size = {.width = width, .height = height},
            .firstBaseline = host_painted::metrics::richTextInset + (first.isValid() ? first.ascent() : 0)};
  }

  void layOutAnew() {
    links_ = compose(document_, text_, theme(), width());
    current_ = std::min(current_, std::max(0, static_cast<int>(links_.size()) - 1));
    // By the mouse for what is selected, by Tab for links.
    setFocusPolicy(links_.empty() ? Qt::ClickFocus : Qt::StrongFocus);
    update();
  }

  void showState() override { layOutAnew(); }
  void fontsChanged() override { layOutAnew(); }
  QRectF focusShape() const override {
    return links_.empty() ? bounds() : partRect(current_).adjusted(-ringReach, 0, ringReach, 0);
  }
  double cornerRadius() const override { return 3; }
  int focusedPart() const override { return links_.empty() ? -1 : current_; }

  /// The first line of a link that is broken.
  QRectF partRect(int index) const override {
    if (index < 0 || index >= static_cast<int>(links_.size())) {
      return {};
    }
    const Link& link = links_[static_cast<std::size_t>(index)];
    const QTextBlock block = document_.findBlock(link.start);
    const QTextLine line = block.layout()->lineForTextPosition(link.start - block.position());
    if (!line.isValid()) {
      return {};
    }
    const double left = line.cursorToX(link.start - block.position());
    const double right = line.cursorToX(std::min(link.end - block.position(), line.textStart() + line.textLength()));
    const QPointF corner = document_.documentLayout()->blockBoundingRect(block).topLeft();
    return QRectF(left, line.y(), right - left, line.height()).translated(corner);
  }

 protected:
  void draw(QPainter& painter) override {
    QAbstractTextDocumentLayout::PaintContext context;
    if (selected_.hasSelection()) {
      QTextCharFormat format;
      format.setBackground(palette().highlight());
      format.setForeground(palette().highlightedText());
      context.selections.push_back({selected_, format});
    }
    document_.documentLayout()->draw(&painter, context);
  }

  void resizeEvent(QResizeEvent* /*event*/) override { layOutAnew(); }

  void changeEvent(QEvent* event) override {
    if (event->type() == QEvent::PaletteChange) {
      layOutAnew();
    }
    ControlWidget::changeEvent(event);
  }

  void mouseMoveEvent(QMouseEvent* event) override {
    setCursor(linkAt(event->position()) >= 0 ? Qt::PointingHandCursor : Qt::IBeamCursor);
    if (event->buttons().testFlag(Qt::LeftButton)) {
      select(event->position(), QTextCursor::KeepAnchor);
    }
  }

  void mousePressEvent(QMouseEvent* event) override {
    pressed_ = event->button() == Qt::LeftButton ? linkAt(event->position()) : -1;
    current_ = pressed_ >= 0 ? pressed_ : current_;
    if (event->button() == Qt::LeftButton) {
      select(event->position(), QTextCursor::MoveAnchor);
    }
  }

  void mouseReleaseEvent(QMouseEvent* event) override {
    const bool isClick = event->button() == Qt::LeftButton && !selected_.hasSelection();
    if (isClick && pressed_ >= 0 && linkAt(event->position()) == pressed_) {
      text_.follow(pressed_);
    }
    pressed_ = -1;
  }

  void keyPressEvent(QKeyEvent* event) override {
    const bool follows =
        event->key() == Qt::Key_Space || event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->matches(QKeySequence::Copy) && selected_.hasSelection()) {
      QGuiApplication::clipboard()->setText(selected_.selection().toPlainText());
    } else if (event->matches(QKeySequence::SelectAll)) {
      selected_.select(QTextCursor::Document);
      update();
    } else if (follows && !links_.empty()) {
      text_.follow(current_);
    } else {
      event->ignore();
    }
  }

  void focusInEvent(QFocusEvent* event) override {
    if (event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason) {
      current_ = event->reason() == Qt::TabFocusReason ? 0 : static_cast<int>(links_.size()) - 1;
    }
    ControlWidget::focusInEvent(event);
  }

  // From link to link, and then on.
  bool focusNextPrevChild(bool next) override {
    const int wanted = current_ + (next ? 1 : -1);
    if (wanted < 0 || wanted >= static_cast<int>(links_.size())) {
      return ControlWidget::focusNextPrevChild(next);
    }
    current_ = wanted;
    stateChanged();
    ScrollAreaPeer::reveal(*this, focusShape());
    QAccessibleEvent told(this, QAccessible::Focus);
    told.setChild(current_);
    QAccessible::updateAccessibility(&told);
    return true;
  }

 private:
  void select(const QPointF& position, QTextCursor::MoveMode mode) {
    selected_.setPosition(document_.documentLayout()->hitTest(position, Qt::FuzzyHit), mode);
    update();
  }

  int linkAt(const QPointF& position) const {
    const int place = document_.documentLayout()->hitTest(position, Qt::ExactHit);
    for (std::size_t index = 0; place >= 0 && index < links_.size(); ++index) {
      if (place >= links_[index].start && place < links_[index].end) {
        return static_cast<int>(index);
      }
    }
    return -1;
  }

  kit::RichText& text_;
  QTextDocument document_;
  QTextCursor selected_{&document_};
  std::vector<Link> links_;
  int current_ = 0;
  int pressed_ = -1;
};

}  // namespace

RichTextPeer::RichTextPeer(kit::RichText& text, const Theme& theme, QWidget* parent)
    : WidgetPeer(text, new RichTextWidget(text, theme, parent)) {}

std::optional<kit::Measurement> RichTextPeer::measure(kit::Proposal proposal) const {
  namespace metrics = host_painted::metrics;
  const double width = proposal.width.value_or(metrics::richTextIdealWidth);
  if (widget() == nullptr) {
    return std::nullopt;
  }
  return static_cast<RichTextWidget*>(widget())->measureIn(width);
}

}  // namespace tarnwell::host_qt
