#pragma once

#include <string>

namespace lantos::ui {

// The first two are for before the QApplication.

// What the window system's library says on the error stream about itself, and what nobody can do anything about, is
// dropped; all other messages go their way. When no windows can be had at all, the process says so as the program of
// that name, and ends with exit code 1.
void TameWindowSystem(const std::string& program);

// Without a display, and without a word on it in the environment, windows are kept in memory.
void DoWithoutDisplay();

// For behind it: a process that is asked to end (SIGTERM, SIGHUP, SIGINT) ends as with the session.
void EndWhenAsked();

}  // namespace lantos::ui
