#include "host/linux/updates/CurlTransport.h"

#include <utility>

#include "host/linux/updates/CurlLoop.h"
#include "host/linux/updates/CurlTransfer.h"

namespace tarnwell::host_linux::updates {

CurlTransport::CurlTransport(Settings settings) : settings_(std::move(settings)), loop_(std::make_shared<CurlLoop>()) {}

CurlTransport::~CurlTransport() = default;

std::unique_ptr<Transport::Transfer> CurlTransport::get(const Request& request, Received received, Finished finished) {
  loop_->start();
  return std::make_unique<CurlTransfer>(loop_, settings_, request, std::move(received), std::move(finished));
}

int CurlTransport::descriptor() const { return loop_->descriptor(); }

void CurlTransport::dispatch() {
  const auto alive = loop_;
  alive->dispatch();
}

}  // namespace tarnwell::host_linux::updates
