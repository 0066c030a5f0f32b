#pragma once

namespace tarnwell::kit {
class TabBar;
}  // namespace tarnwell::kit

namespace tarnwell::host_macos::driver {

/// On what GNUstep shows for a tab in the toolbar of the window that the bar stands in.
void clickTab(const kit::TabBar& bar, int index);

}  // namespace tarnwell::host_macos::driver
