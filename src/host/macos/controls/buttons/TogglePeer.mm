#include "host/macos/controls/ControlPeers.h"
#include "host/macos/controls/ViewPeer.h"
#include "host/macos/look/Conversions.h"
#include "kit/controls/buttons/Toggle.h"

namespace tarnwell::host_macos {
namespace {

NSInteger stateOf(const kit::Toggle& toggle) { return toggle.isOn() ? NSControlStateValueOn : NSControlStateValueOff; }

class SwitchPeer final : public PeerOf<kit::Toggle, NSSwitch> {
 public:
  SwitchPeer(kit::Toggle& toggle, NSView* parent) : PeerOf(toggle, makeView<NSSwitch>(), parent) {
    connect([this] { control().choose([view() state] == NSControlStateValueOn); });
  }

 protected:
  void showState(kit::Aspect aspect) override {
    if (aspect == kit::Aspect::value) {
      [view() setState:stateOf(control())];
    }
  }
};

class CheckBoxPeer final : public PeerOf<kit::Toggle, NSButton> {
 public:
  CheckBoxPeer(kit::Toggle& toggle, NSView* parent) : PeerOf(toggle, makeView<NSButton>(), parent) {
    [view() setButtonType:NSButtonTypeSwitch];
    connect([this] { control().choose([view() state] == NSControlStateValueOn); });
  }

 protected:
  void showState(kit::Aspect aspect) override {
    [view() setTitle:toNSString(control().title())];
    if (aspect == kit::Aspect::value) {
      [view() setState:stateOf(control())];
    }
  }
};

}  // namespace

std::unique_ptr<kit::Peer> makePeer(kit::Toggle& toggle, NSView* parent) {
  if (toggle.style() == kit::Toggle::Style::checkBox) {
    return std::make_unique<CheckBoxPeer>(toggle, parent);
  }
  return std::make_unique<SwitchPeer>(toggle, parent);
}

}  // namespace tarnwell::host_macos
