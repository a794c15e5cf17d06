#pragma once

namespace lantos::ui {

// The platform plug-in without a screen tells on the error stream of each thing that windows without a screen can't
// do. That is dropped; all other messages go their way.
void QuietOffscreenPlatform();

}  // namespace lantos::ui
