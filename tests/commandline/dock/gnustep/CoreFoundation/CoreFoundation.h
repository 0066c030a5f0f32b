#include "tools/macos/corefoundation.h"
