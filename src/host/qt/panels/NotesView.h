#pragma once

#include <QtWidgets/QTextBrowser>
#include <functional>
#include <string>

namespace tarnwell::host_qt {

class Theme;

/// Release notes to read and scroll, in a frame. Links open in the browser, and nothing is ever loaded to show them.
class NotesView final : public QWidget {
 public:
  using OpenUrl = std::function<void(const std::string& address)>;

  NotesView(const std::string& notes, const Theme& theme, OpenUrl openUrl, QWidget* parent);

 protected:
  void changeEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void take();
  void fitHeight();

  QString notes_;
  const Theme& theme_;
  QTextBrowser* text_;
};

}  // namespace tarnwell::host_qt
