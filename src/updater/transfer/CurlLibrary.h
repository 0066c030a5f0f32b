#pragma once

#include <curl/curl.h>

#include <string>

#include "system/Result.h"

namespace tarnwell::updater {

/// The functions of the network library. It brings some thirty others along, a third of the program's start, so it is
/// opened when something is to be fetched; the program does not link it. Once opened it stays.
struct CurlLibrary {
  decltype(&::curl_version_info) versionInfo = nullptr;
  decltype(&::curl_global_init) globalInit = nullptr;
  decltype(&::curl_multi_init) multiInit = nullptr;
  decltype(&::curl_multi_setopt) multiSetopt = nullptr;
  decltype(&::curl_multi_add_handle) multiAddHandle = nullptr;
  decltype(&::curl_multi_remove_handle) multiRemoveHandle = nullptr;
  decltype(&::curl_multi_socket_action) multiSocketAction = nullptr;
  decltype(&::curl_multi_info_read) multiInfoRead = nullptr;
  decltype(&::curl_multi_cleanup) multiCleanup = nullptr;
  decltype(&::curl_easy_init) easyInit = nullptr;
  decltype(&::curl_easy_setopt) easySetopt = nullptr;
  decltype(&::curl_easy_getinfo) easyGetinfo = nullptr;
  decltype(&::curl_easy_strerror) easyStrerror = nullptr;
  decltype(&::curl_easy_cleanup) easyCleanup = nullptr;

  /// What is older does not know all limits that transfers need. (curl.se: CURLOPT_QUICK_EXIT came with 7.87.0)
  static constexpr unsigned int oldestVersion = 0x07'57'00;

  /// `name` is what the dynamic linker looks for. A failure is a sentence for people.
  static system::Result<CurlLibrary> open(const std::string& name);
};

}  // namespace tarnwell::updater
