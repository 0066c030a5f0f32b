#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "host/headless/Journal.h"
#include "kit/host/Peer.h"

namespace tarnwell::host_headless {

/// Notes what it is told, as "name: aspect".
class JournalPeer : public kit::Peer {
 public:
  JournalPeer(Journal& journal, std::string name) : journal_(journal) { rename(std::move(name)); }
  ~JournalPeer() override;

  void show(kit::Aspect aspect) noexcept override;
  void place(const kit::Rect& frame) noexcept override;

 protected:
  void rename(std::string name) { name_ = std::make_shared<const std::string>(std::move(name)); }

 private:
  Journal& journal_;
  std::shared_ptr<const std::string> name_;
};

/// The aspect's name in a journal.
std::string_view aspectName(kit::Aspect aspect);

}  // namespace tarnwell::host_headless
