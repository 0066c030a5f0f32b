#include <objc/runtime.h>

#include "host/macos/controls/ControlPeers.h"
#include "host/macos/controls/ViewPeer.h"
#include "host/macos/look/Conversions.h"
#include "host/macos/look/TextLook.h"
#include "kit/control/Window.h"
#include "kit/controls/text/TextField.h"

using tarnwell::host_macos::toString;
using tarnwell::host_macos::ViewPeer;
namespace kit = tarnwell::kit;

/// Hears what becomes of the text that is being typed; cut when the control goes.
@interface TWFieldDelegate : NSObject <NSTextFieldDelegate> {
  kit::TextField* field_;
}
- (instancetype)initWithField:(kit::TextField*)field;
- (void)cut;
@end

/// What an assistive client sets is typed, and not committed.
@interface TWTextField : NSTextField
@end
@implementation TWTextField
- (void)setAccessibilityValue:(id)value {
  ViewPeer::perform(self, {.action = kit::AccessibleAction::setValue, .value = toString(value)});
}
@end

namespace {

const char* keyOf(SEL command) {
  if (sel_isEqual(command, @selector(insertNewline:))) {
    return kit::returnKey;
  }
  return sel_isEqual(command, @selector(cancelOperation:)) ? kit::escapeKey : nullptr;
}

}  // namespace

@implementation TWFieldDelegate
- (instancetype)initWithField:(kit::TextField*)field {
  self = [super init];
  if (self != nil) {
    field_ = field;
  }
  return self;
}
- (void)cut {
  field_ = nullptr;
}
- (void)controlTextDidChange:(NSNotification*)note {
  if (field_ != nullptr) {
    field_->type(toString([static_cast<NSTextField*>([note object]) stringValue]));
  }
}
- (void)controlTextDidEndEditing:(NSNotification*)note {
  (void)note;
  if (field_ != nullptr) {
    field_->commit();
  }
}
- (BOOL)control:(NSControl*)control textView:(NSTextView*)editor doCommandBySelector:(SEL)command {
  (void)editor;
  const char* key = keyOf(command);
  if (key == nullptr || field_ == nullptr || field_->window() == nullptr) {
    return NO;
  }
  // Not as a key of the window's: an input method may have wanted it first.
  const auto handle = field_->handle();
  field_->window()->keyDown({.charactersIgnoringModifiers = key});
  if (*handle != nullptr) {
    [static_cast<NSTextField*>(control) selectText:nil];
  }
  return YES;
}
@end

namespace tarnwell::host_macos {
namespace {

class TextFieldPeer final : public PeerOf<kit::TextField, TWTextField> {
 public:
  TextFieldPeer(kit::TextField& field, NSView* parent)
      : PeerOf(field, makeView<TWTextField>(), parent),
        delegate_(Retained<TWFieldDelegate*>::adopt([[TWFieldDelegate alloc] initWithField:&field])) {
    [view() setDelegate:delegate_.get()];
    [view() setFont:fontOf(kit::FontRole::body)];
    [[view() cell] setScrollable:YES];
  }
  ~TextFieldPeer() override {
    [delegate_.get() cut];
    [view() setDelegate:nil];
  }

  std::optional<kit::Measurement> measure(kit::Proposal proposal) const override {
    auto natural = ViewPeer::measure(proposal);
    if (natural && proposal.width) {
      // It asks for room for its text, which changes while it is typed.
      natural->size.width = *proposal.width;
    }
    return natural;
  }

 protected:
  void showState(kit::Aspect aspect) override {
    if (aspect != kit::Aspect::value || toString([view() stringValue]) == control().shownText()) {
      return;
    }
    // A field that is told a text ends its editing; its editor does not.
    NSString* text = toNSString(control().shownText());
    if (NSText* editor = [view() currentEditor]) {
      [editor setString:text];
    } else {
      [view() setStringValue:text];
    }
  }

 private:
  Retained<TWFieldDelegate*> delegate_;
};

}  // namespace

std::unique_ptr<kit::Peer> makePeer(kit::TextField& field, NSView* parent) {
  return std::make_unique<TextFieldPeer>(field, parent);
}

}  // namespace tarnwell::host_macos
