#pragma once

namespace tolva {

// The client from start to end, on the main thread: starts the controller and the display, runs the display's frame
// loop and waits for the controller. The arguments are not used. Returns the exit status: 0 after a normal run.
//
// On return the socket control's thread may still run, and after a failure all threads may: end the process without
// exit(), whose clean-up would pull the libraries away under them.
int ClientMain(int argc, char* argv[]);

}  // namespace tolva
