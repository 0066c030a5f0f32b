#pragma once

#include <memory>
#include <utility>
#include <vector>

#include "host/qt/menus/ThemedMenu.h"
#include "kit/menus/Menu.h"

namespace tarnwell::kit {
class Application;
}

namespace tarnwell::host_qt {

class Theme;

/// A menu of ours as a menu of the toolkit. It follows every change, and asks the application what can be chosen each
/// time it opens. The toolkit has no key equivalents, which are only shown: two entries may share one. Those that
/// are pressed while it is open close it and go where all go.
class MenuWidget final : public ThemedMenu {
 public:
  /// All are borrowed; a menu that ends first is shown as it was.
  MenuWidget(kit::Application& application, kit::Menu& menu, const Theme& theme, QWidget* parent = nullptr);

  /// The key equivalent at the right edge of the row. The action's own text is its name for screen readers.
  QString keysOf(const QAction& action) const;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const override;

 private:
  using Item = std::shared_ptr<kit::MenuItem>;
  using Row = std::pair<Item, QAction*>;

  void follow(const kit::Menu& menu);
  void rebuild(const std::vector<Item>& items);
  QAction* addEntry(const Item& item);
  void show(const kit::MenuItem& item, QAction& action) const;

  kit::Application& application_;
  const Theme& theme_;
  std::vector<Row> rows_;
  kit::Subscription changes_;
};

}  // namespace tarnwell::host_qt
