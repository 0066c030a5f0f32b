#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "system/Descriptor.h"
#include "updater/transfer/CurlLibrary.h"

namespace tarnwell::updater {

/// Keeps what the handle's callbacks use until the handle is gone.
struct CurlHandleEnd {
  decltype(CurlLibrary::easyCleanup) cleanup = nullptr;
  std::shared_ptr<void> used = {};

  void operator()(CURL* handle) const { cleanup(handle); }
};
using CurlHandle = std::unique_ptr<CURL, CurlHandleEnd>;

/// Drives the library's transfers from a host's event loop: all of its sockets and its timer behind one descriptor.
class CurlLoop {
 public:
  explicit CurlLoop(std::string libraryName);
  CurlLoop(const CurlLoop&) = delete;
  CurlLoop& operator=(const CurlLoop&) = delete;
  ~CurlLoop();

  int descriptor() const { return events_.number(); }
  void dispatch();

  /// Opens the library and starts it, at the first call; to be called before anything else that has to do with it.
  std::optional<system::Failure> start();
  /// What `start` has opened.
  const CurlLibrary& library() const { return library_; }
  /// Runs `action` once from `dispatch`.
  void later(std::function<void()> action);
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
  void runLater();
  void end(CurlHandle handle);

  system::Descriptor events_;
  system::Descriptor timer_;
  std::string libraryName_;
  CurlLibrary library_ = {};
  CURLM* multi_ = nullptr;
  std::vector<std::function<void()>> later_;
  std::map<CURL*, std::function<void(CURLcode)>> ended_;
  std::vector<CurlHandle> removed_;
  bool isInside_ = false;
};

}  // namespace tarnwell::updater
