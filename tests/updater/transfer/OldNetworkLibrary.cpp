#include <curl/curl.h>

// The system's network library, but for its age.
extern "C" curl_version_info_data* curl_version_info(CURLversion /*now*/) {  // NOLINT(readability-identifier-naming)
  static curl_version_info_data data = {};
  data.version = "7.86.0";
  data.version_num = 0x07'56'00;
  return &data;
}
