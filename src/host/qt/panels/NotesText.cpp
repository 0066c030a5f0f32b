#include "host/qt/panels/NotesText.h"

#include <QtCore/QUrl>
#include <QtGui/QTextBlock>
#include <QtGui/QTextDocument>
#include <QtGui/QTextList>

#include "release/protocol/FeedItem.h"
#include "release/text/WebAddress.h"

namespace tarnwell::host_qt {
namespace {

constexpr int boldWeight = 600;

/// Reads markup without ever loading what it names: there is an empty answer for everything.
class NotesDocument final : public QTextDocument {
 protected:
  QVariant loadResource(int /*type*/, const QUrl& /*name*/) override { return QByteArray(""); }
};

QString wrapped(const QString& text, const char* tag) {
  return '<' + QString(tag) + '>' + text + "</" + QString(tag) + '>';
}

QString markupOf(const QTextFragment& fragment, const QColor& link) {
  const QTextCharFormat format = fragment.charFormat();
  // An image stands in the text as this character.
  QString text = QString(fragment.text()).remove(QChar::ObjectReplacementCharacter).toHtmlEscaped();
  text.replace(QChar::LineSeparator, "<br>");
  if (format.fontWeight() >= boldWeight) {
    text = wrapped(text, "b");
  }
  if (format.fontItalic()) {
    text = wrapped(text, "i");
  }
  if (format.fontFixedPitch()) {
    text = wrapped(text, "code");
  }
  const QByteArray address = QUrl(format.anchorHref()).toEncoded();
  if (format.isAnchor() && release::isWebAddress(address.toStdString())) {
    text = QString(R"(<a href="%1" style="color:%2">%3</a>)")
               .arg(QString::fromLatin1(address).toHtmlEscaped(), link.name(), text);
  }
  return text;
}

QString contentOf(const QTextBlock& block, const QColor& link) {
  QString content;
  for (auto part = block.begin(); !part.atEnd(); ++part) {
    content += markupOf(part.fragment(), link);
  }
  return content;
}

bool isNumbered(const QTextList& list) { return list.format().style() == QTextListFormat::ListDecimal; }

/// Puts the blocks of a text together again, with those of a list in one list.
class Markup {
 public:
  explicit Markup(const QColor& link) : link_(link) {}

  void add(const QTextBlock& block) {
    const QString content = contentOf(block, link_);
    if (content.trimmed().isEmpty()) {
      return;
    }
    enter(block.textList());
    if (list_ != nullptr) {
      text_ += wrapped(content, "li");
    } else {
      text_ += wrapped(content, block.blockFormat().headingLevel() > 0 ? "h4" : "p");
    }
  }

  QString end() {
    enter(nullptr);
    return text_;
  }

 private:
  void enter(const QTextList* list) {
    if (list == list_) {
      return;
    }
    if (list_ != nullptr) {
      text_ += isNumbered(*list_) ? "</ol>" : "</ul>";
    }
    if (list != nullptr) {
      text_ += isNumbered(*list) ? "<ol style=\"-qt-list-indent:1\">" : "<ul style=\"-qt-list-indent:1\">";
    }
    list_ = list;
  }

  QColor link_;
  QString text_;
  const QTextList* list_ = nullptr;
};

void read(QTextDocument& document, const QString& notes) {
  const QString start = notes.left(qsizetype{16} * 1024);
  if (Qt::mightBeRichText(start)) {
    document.setHtml(start);
  } else {
    document.setPlainText(start.trimmed());
  }
}

}  // namespace

QString safeNotes(const QString& notes, const QColor& link) {
  NotesDocument document;
  read(document, notes);
  Markup markup(link);
  for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
    markup.add(block);
  }
  return markup.end();
}

}  // namespace tarnwell::host_qt
