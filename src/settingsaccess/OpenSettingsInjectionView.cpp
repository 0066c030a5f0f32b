#include "settingsaccess/OpenSettingsInjectionView.h"

#include "kit/application/Platform.h"
#include "settingsaccess/PrePostActionsButtonStyle.h"
#include "view/controls/buttons/SettingsLink.h"
#include "view/layout/Group.h"
#include "view/layout/Spacer.h"

namespace tarnwell::settingsaccess {
namespace {

using view::View;

View withHiddenLink(const View& content, const OpenSettingsAccessAction& action) {
  const View link = View(view::SettingsLink{.label = view::EmptyView{}}).frame({.width = 0, .height = 0});
  return content.background(PrePostActionsButtonStyleModifier{._performAction = action.closureBinding}.body(link));
}

}  // namespace

View OpenSettingsInjectionView::body() const {
  const auto action = _openSettingsLegacy.get();
  const bool hasLinks = kit::Application::shared().platform().systemVersion() >= kit::SystemVersion{.major = 14};
  return View(view::Group{.children = {hasLinks ? withHiddenLink(content, *action) : content}})
      .environment<OpenSettingsKey>(action);
}

View openSettingsAccess(const View& content) { return OpenSettingsInjectionView{.content = content}; }

}  // namespace tarnwell::settingsaccess
