#include "view/controls/text/Label.h"

#include "kit/controls/text/SymbolView.h"
#include "view/controls/text/Symbol.h"
#include "view/controls/text/Text.h"
#include "view/layout/Stack.h"

namespace tarnwell::view {

View Label::body() const {
  if (style.get() == LabelStyle::iconOnly) {
    return Symbol{.name = symbol, .title = title};
  }
  return HStack{.alignment = VerticalAlignment::firstTextBaseline,
                .spacing = titleInset - kit::SymbolView::usualSide,
                .children = {Symbol{.name = symbol}, Text{title}}};
}

}  // namespace tarnwell::view
