#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "host/headless/HeadlessPlatform.h"
#include "kit/application/Application.h"

namespace tarnwell::kit {

using Lines = std::vector<std::string>;

inline Event key(const std::string& character, unsigned flags = commandFlag) {
  return {.type = Event::Type::keyDown, .modifierFlags = flags, .charactersIgnoringModifiers = character};
}

/// An application on a platform in memory, with menu entries that note that they were chosen.
class ApplicationTest : public testing::Test {
 protected:
  std::shared_ptr<MenuItem> entry(const std::string& title, const std::string& keyEquivalent) {
    auto item = MenuItem::create(title, "", keyEquivalent);
    item->setHandler([this, title] { notes.push_back(title); });
    return item;
  }

  void addEntry(const std::string& title, const std::string& keyEquivalent) {
    application->mainMenu().addItem(entry(title, keyEquivalent));
  }

  host_headless::HeadlessPlatform platform;
  std::shared_ptr<Application> application = Application::create(platform);
  Lines notes;
};

}  // namespace tarnwell::kit
