#pragma once

#include <functional>
#include <string>

#include "host/headless/Journal.h"
#include "kit/host/Peer.h"

namespace tarnwell::host_headless {

/// Notes what it is told, as "name: aspect", with the control's accessible name once it has one.
class JournalPeer : public kit::Peer {
 public:
  JournalPeer(Journal& journal, std::function<std::string()> name);
  ~JournalPeer() override;

  void show(kit::Aspect aspect) noexcept override;
  void place(const kit::Rect& frame) noexcept override;

 private:
  Journal& journal_;
  std::function<std::string()> name_;
};

/// The aspect's name in a journal.
std::string aspectName(kit::Aspect aspect);

}  // namespace tarnwell::host_headless
