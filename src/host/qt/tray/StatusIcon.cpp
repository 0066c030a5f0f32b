#include "host/qt/tray/StatusIcon.h"

#include <QtCore/QEvent>
#include <QtGui/QCursor>
#include <QtWidgets/QApplication>
#include <QtWidgets/QSystemTrayIcon>
#include <utility>

#include "host/qt/bus/SessionBus.h"
#include "host/qt/look/Conversions.h"
#include "host/qt/menus/MenuWidget.h"
#include "host/qt/session/KeyboardFocus.h"
#include "host/qt/session/RunLater.h"
#include "host/qt/session/X11Display.h"
#include "host/qt/tray/TrayWatch.h"

namespace tarnwell::host_qt {
namespace {

QString nextPath() {
  static int count = 0;
  return QStringLiteral("/StatusNotifierItem/%1").arg(++count);
}

}  // namespace

StatusIcon::StatusIcon(kit::StatusItem& item, TrayWatch& watch, const Theme& theme)
    : item_(item), watch_(watch), theme_(theme), image_(theme) {
  imageChanges_ = item_.button()->observe([this] { imageChanged(); });
  qApp->installEventFilter(this);
  // The item is not complete yet; it gets its menu after it was made.
  runLater(*this, [this] {
    trayChanges_ = watch_.observe([this] { follow(); });
    follow();
  });
}

StatusIcon::~StatusIcon() = default;

void StatusIcon::popUp(kit::Menu& menu) {
  admitLossOfKeyboard();
  MenuWidget(item_.application(), menu, theme_).exec(menuPosition());
}

bool StatusIcon::eventFilter(QObject* object, QEvent* event) noexcept {
  if (event->type() == QEvent::ApplicationPaletteChange && object == qApp) {
    imageChanged();
  } else if (event->type() == QEvent::MouseButtonPress) {
    heldButton_ = std::nullopt;
  } else if (event->type() == QEvent::MouseButtonRelease && heldButton_) {
    // Not from here, since a menu that opens comes back only when it has closed.
    runLater(*this, [this, type = *std::exchange(heldButton_, std::nullopt)] { item_.mouseUp(type); });
  }
  return false;
}

void StatusIcon::follow() {
  if (watch_.isOnBus()) {
    showOnBus();
  } else if (watch_.tray() == TrayWatch::Tray::xEmbed) {
    showInPanel();
  } else {
    onBus_.reset();
    inPanel_.reset();
  }
}

void StatusIcon::showOnBus() {
  inPanel_.reset();
  // The bus may have ended since it was heard of the tray.
  if (const auto bus = sessionBus(); bus && !onBus_) {
    onBus_ = std::make_unique<BusStatusItem>(*bus, nextPath(), item_, image_);
  }
  if (onBus_) {
    TrayWatch::announce(onBus_->path());
  }
}

void StatusIcon::showInPanel() {
  onBus_.reset();
  if (inPanel_) {
    return;
  }
  inPanel_ = std::make_unique<QSystemTrayIcon>(image_.icon());
  inPanel_->setToolTip(toQString(item_.title()));
  // No menu is left to the toolkit: which button does what is the item's affair. It tells of the press; the release
  // follows wherever the pointer is by then.
  connect(inPanel_.get(), &QSystemTrayIcon::activated, this, [this](QSystemTrayIcon::ActivationReason reason) noexcept {
    if (reason == QSystemTrayIcon::Context) {
      heldButton_ = kit::Event::Type::rightMouseUp;
    } else if (reason == QSystemTrayIcon::Trigger || reason == QSystemTrayIcon::DoubleClick) {
      heldButton_ = kit::Event::Type::leftMouseUp;
    }
  });
  inPanel_->show();
  // The settings are read before the event loop would send it.
  xcb_flush(x11Display());
}

void StatusIcon::imageChanged() {
  image_.setSymbol(item_.button()->image().symbol);
  if (inPanel_) {
    inPanel_->setIcon(image_.icon());
  }
  if (onBus_) {
    onBus_->imageChanged();
  }
}

QPoint StatusIcon::menuPosition() const {
  const QRect icon = inPanel_ ? inPanel_->geometry() : QRect();
  return icon.isValid() ? icon.bottomLeft() : QCursor::pos();
}

}  // namespace tarnwell::host_qt
