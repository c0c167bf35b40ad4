#pragma once

namespace tolva {

// Runs the client on the main thread: starts the controller and the display, runs the display's frame loop and waits
// for the controller. The arguments are not used. Returns the exit status: 0 after a normal run.
//
// On return the socket control's thread may still run, and after a failure any thread may. So end the process without
// exit(), which would clean up libraries that they use.
int ClientMain(int argc, char* argv[]);

}  // namespace tolva
