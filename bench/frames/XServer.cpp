#include "frames/XServer.h"

#include <csignal>

#include "frames/Process.h"

namespace tolva::bench {

XServer::XServer() {
  Pipe pipe;
  // Without -noreset it would begin anew whenever its only client ends.
  mProcess = Start({"Xvfb", "-displayfd", std::to_string(pipe.GetWriteEnd()), "-ac", "-noreset", "-nolisten", "tcp",
                    "-screen", "0", "1280x1024x24"});
  pipe.CloseWriteEnd();
  try {
    char letter = 0;
    for (pipe.Read(&letter, 1); letter != '\n'; pipe.Read(&letter, 1)) mName += letter;
  } catch (...) {
    End(mProcess, SIGTERM);
    throw;
  }
}

XServer::~XServer() { End(mProcess, SIGTERM); }

}  // namespace tolva::bench
