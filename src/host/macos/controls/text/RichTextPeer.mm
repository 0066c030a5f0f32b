#include <cmath>

#include "host/macos/controls/ControlPeers.h"
#include "host/macos/controls/ViewPeer.h"
#include "host/macos/controls/text/RichTextString.h"
#include "host/macos/look/Conversions.h"
#include "kit/control/Window.h"
#include "kit/controls/text/RichText.h"

namespace kit = tarnwell::kit;

/// Hears which link was clicked; cut when the control goes.
@interface TWLinkDelegate : NSObject <NSTextViewDelegate> {
  kit::RichText* text_;
}
- (instancetype)initFollowing:(kit::RichText*)text;
- (void)cut;
@end

@implementation TWLinkDelegate
- (instancetype)initFollowing:(kit::RichText*)text {
  self = [super init];
  if (self != nil) {
    text_ = text;
  }
  return self;
}
- (void)cut {
  text_ = nullptr;
}
- (BOOL)textView:(NSTextView*)view clickedOnLink:(id)link atIndex:(NSUInteger)index {
  (void)view;
  (void)index;
  if (text_ != nullptr) {
    kit::RichText* text = text_;
    const int number = [link intValue];
    tarnwell::kit::afterCommit(*text, [text, number] { text->follow(number); });
  }
  // Whatever it was, the platform opens nothing.
  return YES;
}
@end

namespace tarnwell::host_macos {
namespace {

// Around the text, in points.
constexpr double inset = 8;
constexpr double idealWidth = 400;
constexpr double unlimited = 100000;

class RichTextPeer final : public PeerOf<kit::RichText, NSTextView> {
 public:
  RichTextPeer(kit::RichText& text, NSView* parent)
      : PeerOf(text, makeView<NSTextView>(), parent),
        delegate_(Retained<TWLinkDelegate*>::adopt([[TWLinkDelegate alloc] initFollowing:&text])) {
    [view() setDelegate:delegate_.get()];
    [view() setEditable:NO];
    [view() setSelectable:YES];
    [view() setDrawsBackground:NO];
    [view() setTextContainerInset:NSMakeSize(inset, inset)];
    [[view() textContainer] setLineFragmentPadding:0];
    [view() setAutomaticLinkDetectionEnabled:NO];
    [view() setAutomaticDataDetectionEnabled:NO];
    // It is as high as the layout says.
    [view() setVerticallyResizable:NO];
    [view() setHorizontallyResizable:NO];
  }
  ~RichTextPeer() override {
    [delegate_.get() cut];
    [view() setDelegate:nil];
  }

  std::optional<kit::Measurement> measure(kit::Proposal proposal) const override {
    const double width = proposal.width.value_or(idealWidth);
    const NSStringDrawingOptions options = NSStringDrawingUsesLineFragmentOrigin | NSStringDrawingUsesFontLeading;
    const NSRect text = [string_.get() boundingRectWithSize:NSMakeSize(width - 2 * inset, unlimited) options:options];
    return kit::Measurement{.size = {.width = width, .height = std::ceil(text.size.height) + 2 * inset},
                            .firstBaseline = inset};
  }

 protected:
  void showState(kit::Aspect aspect) override {
    if (aspect == kit::Aspect::title) {
      string_ = Retained<NSAttributedString*>(attributedString(control().text()));
      [[view() textStorage] setAttributedString:string_.get()];
    }
  }

 private:
  Retained<TWLinkDelegate*> delegate_;
  Retained<NSAttributedString*> string_;
};

}  // namespace

std::unique_ptr<kit::Peer> makePeer(kit::RichText& text, NSView* parent) {
  return std::make_unique<RichTextPeer>(text, parent);
}

}  // namespace tarnwell::host_macos
