#include "updater/transfer/CurlTransport.h"

#include <utility>

#include "updater/transfer/CurlLoop.h"
#include "updater/transfer/CurlTransfer.h"

namespace tarnwell::updater {
namespace {

/// One that cannot even begin.
class FailedTransfer final : public Transport::Transfer {
 public:
  FailedTransfer(CurlLoop& loop, system::Failure failure, Transport::Finished finished)
      : finished_(std::make_shared<Transport::Finished>(std::move(finished))) {
    loop.later([failure = std::move(failure), waiting = std::weak_ptr(finished_)] {
      // Only a transfer that still lives; it may end in the call.
      if (const auto caller = waiting.lock()) {
        (*caller)(failure);
      }
    });
  }

 private:
  std::shared_ptr<Transport::Finished> finished_;
};

}  // namespace

CurlTransport::CurlTransport(Settings settings)
    : settings_(std::move(settings)), loop_(std::make_shared<CurlLoop>(settings_.library)) {}

CurlTransport::~CurlTransport() = default;

std::unique_ptr<Transport::Transfer> CurlTransport::get(const Request& request, Received received, Finished finished) {
  if (auto failure = loop_->start()) {
    return std::make_unique<FailedTransfer>(*loop_, std::move(*failure), std::move(finished));
  }
  return std::make_unique<CurlTransfer>(loop_, settings_, request, std::move(received), std::move(finished));
}

int CurlTransport::descriptor() const { return loop_->descriptor(); }

void CurlTransport::dispatch() {
  const auto alive = loop_;
  alive->dispatch();
}

}  // namespace tarnwell::updater
