#include "view/Label.h"

#include "kit/controls/ControlMetrics.h"
#include "view/Stack.h"
#include "view/Symbol.h"
#include "view/Text.h"

namespace tarnwell::view {

View Label::body() const {
  if (style.get() == LabelStyle::iconOnly) {
    return Symbol{.name = symbol, .title = title};
  }
  return HStack{.alignment = VerticalAlignment::firstTextBaseline,
                .spacing = titleInset - kit::metrics::symbolSide,
                .children = {Symbol{.name = symbol}, Text{title}}};
}

}  // namespace tarnwell::view
