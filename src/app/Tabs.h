#pragma once

namespace tarnwell::app {

/// The tabs of the settings window. No tab shows `about`.
enum class Tabs { dock, general, about };

}  // namespace tarnwell::app
