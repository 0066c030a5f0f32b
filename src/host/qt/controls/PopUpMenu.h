#pragma once

#include <QtWidgets/QMenu>
#include <functional>

#include "host/qt/menus/TypeAhead.h"
#include "kit/controls/PopUpButton.h"

namespace tarnwell::host_qt {

class Theme;

/// The open menu of a pop-up button: each row is a title with its symbol behind it, the chosen one has a check mark.
/// It tells what was chosen, closes and deletes itself.
class PopUpMenu final : public QMenu {
 public:
  PopUpMenu(const kit::PopUpButton& button, const Theme& theme, QWidget* parent,
            const std::function<void(int)>& chosen);

  /// Opens so that the title of the chosen row covers the button's own, whose left edge and middle are at `title`.
  void openOver(const QPoint& title);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void drawRow(QPainter& painter, int index, const QRectF& row) const;

  const std::vector<kit::PopUpButton::Item> items_;
  const int selected_;
  int rowHeight_ = 0;
  const Theme& theme_;
  TypeAhead typeAhead_;
};

}  // namespace tarnwell::host_qt
