#include "diagnostics/Console.h"
#include "standin/defaults/Commands.h"

namespace tarnwell::standin {
namespace {

constexpr std::string_view usageText = R"(Usage: defaults VERB ...

  read                          every domain
  read DOMAIN [KEY]             all keys of a domain, or one value
  read-type DOMAIN KEY          the type of a value
  write DOMAIN KEY VALUE        set a value; VALUE is one of
      TEXT | -string TEXT       a text
      (a, b) | { a = b; } | <00ff> | <dict>...</dict>
                                what a property list says; in single quotes
      -bool[ean] true|false|yes|no
      -int[eger] NUMBER         an integer of 64 bits
      -float NUMBER             a real number of 32 bits
      -data HEX                 bytes
      -date DATE                "2025-03-20 19:05:18 +0100", 2025-03-20T19:05:18Z or 2025-03-20
      -array VALUE ...          a list; -array-add appends to the one that is there
      -dict KEY VALUE ...       a dictionary; -dict-add puts the keys into the one that is there
  delete DOMAIN [KEY]           remove a key, or a whole domain
  export DOMAIN PATH|-          write a domain as a binary list, or as XML to standard output
  import DOMAIN PATH|-          put the keys of a property list into a domain
  domains                       the names of all domains
  help                          this text

DOMAIN is a name such as com.apple.dock, -g (NSGlobalDomain), or an absolute path with or without .plist.
Domains are kept in $MACOS_ROOT/Library/Preferences; MACOS_ROOT is ~/.local/share/macos-standin unless set.
)";

}  // namespace

Status showHelp() { return diagnostics::print(usageText) ? Status::success : Status::failure; }

Status misused() {
  diagnostics::printError(usageText);
  return Status::usage;
}

}  // namespace tarnwell::standin
