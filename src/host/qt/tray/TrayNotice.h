#pragma once

#include <QtWidgets/QWidget>

#include "host/painted/TextMeasurer.h"
#include "kit/turn/Subscription.h"

namespace tarnwell::host_qt {

class Theme;
class TrayWatch;

/// A strip across the bottom of a window which says, once, that there is nowhere to show the status icon. It goes when
/// a tray comes, or with the first closing of its window.
class TrayNotice final : public QWidget {
 public:
  /// `product` is its name. Theme, measurer and watch are borrowed.
  TrayNotice(const std::string& product, const Theme& theme, const host_painted::TextMeasurer& measurer,
             TrayWatch& watch, QWidget& window);

  int heightForWidth(int width) const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  void follow();
  void setShown(bool shown);

  const std::string notice_;
  const Theme& theme_;
  const host_painted::TextMeasurer& measurer_;
  TrayWatch& watch_;
  kit::Subscription changes_;
  bool said_ = false;
};

}  // namespace tarnwell::host_qt
