#include "updatewindows/UpdateView.h"

#include "kit/controls/text/SymbolView.h"
#include "view/controls/buttons/Button.h"
#include "view/controls/text/Symbol.h"
#include "view/controls/text/Text.h"
#include "view/layout/Stack.h"

namespace tarnwell::updatewindows {
namespace {

using view::EmptyView;
using view::HStack;
using view::KeyboardShortcut;
using view::Text;
using view::View;
using view::VStack;

constexpr double margin = 20;
constexpr double iconSide = 56;
constexpr double besideIcon = 16;
constexpr double belowHeading = 5;
constexpr double betweenParts = 14;

View buttonFor(const std::optional<UpdatePage::Choice>& choice, KeyboardShortcut shortcut = KeyboardShortcut::none) {
  if (!choice) {
    return EmptyView{};
  }
  return view::Button{.title = choice->title, .keyboardShortcut = shortcut, .action = choice->chosen};
}

View textsOf(const UpdatePage& page) {
  const View message = page.message.empty() ? View(EmptyView{}) : View(Text{page.message});
  return VStack{.alignment = kit::TextAlignment::leading,
                .spacing = belowHeading,
                .children = {View(Text{page.heading}).font(kit::FontRole::headline), message}};
}

View buttonsOf(const UpdatePage& page) {
  return View(HStack{.children = {buttonFor(page.farChoice), view::Spacer{}, buttonFor(page.otherChoice),
                                  buttonFor(page.defaultChoice, KeyboardShortcut::defaultAction)}})
      .frame({.minWidth = UpdateView::textWidth});
}

View column(const View& content) {
  return content.frame({.width = UpdateView::textWidth, .alignment = kit::TextAlignment::leading});
}

}  // namespace

View UpdateView::body() const {
  const UpdatePage& page = shown->page();
  const View parts = VStack{.alignment = kit::TextAlignment::leading,
                            .spacing = betweenParts,
                            .children = {column(textsOf(page)), column(page.body), buttonsOf(page)}};
  const View icon = view::Symbol{.name = kit::SymbolView::applicationIcon, .side = iconSide};
  return View(HStack{.alignment = view::VerticalAlignment::top, .spacing = besideIcon, .children = {icon, parts}})
      .padding(margin)
      .identity(shown->number());
}

}  // namespace tarnwell::updatewindows
