#include "updater/transfer/CurlLibrary.h"

#include <dlfcn.h>

namespace tarnwell::updater {
namespace {

template <class Function>
bool find(void* library, const char* name, Function& function) {
  // The dynamic linker knows functions as data.
  function = reinterpret_cast<Function>(::dlsym(library, name));
  return function != nullptr;
}

bool findAll(void* library, CurlLibrary& curl) {
  return find(library, "curl_version_info", curl.versionInfo) && find(library, "curl_global_init", curl.globalInit) &&
         find(library, "curl_multi_init", curl.multiInit) && find(library, "curl_multi_setopt", curl.multiSetopt) &&
         find(library, "curl_multi_add_handle", curl.multiAddHandle) &&
         find(library, "curl_multi_remove_handle", curl.multiRemoveHandle) &&
         find(library, "curl_multi_socket_action", curl.multiSocketAction) &&
         find(library, "curl_multi_info_read", curl.multiInfoRead) &&
         find(library, "curl_multi_cleanup", curl.multiCleanup) && find(library, "curl_easy_init", curl.easyInit) &&
         find(library, "curl_easy_setopt", curl.easySetopt) && find(library, "curl_easy_getinfo", curl.easyGetinfo) &&
         find(library, "curl_easy_strerror", curl.easyStrerror) && find(library, "curl_easy_cleanup", curl.easyCleanup);
}

}  // namespace

system::Result<CurlLibrary> CurlLibrary::open(const std::string& name) {
  void* library = ::dlopen(name.c_str(), RTLD_NOW | RTLD_LOCAL);
  CurlLibrary curl;
  if (library == nullptr || !findAll(library, curl)) {
    const char* reason = ::dlerror();
    return system::Failure{"Updates are fetched with the network library " + name +
                           ", which this system does not have: " + (reason == nullptr ? "" : reason) + "."};
  }
  const curl_version_info_data& own = *curl.versionInfo(CURLVERSION_NOW);
  if (own.version_num < oldestVersion) {
    return system::Failure{
        "Updates are fetched with version 7.87 of the network library or a later one, and this system has " +
        std::string(own.version) + "."};
  }
  return curl;
}

}  // namespace tarnwell::updater
