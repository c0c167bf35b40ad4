#include <CLI/CLI.hpp>
#include <cstdio>
#include <exception>

#include "tools/bots/Swarm.h"

namespace {

int Run(int argc, char** argv) {
  tolva::SwarmOptions options;
  CLI::App app("Players without screens that walk and talk in a server's world, to measure what it bears.",
               "tolva-bots");
  app.set_version_flag("--version", "tolva-bots " TOLVA_VERSION_TEXT);
  app.add_option("--host", options.host, "the server's host")->capture_default_str();
  app.add_option("--port", options.port, "the server's port")->capture_default_str();
  app.add_option("--count", options.count, "how many bots")->check(CLI::Range(1, 500))->capture_default_str();
  app.add_option("--seconds", options.seconds, "how long to measure")
      ->check(CLI::Range(1, 86400))
      ->capture_default_str();
  app.add_option("--spread", options.spread, "how many seconds to walk apart first, unmeasured")
      ->check(CLI::Range(0, 3600))
      ->capture_default_str();
  CLI11_PARSE(app, argc, argv)

  tolva::Swarm swarm(options);
  if (!swarm.Run()) {
    std::fprintf(stderr, "tolva-bots: there is no host %s\n", options.host.c_str());
    return 1;
  }
  return swarm.Report() ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return Run(argc, argv);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "tolva-bots: %s\n", error.what());
    return 1;
  }
}
