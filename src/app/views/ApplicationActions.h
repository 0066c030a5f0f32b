#pragma once

namespace tarnwell::app {

// What menu entries ask of the shared application, with no sender. Without an application each is a fault.

/// Shows the standard About panel and leaves alone which application is in front.
void showAboutPanel();

void terminate();

}  // namespace tarnwell::app
