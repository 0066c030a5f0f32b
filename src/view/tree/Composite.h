#pragma once

#include <concepts>
#include <memory>
#include <tuple>
#include <utility>

#include "view/tree/PassThroughNode.h"
#include "view/values/View.h"

namespace tarnwell::view {

/// A view made of other views:
///
///     struct Counter {
///       State<int> count = 0;
///       auto stored() { return std::tie(count); }   // all its dynamic members
///       View body() const { return Button{.title = std::to_string(count.get()), .action = ...}; }
///     };
///
/// `body` is called once for each mounting and each update; its closures capture handles or a copy, never `this`.
template <class C>
concept Composite = std::copy_constructible<C> && requires(const C& composite) {
  { composite.body() } -> std::same_as<View>;
};

/// A node's own copy of a composite.
class CompositeBox {
 public:
  CompositeBox() = default;
  CompositeBox(const CompositeBox&) = delete;
  CompositeBox& operator=(const CompositeBox&) = delete;
  virtual ~CompositeBox() = default;

  virtual View body() const = 0;
  /// Makes the cells of the dynamic members, or takes over those of the copy before.
  virtual void link(MountedNode& node, CompositeBox* previous) = 0;
  virtual void unlink() = 0;
};

/// A composite in the tree. A copy that is replaced lives until the event has ended: its closures may be running.
class CompositeNode final : public PassThroughNode {
 public:
  using MakeBox = std::unique_ptr<CompositeBox> (*)(const Description&);

  CompositeNode(const Place& place, MakeBox makeBox) : PassThroughNode(place), makeBox_(makeBox) {}

 protected:
  void apply() override;
  void willUnmount() override;

 private:
  MakeBox makeBox_;
  std::shared_ptr<CompositeBox> box_;
};

template <Composite C>
class CompositeBoxOf final : public CompositeBox {
 public:
  explicit CompositeBoxOf(C composite) : composite_(std::move(composite)) {}

  View body() const override { return composite_.body(); }

  void link(MountedNode& node, CompositeBox* previous) override {
    if constexpr (requires { composite_.stored(); }) {
      if (previous != nullptr) {
        linkEach(node, composite_.stored(), static_cast<CompositeBoxOf*>(previous)->composite_.stored());
      } else {
        std::apply([&node](auto&... member) { (member.link(node, nullptr), ...); }, composite_.stored());
      }
    }
  }

  void unlink() override {
    if constexpr (requires { composite_.stored(); }) {
      std::apply([](auto&... member) { (member.unlink(), ...); }, composite_.stored());
    }
  }

 private:
  template <class... M>
  static void linkEach(MountedNode& node, std::tuple<M&...> members, std::tuple<M&...> previous) {
    [&]<std::size_t... i>(std::index_sequence<i...>) { (std::get<i>(members).link(node, &std::get<i>(previous)), ...); }
    (std::index_sequence_for<M...>{});
  }

  C composite_;
};

template <Composite C>
std::shared_ptr<MountedNode> makeNode(const C& /*composite*/, const Place& place) {
  return std::make_shared<CompositeNode>(place, [](const Description& description) -> std::unique_ptr<CompositeBox> {
    return std::make_unique<CompositeBoxOf<C>>(static_cast<const ValueDescription<C>&>(description).value());
  });
}

}  // namespace tarnwell::view
