#pragma once

#include <cstddef>

namespace tolva {

// How many bytes the texts of packets take at most, the terminating zero included, and how many entries their lists
// have. What is longer is cut when a packet is made and makes a record damaged when it is read (docs/protocol.md).

constexpr std::size_t kUserNameCapacity = 32;
constexpr std::size_t kUserListCapacity = 32;
constexpr std::size_t kChatTextCapacity = 1024;
constexpr std::size_t kReasonCapacity = 256;
constexpr std::size_t kHostCapacity = 256;
constexpr std::size_t kKickedNameCapacity = 256;

}  // namespace tolva
