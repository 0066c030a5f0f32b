#pragma once

#include <memory>
#include <optional>

#include "updater/transfer/CurlLoop.h"
#include "updater/transfer/CurlTransport.h"

namespace tarnwell::updater {

/// One file on its way.
class CurlTransfer final : public Transport::Transfer {
 public:
  CurlTransfer(std::shared_ptr<CurlLoop> loop, const CurlTransport::Settings& settings,
               const Transport::Request& request, Transport::Received received, Transport::Finished finished);
  CurlTransfer(const CurlTransfer&) = delete;
  CurlTransfer& operator=(const CurlTransfer&) = delete;
  ~CurlTransfer() override;

 private:
  struct State;

  template <class Value>
  void set(CURLoption option, Value value);
  void restrict(const CurlTransport::Settings& settings);
  void limit(const CurlTransport::Settings& settings);
  void connect();
  void ended(CURLcode code);
  std::optional<system::Failure> outcome(CURLcode code) const;

  std::shared_ptr<CurlLoop> loop_;
  std::shared_ptr<State> state_;
  Transport::Finished finished_;
  CurlHandle handle_;
};

}  // namespace tarnwell::updater
