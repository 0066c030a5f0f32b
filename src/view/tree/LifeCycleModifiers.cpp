#include <optional>
#include <utility>

#include "kit/turn/Turn.h"
#include "view/tree/PassThroughNode.h"
#include "view/tree/TreeContext.h"
#include "view/values/View.h"

namespace tarnwell::view {
namespace {

struct AppearModifier {
  using Node = class AppearNode;
  View content;
  kit::Action action;
};

class AppearNode final : public ModifierNode<AppearModifier> {
 public:
  using ModifierNode::ModifierNode;

  void showingChanged(bool shown) override {
    ++showingChanges_;
    if (!shown) {
      return;
    }
    tree().addHandler([weak = weak_from_this(), change = showingChanges_] {
      const auto node = std::static_pointer_cast<AppearNode>(weak.lock());
      // A window may have closed in the same event, and opened once more: only the last showing is one.
      if (node && node->isMounted() && node->showingChanges_ == change) {
        const kit::Action action = node->modifier().action;
        action();
      }
    });
  }

 private:
  int showingChanges_ = 0;
};

struct ChangeModifier {
  using Node = class ChangeNode;
  View content;
  std::any value;
  bool (*same)(const std::any&, const std::any&);
  std::function<void(const std::any&)> action;
};

class ChangeNode final : public ModifierNode<ChangeModifier> {
 public:
  using ModifierNode::ModifierNode;

 protected:
  void apply() override {
    // A value of another type is a first one: there is nothing to compare it with.
    if (last_.type() == modifier().value.type() && !modifier().same(last_, modifier().value)) {
      tree().addHandler([action = modifier().action, value = modifier().value] { action(value); });
    }
    last_ = modifier().value;
    updateChild(modifier().content, environment());
  }

 private:
  std::any last_;
};

struct ReceiveModifier {
  using Node = class ReceiveNode;
  View content;
  std::function<kit::Subscription(kit::NotificationCenter::Handler)> subscribe;
  kit::NotificationCenter::Handler handler;
};

class ReceiveNode final : public ModifierNode<ReceiveModifier> {
 public:
  using ModifierNode::ModifierNode;

 protected:
  void apply() override {
    if (!subscribed_) {
      subscribed_ = true;
      subscription_ = modifier().subscribe(receiving());
    }
    updateChild(modifier().content, environment());
  }

  void willUnmount() override { subscription_.invalidate(); }

 private:
  kit::NotificationCenter::Handler receiving() {
    return [weak = weak_from_this()](const kit::Notification& notification) {
      if (const auto node = std::static_pointer_cast<ReceiveNode>(weak.lock())) {
        const auto handler = node->modifier().handler;
        node->tree().turn().perform([&] { handler(notification); });
      }
    };
  }

  kit::Subscription subscription_;
  bool subscribed_ = false;
};

struct IdentityModifier {
  using Node = class IdentityNode;
  View content;
  int identity;
};

class IdentityNode final : public ModifierNode<IdentityModifier> {
 public:
  using ModifierNode::ModifierNode;

 protected:
  void apply() override {
    if (std::exchange(shown_, modifier().identity) != modifier().identity) {
      updateChildren({}, environment());
    }
    updateChild(modifier().content, environment());
  }

 private:
  std::optional<int> shown_;
};

}  // namespace

View View::identity(int identity) const { return IdentityModifier{.content = *this, .identity = identity}; }

View View::onReceive(std::function<kit::Subscription(kit::NotificationCenter::Handler)> subscribe,
                     kit::NotificationCenter::Handler handler) const {
  return ReceiveModifier{.content = *this, .subscribe = std::move(subscribe), .handler = std::move(handler)};
}

View View::onAppear(kit::Action action) const { return AppearModifier{.content = *this, .action = std::move(action)}; }

View View::onChange(std::any value, AnySame same, std::function<void(const std::any&)> action) const {
  return ChangeModifier{.content = *this, .value = std::move(value), .same = same, .action = std::move(action)};
}

}  // namespace tarnwell::view
