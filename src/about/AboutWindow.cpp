#include "about/AboutWindow.h"

#include <memory>

#include "kit/application/Platform.h"
#include "kit/controls/text/SymbolView.h"
#include "view/controls/text/Symbol.h"
#include "view/controls/text/Text.h"
#include "view/layout/Stack.h"
#include "view/scenes/Panel.h"

namespace tarnwell::about {
namespace {

using view::Text;
using view::View;
using view::VStack;

constexpr double textWidth = 244;
constexpr double margin = 28;
constexpr double iconSide = 96;
constexpr double belowIcon = 12;
constexpr double belowName = 4;
constexpr double belowVersion = 14;

/// What a product is called, and whose it is.
View aboutView(const kit::Product& product) {
  const View name = View(Text{product.name}).font(kit::FontRole::title);
  const View icon = view::Symbol{.name = kit::SymbolView::applicationIcon, .side = iconSide};
  const View copyright =
      View(Text{product.copyright}).font(kit::FontRole::subheadline).foregroundStyle(kit::ColorRole::secondary);
  const View version = VStack{.spacing = belowName, .children = {name, Text{"Version " + product.version}}};
  const View all = VStack{.spacing = belowVersion,
                          .children = {VStack{.spacing = belowIcon, .children = {icon, version}}, copyright}};
  return all.frame({.width = textWidth}).padding(margin);
}

}  // namespace

void orderFrontAboutWindow(kit::Application& application, bool takesKeyboard) {
  const auto panel = application.single<view::Panel>([&application] {
    const kit::Product& product = application.platform().product();
    return std::make_shared<view::Panel>(application, "about", "About " + product.name, aboutView(product));
  });
  panel->orderFront(takesKeyboard);
}

}  // namespace tarnwell::about
