#include "host/qt/panels/UpdatePanel.h"

#include <QtGui/QKeyEvent>
#include <QtGui/QWindow>
#include <QtWidgets/QApplication>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QVBoxLayout>
#include <utility>

#include "host/qt/look/ApplicationPicture.h"
#include "host/qt/look/Conversions.h"
#include "host/qt/look/Theme.h"
#include "host/qt/panels/PanelButton.h"
#include "host/qt/panels/PanelCheckBox.h"
#include "host/qt/panels/PanelFocus.h"

namespace tarnwell::host_qt {
namespace {

constexpr int panelWidth = 500;
constexpr int panelMargin = 20;
constexpr int panelIconSide = 56;
constexpr int besideIcon = 16;
constexpr int belowHeading = 5;
constexpr int betweenParts = 14;
constexpr int betweenButtons = 8 - 2 * panelRing;
constexpr int panelTextWidth = panelWidth - 2 * panelMargin - panelIconSide - besideIcon;
constexpr int headingGrowth = 2;  // Pixels.

QLabel* makeText(const std::string& text, const QFont& font, QWidget* parent) {
  auto* label = new QLabel(parent);
  // What comes from a server is no markup.
  label->setTextFormat(Qt::PlainText);
  label->setText(toQString(text));
  label->setFont(font);
  label->setWordWrap(true);
  label->setFixedWidth(panelTextWidth);
  return label;
}

QFont headingFont(const Theme& theme) {
  QFont font = theme.font(kit::FontRole::body);
  font.setPixelSize(font.pixelSize() + headingGrowth);
  font.setBold(true);
  return font;
}

}  // namespace

UpdatePanel::UpdatePanel(const Theme& theme) : theme_(theme) {
  setWindowTitle(QStringLiteral("Software Update"));
  auto* whole = new QVBoxLayout(this);
  whole->setContentsMargins(0, 0, 0, 0);
  whole->setSizeConstraint(QLayout::SetFixedSize);
  connect(qApp, &QGuiApplication::focusWindowChanged, this,
          [this](const QWindow* focused) noexcept { uncover(focused); });
}

// When the program starts, the panel may be there before the settings, and would be hidden behind them.
void UpdatePanel::uncover(const QWindow* focused) {
  if (focused != nullptr && isVisible() && std::exchange(mayBeCovered_, false) && focused != windowHandle()) {
    raise();
  }
}

void UpdatePanel::show(UpdatePage page, Manner manner) {
  ++shown_;
  default_ = nullptr;
  if (content_ != nullptr) {
    layout()->removeWidget(content_);
    content_->hide();
    // What is running now may be one of its buttons.
    content_->deleteLater();
  }
  content_ = makeContent(page);
  layout()->addWidget(content_);
  closed_ = std::move(page.closed);
  setAccessibleDescription(toQString(page.heading + "\n" + page.message));
  if (default_ != nullptr) {
    default_->setFocus(Qt::OtherFocusReason);
  }
  order(manner);
}

void UpdatePanel::dismiss() {
  ++shown_;
  closed_ = nullptr;
  hide();
}

void UpdatePanel::keyPressEvent(QKeyEvent* event) {
  const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  auto* focused = dynamic_cast<PanelButton*>(focusWidget());
  if (isReturn && (focused != nullptr || default_ != nullptr)) {
    (focused != nullptr ? focused : default_)->click();
  } else {
    Panel::keyPressEvent(event);
  }
}

void UpdatePanel::closeEvent(QCloseEvent* event) {
  event->ignore();
  answer(closed_);
}

QWidget* UpdatePanel::makeContent(const UpdatePage& page) {
  auto* content = new QWidget(this);
  auto* columns = new QHBoxLayout(content);
  columns->setContentsMargins(panelMargin, panelMargin, panelMargin - panelRing, panelMargin - panelRing);
  columns->setSpacing(besideIcon - panelRing);
  columns->addWidget(new ApplicationPicture(panelIconSide, content), 0, Qt::AlignTop);
  auto* parts = new QVBoxLayout;
  parts->setSpacing(betweenParts - panelRing);
  parts->addLayout(makeTexts(page, content));
  if (page.tick != nullptr) {
    page.tick->setParent(content);
    parts->addWidget(page.tick);
  }
  parts->addLayout(makeButtons(page, content));
  columns->addLayout(parts);
  return content;
}

QLayout* UpdatePanel::makeTexts(const UpdatePage& page, QWidget* parent) {
  auto* lines = new QVBoxLayout;
  // In line with the faces of the buttons, around which there is room for a ring.
  lines->setContentsMargins(panelRing, 0, panelRing, 0);
  lines->setSpacing(0);
  lines->addWidget(makeText(page.heading, headingFont(theme_), parent));
  if (!page.message.empty()) {
    lines->addSpacing(belowHeading);
    lines->addWidget(makeText(page.message, theme_.font(kit::FontRole::body), parent));
  }
  if (page.body != nullptr) {
    page.body->setParent(parent);
    lines->addSpacing(betweenParts);
    lines->addWidget(page.body);
  }
  return lines;
}

QLayout* UpdatePanel::makeButtons(const UpdatePage& page, QWidget* parent) {
  auto* places = new QHBoxLayout;
  places->setSpacing(betweenButtons);
  if (page.farChoice) {
    places->addWidget(makeButton(*page.farChoice, false, parent));
  }
  places->addStretch();
  if (page.otherChoice) {
    places->addWidget(makeButton(*page.otherChoice, false, parent));
  }
  if (page.defaultChoice) {
    default_ = makeButton(*page.defaultChoice, true, parent);
    places->addWidget(default_);
  }
  return places;
}

PanelButton* UpdatePanel::makeButton(const UpdatePage::Choice& choice, bool isDefault, QWidget* parent) {
  const auto kind = isDefault ? PanelButton::Kind::defaultButton : PanelButton::Kind::plain;
  auto* button = new PanelButton(toQString(choice.title), kind, theme_, parent);
  connect(button, &QAbstractButton::clicked, this, [this, chosen = choice.chosen]() noexcept { answer(chosen); });
  return button;
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): what it does may release the original
void UpdatePanel::answer(kit::Action action) {
  const int before = shown_;
  // An answer is given once.
  closed_ = nullptr;
  content_->setEnabled(false);
  if (action) {
    action();
  }
  if (shown_ == before) {
    dismiss();
  }
}

void UpdatePanel::order(Manner manner) {
  setAttribute(Qt::WA_ShowWithoutActivating, manner == Manner::quiet);
  const bool isNew = !isVisible();
  setVisible(true);
  if (manner == Manner::inFront) {
    raise();
    activateWindow();
  } else if (isNew) {
    raise();
  }
  mayBeCovered_ = isNew && manner == Manner::quiet;
}

}  // namespace tarnwell::host_qt
