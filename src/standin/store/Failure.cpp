#include "standin/store/Failure.h"

#include <cerrno>
#include <system_error>

namespace tarnwell::standin {

Failure systemFailure(std::string_view what, const std::string& path) {
  const std::string words = std::generic_category().message(errno);
  return {"cannot " + std::string(what) + " " + path + ": " + words};
}

}  // namespace tarnwell::standin
