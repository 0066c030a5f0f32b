#pragma once

namespace tarnwell::kit::selectors {

// Actions of menus that the application takes, or the system for it.
inline constexpr const char* orderFrontStandardAboutPanel = "orderFrontStandardAboutPanel:";
inline constexpr const char* hide = "hide:";
inline constexpr const char* hideOtherApplications = "hideOtherApplications:";
inline constexpr const char* unhideAllApplications = "unhideAllApplications:";
inline constexpr const char* newWindow = "newWindow:";
inline constexpr const char* terminate = "terminate:";

// The key window.
inline constexpr const char* performClose = "performClose:";
inline constexpr const char* performMiniaturize = "performMiniaturize:";

// The control that has the keyboard.
inline constexpr const char* undo = "undo:";
inline constexpr const char* redo = "redo:";
inline constexpr const char* cut = "cut:";
inline constexpr const char* copy = "copy:";
inline constexpr const char* paste = "paste:";
inline constexpr const char* deleteSelection = "delete:";
inline constexpr const char* selectAll = "selectAll:";

// What delegates of the application and of windows hear.
inline constexpr const char* applicationDidFinishLaunching = "applicationDidFinishLaunching:";
inline constexpr const char* applicationWillTerminate = "applicationWillTerminate:";
inline constexpr const char* windowWillClose = "windowWillClose:";

}  // namespace tarnwell::kit::selectors
