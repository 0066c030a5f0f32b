#include <algorithm>
#include <utility>

#include "host/macos/controls/ControlPeers.h"
#include "host/macos/controls/ViewPeer.h"
#include "host/macos/look/FlippedView.h"
#include "kit/controls/containers/ScrollArea.h"

namespace tarnwell::host_macos {
namespace {

class ScrollAreaPeer final : public PeerOf<kit::ScrollArea, NSScrollView> {
 public:
  ScrollAreaPeer(kit::ScrollArea& area, NSView* parent)
      : PeerOf(area, makeView<NSScrollView>(), parent), page_(makeView<TWFlippedView>()), moved_([this] { tell(); }) {
    [view() setHasVerticalScroller:YES];
    [view() setAutohidesScrollers:YES];
    [view() setDrawsBackground:NO];
    [view() setDocumentView:page_.get()];
    [clip() setPostsBoundsChangedNotifications:YES];
    [[NSNotificationCenter defaultCenter] addObserver:moved_.target()
                                             selector:ActionTarget::action()
                                                 name:NSViewBoundsDidChangeNotification
                                               object:clip()];
  }
  ~ScrollAreaPeer() override { [[NSNotificationCenter defaultCenter] removeObserver:moved_.target()]; }

  NSView* content() const override { return page_.get(); }

  void place(const kit::Rect& frame) noexcept override {
    quietly([&] {
      ViewPeer::place(frame);
      showPage();
    });
  }

  std::optional<kit::Measurement> measure(kit::Proposal /*proposal*/) const override { return std::nullopt; }

 protected:
  void showState(kit::Aspect aspect) override {
    if (aspect == kit::Aspect::value) {
      quietly([this] { showPage(); });
    }
  }

 private:
  NSClipView* clip() const { return [view() contentView]; }

  // What is shown from here moves the view as well, and a larger frame does at the end of the page.
  void quietly(const auto& show) {
    const bool outer = std::exchange(shows_, true);
    show();
    shows_ = outer;
  }

  void showPage() {
    const NSSize room = [view() contentSize];
    [page_.get() setFrame:NSMakeRect(0, 0, room.width, std::max(room.height, control().contentHeight()))];
    [clip() scrollToPoint:NSMakePoint(0, control().offset())];
    [view() reflectScrolledClipView:clip()];
  }

  // By the user.
  void tell() {
    if (!shows_) {
      control().scrolled([clip() bounds].origin.y);
    }
  }

  Retained<TWFlippedView*> page_;
  ActionTarget moved_;
  bool shows_ = false;
};

}  // namespace

std::unique_ptr<kit::Peer> makePeer(kit::ScrollArea& area, NSView* parent) {
  return std::make_unique<ScrollAreaPeer>(area, parent);
}

}  // namespace tarnwell::host_macos
