#include <optional>
#include <utility>

#include "view/tree/MountedTree.h"
#include "view/tree/PassThroughNode.h"
#include "view/values/View.h"

namespace tarnwell::view {
namespace {

struct AppearModifier {
  View content;
  kit::Action action;
};

class AppearNode final : public PassThroughNode {
 public:
  using PassThroughNode::PassThroughNode;

  void showingChanged(bool shown) override {
    ++showingChanges_;
    if (!shown) {
      return;
    }
    tree().addHandler([weak = weak_from_this(), change = showingChanges_] {
      const auto node = std::static_pointer_cast<AppearNode>(weak.lock());
      // A window may have closed in the same event, and opened once more: only the last showing is one.
      if (node && node->isMounted() && node->showingChanges_ == change) {
        const kit::Action action = node->valueAs<AppearModifier>().action;
        action();
      }
    });
  }

 protected:
  void apply() override { updateChildren({valueAs<AppearModifier>().content}, environment()); }

 private:
  int showingChanges_ = 0;
};

std::shared_ptr<MountedNode> makeNode(const AppearModifier& /*modifier*/, const Place& place) {
  return std::make_shared<AppearNode>(place);
}

struct ChangeModifier {
  View content;
  std::any value;
  bool (*same)(const std::any&, const std::any&);
  std::function<void(const std::any&)> action;
};

class ChangeNode final : public PassThroughNode {
 public:
  using PassThroughNode::PassThroughNode;

 protected:
  void apply() override {
    const auto& modifier = valueAs<ChangeModifier>();
    // A value of another type is a first one: there is nothing to compare it with.
    if (last_.type() == modifier.value.type() && !modifier.same(last_, modifier.value)) {
      tree().addHandler([action = modifier.action, value = modifier.value] { action(value); });
    }
    last_ = modifier.value;
    updateChildren({modifier.content}, environment());
  }

 private:
  std::any last_;
};

std::shared_ptr<MountedNode> makeNode(const ChangeModifier& /*modifier*/, const Place& place) {
  return std::make_shared<ChangeNode>(place);
}

struct ReceiveModifier {
  View content;
  std::function<kit::Subscription(kit::NotificationCenter::Handler)> subscribe;
  kit::NotificationCenter::Handler handler;
};

class ReceiveNode final : public PassThroughNode {
 public:
  using PassThroughNode::PassThroughNode;

 protected:
  void apply() override {
    if (!subscribed_) {
      subscribed_ = true;
      subscription_ = valueAs<ReceiveModifier>().subscribe(receiving());
    }
    updateChildren({valueAs<ReceiveModifier>().content}, environment());
  }

  void willUnmount() override { subscription_.invalidate(); }

 private:
  kit::NotificationCenter::Handler receiving() {
    return [weak = weak_from_this()](const kit::Notification& notification) {
      if (const auto node = std::static_pointer_cast<ReceiveNode>(weak.lock())) {
        const auto handler = node->valueAs<ReceiveModifier>().handler;
        node->tree().turn().perform([&] { handler(notification); });
      }
    };
  }

  kit::Subscription subscription_;
  bool subscribed_ = false;
};

std::shared_ptr<MountedNode> makeNode(const ReceiveModifier& /*modifier*/, const Place& place) {
  return std::make_shared<ReceiveNode>(place);
}

struct IdentityModifier {
  View content;
  int identity;
};

class IdentityNode final : public PassThroughNode {
 public:
  using PassThroughNode::PassThroughNode;

 protected:
  void apply() override {
    const auto& modifier = valueAs<IdentityModifier>();
    if (std::exchange(shown_, modifier.identity) != modifier.identity) {
      updateChildren({}, environment());
    }
    updateChildren({modifier.content}, environment());
  }

 private:
  std::optional<int> shown_;
};

std::shared_ptr<MountedNode> makeNode(const IdentityModifier& /*modifier*/, const Place& place) {
  return std::make_shared<IdentityNode>(place);
}

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
