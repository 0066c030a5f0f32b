#include "view/state/Environment.h"

#include "diagnostics/Console.h"
#include "kit/application/Application.h"
#include "kit/application/Platform.h"

namespace tarnwell::view {

void reportReadOutsideOfView(const std::string& valueTypeName) {
  // The systems before said it without the type.
  const bool namesType = kit::Application::isThere() &&
                         kit::Application::shared().platform().systemVersion() >= kit::SystemVersion{.major = 14};
  diagnostics::printErrorLine("Accessing Environment" + (namesType ? "<" + valueTypeName + ">" : std::string()) +
                              "'s value outside of being installed on a View. This will always read the default value "
                              "and will not update.");
}

}  // namespace tarnwell::view
