#pragma once

#include <functional>
#include <memory>
#include <string>

#include "kit/turn/Object.h"

namespace tarnwell::kit {

class Application;

/// Classes that can be made by their name, so that one can be named as the application's delegate.
class ClassRegistry {
 public:
  using Make = std::function<std::shared_ptr<Object>(Application&)>;

  /// For a class to register itself when the program starts: `const ClassRegistry::Entry entry("AppDelegate", make);`
  struct Entry {
    Entry(const std::string& name, Make make);
  };

  /// Null for a name that no class has.
  static std::shared_ptr<Object> make(const std::string& name, Application& application);
};

}  // namespace tarnwell::kit
