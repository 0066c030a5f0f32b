#pragma once

#include <string>

#include "standin/defaults/Commands.h"

namespace tarnwell::standin {

enum class Placement {
  replace,       // the value takes the key's place
  appendItems,   // an array's items go to the end of the array that is there
  mergeEntries,  // a dictionary's entries go into the dictionary that is there
};

/// What follows the key of a `write`, understood.
struct TypedValue {
  PropertyList value = nullptr;  // none when it could not be understood
  Placement placement = Placement::replace;
  std::size_t used = 0;             // how many arguments belong to the value
  std::string error = {};           // what to tell the user; empty when only the usage can tell what is wrong
  Status status = Status::failure;  // of the tool, with such an error
};

TypedValue parseTypedValue(Arguments arguments);

}  // namespace tarnwell::standin
