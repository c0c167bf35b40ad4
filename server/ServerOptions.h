#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace tolva {

constexpr std::uint16_t kDefaultPort = 7623;
constexpr std::size_t kMostUsers = 500;

// How the server was asked to run.
struct ServerOptions {
  std::string bind = "127.0.0.1";
  // 0: any free one.
  std::uint16_t port = kDefaultPort;
  // What the world is grown from.
  std::uint64_t worldSeed = 1;
  std::size_t maxUsers = 100;
  int dayMinutes = 20;
  // When the first day begins, 0 to 23.
  int startHour = 12;
  std::size_t villagers = 6;
  bool verbose = false;

  // Reads the command line. Anything but nothing is the status to end with at once: help or the version was asked for
  // and has been shown, or an option was wrong and the complaint is on standard error.
  std::optional<int> Read(int argc, char** argv);
};

}  // namespace tolva
