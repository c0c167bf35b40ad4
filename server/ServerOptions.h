#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace tolva {

constexpr std::uint16_t kDefaultPort = 7623;
constexpr std::size_t kMaxUsers = 500;

// How the server was asked to run.
struct ServerOptions {
  std::string bind = "127.0.0.1";
  // 0: any free one.
  std::uint16_t port = kDefaultPort;
  std::uint64_t worldSeed = 1;
  std::size_t maxUsers = 100;
  int dayMinutes = 20;
  // The hour of the day at the start, 0 to 23.
  int startHour = 12;
  std::size_t villagers = 6;
  bool verbose = false;

  // Reads the command line. Returns the exit status if the program is to end at once: after it has printed its help or
  // version, or the error in the options. Else returns nothing.
  std::optional<int> Read(int argc, char** argv);
};

}  // namespace tolva
