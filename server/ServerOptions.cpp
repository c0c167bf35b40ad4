#include "server/ServerOptions.h"

#include <CLI/CLI.hpp>

#include "protocol/VersionNumbers.h"
#include "server/realm/Villagers.h"

namespace tolva {
namespace {

// Returns the exit status if the program is to end at once.
std::optional<int> Parse(CLI::App& app, int argc, char** argv) {
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return app.exit(error);
  }
  return std::nullopt;
}

}  // namespace

std::optional<int> ServerOptions::Read(int argc, char** argv) {
  CLI::App app("The server of Tolva: lets clients of the same version log in, chat and walk in the world.",
               "tolva-server");
  app.set_version_flag("--version", "tolva-server " + ToText(kVersion));
  app.add_option("--port", port, "TCP port to listen on; 0 picks a free one")->capture_default_str();
  app.add_option("--bind", bind, "IPv4 address to listen on; 0.0.0.0 lets other machines in")
      ->check(CLI::ValidIPV4)
      ->capture_default_str();
  app.add_option("--world-seed", worldSeed, "number that the world grows from")->capture_default_str();
  app.add_option("--max-users", maxUsers, "most users logged in at the same time")
      ->check(CLI::Range(std::size_t{1}, kMaxUsers))
      ->capture_default_str();
  app.add_option("--day-minutes", dayMinutes, "length of a day in minutes")
      ->check(CLI::Range(1, 24 * 60))
      ->capture_default_str();
  app.add_option("--start-hour", startHour, "hour of the day to begin with: 12 is noon, from 18 on it gets dark")
      ->check(CLI::Range(0, 23))
      ->capture_default_str();
  app.add_option("--villagers", villagers, "people who live in the village where players arrive")
      ->check(CLI::Range(std::size_t{0}, kMaxVillagers))
      ->capture_default_str();
  app.add_flag("--verbose", verbose, "log every packet too");

  return Parse(app, argc, argv);
}

}  // namespace tolva
