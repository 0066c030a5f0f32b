#include "about/AboutView.h"

#include "kit/controls/SymbolView.h"
#include "view/controls/Symbol.h"
#include "view/controls/Text.h"
#include "view/layout/Stack.h"

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

}  // namespace

View AboutView::body() const {
  const View name = View(Text{product.name}).font(kit::FontRole::title);
  const View icon = view::Symbol{.name = kit::SymbolView::applicationIcon, .side = iconSide};
  const View copyright =
      View(Text{product.copyright}).font(kit::FontRole::subheadline).foregroundStyle(kit::ColorRole::secondary);
  const View version = VStack{.spacing = belowName, .children = {name, Text{"Version " + product.version}}};
  const View all = VStack{.spacing = belowVersion,
                          .children = {VStack{.spacing = belowIcon, .children = {icon, version}}, copyright}};
  return all.frame({.width = textWidth}).padding(margin);
}

}  // namespace tarnwell::about
