#pragma once

namespace lantos {

// With what a process ends. A window that was closed, a way out that was chosen in the running program, and a second
// copy that goes are all in order.
enum ExitCode : int {
  kEndedInOrder = 0,
  kStartFailed = 1,     // an error, told in a box, or no windows to be had
  kWrongOptions = 2,    // named on the error stream; nothing was started
  kStartCancelled = 3,  // the person gave the start up at one of its questions
};

}  // namespace lantos
