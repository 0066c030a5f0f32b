#pragma once

#include <QtCore/QString>
#include <QtWidgets/QWidget>
#include <functional>
#include <optional>
#include <string>
#include <utility>

#include "standin/dock/ui/Surface.h"

namespace tarnwell::standin {

/// A window that belongs to one of the dock's own applications. It can be moved by its title bar, closed, and
/// minimized: with Shift held in slow motion.
class DocumentWindow final : public QWidget {
 public:
  enum class Pace { usual, slow };

  struct Actions {
    std::function<void(Pace)> minimize;
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
  enum class Part { minimizeButton, closeButton, titleBar, page };

  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

  static QRect buttonPlace(Part part);
  static Part partAt(QPoint place);
  void paintButton(QPainter& painter, Part part) const;

  Content content_;
  Actions actions_;
  Look look_ = Look::of(Scheme::light);
  std::optional<Part> pressed_;
  std::optional<Part> hovered_;
  QPoint grip_;  // where the title bar was taken
  std::function<void()> painted_;
  bool isPictured_ = false;  // painted for picture(), with smooth corners
};

}  // namespace tarnwell::standin
