#include "host/qt/MessagePanel.h"

#include <QtWidgets/QMessageBox>
#include <utility>

#include "host/qt/Conversions.h"

namespace tarnwell::host::qt {

void showMessage(const std::string& title, const std::string& message, kit::Action closed) {
  auto* box = new QMessageBox(QMessageBox::NoIcon, toQString(title), toQString(message), QMessageBox::Ok);
  box->setAttribute(Qt::WA_DeleteOnClose);
  box->setWindowModality(Qt::NonModal);
  QObject::connect(box, &QMessageBox::finished, box, [closed = std::move(closed)]() noexcept { closed(); });
  box->show();
  box->raise();
  box->activateWindow();
}

}  // namespace tarnwell::host::qt
