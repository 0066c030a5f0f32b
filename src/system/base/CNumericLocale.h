#pragma once

#include <locale>  // on some systems the C header lacks locale_t

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
