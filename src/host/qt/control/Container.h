#pragma once

class QWidget;

namespace tarnwell::kit {
class Peer;
}

namespace tarnwell::host_qt {

/// A peer that other peers stand in.
class Container {
 public:
  Container() = default;
  Container(const Container&) = delete;
  Container& operator=(const Container&) = delete;
  virtual ~Container() = default;

  /// The parent of the widgets inside.
  virtual QWidget* content() const = 0;

  /// The content of `peer`, which must be one of this host's.
  static QWidget* contentOf(kit::Peer& peer);
};

}  // namespace tarnwell::host_qt
