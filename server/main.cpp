#include <csignal>
#include <iostream>

#include "server/Server.h"

int main(int argc, char** argv) {
  tolva::ServerOptions options;
  if (const auto status = options.Read(argc, argv)) return *status;

  // The server goes on when the reader of its output has gone.
  std::signal(SIGPIPE, SIG_IGN);
  using tolva::LogDetail;
  tolva::ServerLog log(std::cerr, options.verbose ? LogDetail::EventsAndTraffic : LogDetail::Events);
  tolva::Server server(options, log);
  if (const std::string problem = server.Listen(); !problem.empty()) {
    std::cerr << "tolva-server: " << problem << std::endl;
    return 1;
  }
  server.StopOnSignals();
  std::cout << "listening on " << options.bind << ':' << server.GetPort() << std::endl;
  server.Run();
  return 0;
}
