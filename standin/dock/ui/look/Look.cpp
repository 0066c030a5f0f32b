#include "standin/dock/ui/look/Look.h"

namespace tarnwell::standin {
namespace {

Look light() {
  return {.shelf = QColor(246, 247, 250, 158),
          .shelfRim = QColor(20, 24, 32, 46),
          .shelfShine = QColor(255, 255, 255, 150),
          .menu = QColor(246, 247, 250, 222),
          .chosen = QColor(0x1268e3),
          .chosenText = QColor(0xffffff),
          .separator = QColor(30, 34, 44, 70),
          .dot = QColor(30, 34, 44, 190),
          .label = QColor(250, 250, 252),
          .labelRim = QColor(0, 0, 0, 50),
          .labelText = QColor(0x1d1d20),
          .paper = QColor(0xffffff),
          .ink = QColor(0x26282d),
          .faintInk = QColor(0xc9ccd4),
          .titleBar = QColor(0xeff0f4),
          .windowRim = QColor(0xb6b9c2),
          .button = QColor(0xdcdee5),
          .buttonHovered = QColor(0xc3c7d2),
          .desktopTop = QColor(0xb9cfe6),
          .desktopBottom = QColor(0xe9d9cf)};
}

Look dark() {
  return {.shelf = QColor(38, 40, 46, 178),
          .shelfRim = QColor(0, 0, 0, 130),
          .shelfShine = QColor(255, 255, 255, 44),
          .menu = QColor(44, 46, 52, 226),
          .chosen = QColor(0x1268e3),
          .chosenText = QColor(0xffffff),
          .separator = QColor(255, 255, 255, 64),
          .dot = QColor(255, 255, 255, 200),
          .label = QColor(0x36373c),
          .labelRim = QColor(255, 255, 255, 44),
          .labelText = QColor(0xf1f1f4),
          .paper = QColor(0x24252a),
          .ink = QColor(0xe4e5ea),
          .faintInk = QColor(0x4b4d56),
          .titleBar = QColor(0x33343a),
          .windowRim = QColor(0x54565f),
          .button = QColor(0x4a4c54),
          .buttonHovered = QColor(0x62656f),
          .desktopTop = QColor(0x1d2a3b),
          .desktopBottom = QColor(0x3a2f3a)};
}

}  // namespace

Look Look::of(Scheme scheme) { return scheme == Scheme::dark ? dark() : light(); }

}  // namespace tarnwell::standin
