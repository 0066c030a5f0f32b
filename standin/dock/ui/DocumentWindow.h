#pragma once

#include <QtCore/QString>
#include <QtWidgets/QWidget>
#include <functional>
#include <optional>
#include <string>
#include <utility>

#include "standin/dock/ui/surface/Surface.h"

namespace tarnwell::standin {

/// A window that belongs to one of the dock's own applications. It can be moved by its title bar, closed, and
/// minimized.
class DocumentWindow final : public QWidget {
 public:
  struct Actions {
    std::function<void()> minimize;
    std::function<void()> close;
    std::function<void()> hide;  // the whole application
    std::function<void()> moved;
  };

  /// What it shows.
  struct Content {
    std::string application;
    int variant = 0;
    QString title;
  };

  DocumentWindow(Surface& surface, Content content, Actions actions);

  void setScheme(Scheme scheme);

  /// Brings it to the front, with the keyboard.
  void activate();

  /// Called once, after the next painting.
  void onPainted(std::function<void()> painted) { painted_ = std::move(painted); }

  /// The picture of it, whether it is on the screen or not.
  QPixmap picture();

 private:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

  Content content_;
  Actions actions_;
  Look look_ = Look::of(Scheme::light);
  std::optional<QPoint> grip_;  // where the title bar is held
  std::function<void()> painted_;
  bool isPictured_ = false;  // painted for picture(), with smooth corners
};

}  // namespace tarnwell::standin
