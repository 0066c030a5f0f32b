#include "standin/defaults/LowerCase.h"

namespace tarnwell::standin {

std::string lowerCase(std::string_view text) {
  std::string result(text);
  for (char& c : result) {
    if (c >= 'A' && c <= 'Z') {
      c = static_cast<char>(c - 'A' + 'a');
    }
  }
  return result;
}

}  // namespace tarnwell::standin
