#include "view/BoxHost.h"

#include <functional>
#include <utility>

namespace tarnwell::view {
namespace {

/// Hands everything on to another peer, and tells when it goes.
class WatchedPeer final : public kit::Peer {
 public:
  WatchedPeer(std::unique_ptr<kit::Peer> shown, std::function<void()> goes)
      : shown_(std::move(shown)), goes_(std::move(goes)) {}
  WatchedPeer(const WatchedPeer&) = delete;
  WatchedPeer& operator=(const WatchedPeer&) = delete;
  ~WatchedPeer() override { goes_(); }

  void show(kit::Aspect aspect) noexcept override { shown_->show(aspect); }
  void place(const kit::Rect& frame) noexcept override { shown_->place(frame); }

 private:
  std::unique_ptr<kit::Peer> shown_;
  std::function<void()> goes_;
};

}  // namespace

std::unique_ptr<kit::Peer> BoxHost::peer(kit::AnyControl control, kit::Peer& parent) {
  auto peer = HeadlessHost::peer(control, parent);
  kit::Box* const* box = std::get_if<kit::Box*>(&control);
  if (box == nullptr) {
    return peer;
  }
  boxes_.push_back(*box);
  ++made_;
  return std::make_unique<WatchedPeer>(std::move(peer), [this, box = *box] { std::erase(boxes_, box); });
}

std::vector<kit::Rect> BoxHost::boxes(kit::Box::Kind kind) const {
  std::vector<kit::Rect> frames;
  for (const kit::Box* box : boxes_) {
    if (box->kind() == kind) {
      frames.push_back(box->frame());
    }
  }
  return frames;
}

}  // namespace tarnwell::view
