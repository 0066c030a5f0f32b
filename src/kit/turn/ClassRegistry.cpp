#include "kit/turn/ClassRegistry.h"

#include <map>
#include <utility>

namespace tarnwell::kit {
namespace {

// A function's own, so that it is there before the first entry, whatever the order of initialisation.
std::map<std::string, ClassRegistry::Make>& classes() {
  static std::map<std::string, ClassRegistry::Make> map;
  return map;
}

}  // namespace

ClassRegistry::Entry::Entry(const std::string& name, Make make) { classes().emplace(name, std::move(make)); }

std::shared_ptr<Object> ClassRegistry::make(const std::string& name, Application& application) {
  const auto found = classes().find(name);
  return found == classes().end() ? nullptr : found->second(application);
}

}  // namespace tarnwell::kit
