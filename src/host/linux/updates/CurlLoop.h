#pragma once

#include <curl/curl.h>

#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "core/Descriptor.h"

namespace tarnwell::host_linux::updates {

/// Keeps what the handle's callbacks use until the handle is gone.
struct CurlHandleEnd {
  std::shared_ptr<void> used = {};

  void operator()(CURL* handle) const { curl_easy_cleanup(handle); }
};
using CurlHandle = std::unique_ptr<CURL, CurlHandleEnd>;

/// Drives the library's transfers from a host's event loop: all of its sockets and its timer behind one descriptor.
class CurlLoop {
 public:
  CurlLoop();
  CurlLoop(const CurlLoop&) = delete;
  CurlLoop& operator=(const CurlLoop&) = delete;
  ~CurlLoop();

  int descriptor() const { return events_.number(); }
  void dispatch();

  /// Starts the library, which takes its time, at the first call; to be called before anything else of the library.
  void start();
  /// Begins a transfer. `ended` is run once from `dispatch`, and never after `remove`.
  void add(CURL* handle, std::function<void(CURLcode)> ended);
  /// Ends a transfer, from wherever this is called; from inside the library as soon as that has returned.
  void remove(CurlHandle handle);

 private:
  static int socketChanged(CURL* handle, curl_socket_t socket, int wanted, void* loop, void* known);
  static int timerChanged(CURLM* multi, long milliseconds, void* loop);

  void watch(curl_socket_t socket, int wanted) const;
  void setTimer(long milliseconds) const;
  void act(curl_socket_t socket, int what);
  void tellEnded();
  void end(CurlHandle handle);

  core::Descriptor events_;
  core::Descriptor timer_;
  CURLM* multi_ = nullptr;
  std::map<CURL*, std::function<void(CURLcode)>> ended_;
  std::vector<CurlHandle> removed_;
  bool isInside_ = false;
};

}  // namespace tarnwell::host_linux::updates
