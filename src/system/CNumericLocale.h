#pragma once

#include <clocale>

namespace tarnwell::system {

/// While it lives, this thread reads and writes numbers with a point, whatever the process's locale is.
class CNumericLocale {
 public:
  CNumericLocale();
  CNumericLocale(const CNumericLocale&) = delete;
  CNumericLocale& operator=(const CNumericLocale&) = delete;
  ~CNumericLocale();

 private:
  locale_t previous_;
};

}  // namespace tarnwell::system
