#pragma once

#include <cmath>
#include <concepts>
#include <memory>
#include <numbers>
#include <string>

#include "view/tree/ControlNode.h"
#include "view/tree/TreeContext.h"
#include "view/values/EnvironmentKeys.h"

namespace tarnwell::view {

/// What a representable is given: its coordinator, made once and alive as long as the control, and who will show that.
template <class Coordinator>
struct RepresentableContext {
  std::shared_ptr<Coordinator> coordinator;
  const kit::Host& host;
};

/// A value that bridges to a control of `kit`:
///
///     std::shared_ptr<Coordinator> makeCoordinator() const;                       // first, once
///     std::unique_ptr<NSView> makeNSView(Context& context) const;                 // then, once
///     void updateNSView(NSView& view, Context& context) const;                    // at mounting and at each update
///
/// with the member types `Coordinator`, `NSView` (the control's class) and `Context`.
template <class R>
concept Representable = requires(const R& value, typename R::NSView& view, typename R::Context& context) {
  { value.makeCoordinator() } -> std::same_as<std::shared_ptr<typename R::Coordinator>>;
  { value.makeNSView(context) } -> std::same_as<std::unique_ptr<typename R::NSView>>;
  value.updateNSView(view, context);
};

template <Representable R>
class RepresentableNode final : public ControlNode {
 public:
  explicit RepresentableNode(const Place& place)
      : ControlNode(place), context_{.coordinator = nullptr, .host = tree().host()} {}

 protected:
  std::unique_ptr<kit::Control> makeControl() override {
    context_.coordinator = valueAs<R>().makeCoordinator();
    return valueAs<R>().makeNSView(context_);
  }

  void updateControl() override {
    if constexpr (requires(typename R::NSView & view) { view.setUpsideDown(true); }) {
      controlAs<typename R::NSView>().setUpsideDown(
          std::lround(environment().template get<RotationKey>() / std::numbers::pi) % 2 != 0);
    }
    valueAs<R>().updateNSView(controlAs<typename R::NSView>(), context_);
  }

 private:
  typename R::Context context_;
};

template <Representable R>
std::shared_ptr<MountedNode> makeNode(const R& /*representable*/, const Place& place) {
  return std::make_shared<RepresentableNode<R>>(place);
}

}  // namespace tarnwell::view
