#include "kit/application/Application.h"

#include <utility>

#include "diagnostics/Fault.h"
#include "kit/application/Platform.h"

namespace tarnwell::kit {
namespace {

Application* sharedApplication = nullptr;

}  // namespace

std::shared_ptr<Application> Application::create(Platform& platform) {
  std::shared_ptr<Application> application(new Application(platform));
  sharedApplication = application.get();
  return application;
}

Application::~Application() {
  if (sharedApplication == this) {
    sharedApplication = nullptr;
  }
}

Application& Application::shared() {
  if (!isThere()) {
    diagnostics::fault("there is no application");
  }
  return *sharedApplication;
}

bool Application::isThere() { return sharedApplication != nullptr; }

Application::Application(Platform& platform)
    : platform_(platform),
      events_(
          turn_, [this](const KeyEvent& key) { responders_.performKeyEquivalent(key); },
          [this] { platform_.wakeUp(*this); }) {
  respondTo(selectors::orderFrontStandardAboutPanel,
            [this](Object* /*sender*/) { platform_.orderFrontStandardAboutPanel(*this); });
  respondTo(selectors::terminate, [this](Object* /*sender*/) { platform_.terminate(*this); });
}

void Application::finishLaunching() {
  turn_.perform([this] { tellDelegate(selectors::applicationDidFinishLaunching, this); });
}

void Application::reopen() {
  turn_.perform([this] { notifications_.post({.name = reopenNotification}); });
}

void Application::willTerminate() {
  if (!std::exchange(ends_, true)) {
    turn_.perform([this] { tellDelegate(selectors::applicationWillTerminate, this); });
  }
}

bool Application::respondsToSelector(const Selector& selector) const {
  const auto target = delegate();
  return Object::respondsToSelector(selector) || (target && target->respondsToSelector(selector));
}

void Application::perform(const Selector& selector, Object* sender) {
  if (Object::respondsToSelector(selector)) {
    Object::perform(selector, sender);
  } else {
    tellDelegate(selector, sender);
  }
}

void Application::tellDelegate(const Selector& selector, Object* sender) {
  if (const auto target = delegate()) {
    target->perform(selector, sender);
  }
}

}  // namespace tarnwell::kit
