/// A stand-in for the `defaults` tool of macOS on systems that have none: the same command lines, texts and exit
/// statuses over property lists in a folder of the user's. The faithful part is what scripts use to read and write one
/// key, and `export`, `import`, `delete` and `domains` beside it. It differs from the original in these points:
///   - Host domains, `rename` and `find` are refused.
///   - Values that are no number are refused by -int and -float; the original stores zero.
///   - Property list text has no comments, a value for every key, and octal escapes for ASCII alone.
///   - Dates are read in the three forms that the help names, not in natural language.
///   - Data is printed whole, as <hex>; dictionaries are sorted by bytes.
///   - No daemon: a lock file beside the stores keeps writers apart, and every write is on the disk when it returns.
///   - A store that is not wholly a property list is read by no command; a write moves it out of the way and reports
///   it.
///   - Standard error has a further line that names the cause of what could not be read or written.

#include <string_view>
#include <vector>

#include "diagnostics/StandardStreams.h"
#include "standin/defaults/Commands.h"

int main(int argc, char** argv) {
  tarnwell::diagnostics::prepareStandardStreams();
  const std::vector<std::string_view> arguments(argv + (argc > 0 ? 1 : 0), argv + argc);
  return static_cast<int>(tarnwell::standin::runDefaults(arguments));
}
