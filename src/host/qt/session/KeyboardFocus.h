#pragma once

namespace tarnwell::host_qt {

/// Whether a window of ours has the keyboard, or had it when the menu was opened that is being chosen from. The toolkit
/// alone would not do: it takes almost half a second to believe that an X11 window has lost the keyboard.
bool hasKeyboard();

/// Before a menu that may stand over another program's window: when it closes, the toolkit gives the keyboard to the
/// window that it believes to have had it.
void admitLossOfKeyboard();

}  // namespace tarnwell::host_qt
