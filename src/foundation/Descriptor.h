#pragma once

#include <cstddef>
#include <utility>

namespace tolva {

// Owns a file descriptor and closes it.
class Descriptor {
 public:
  Descriptor() = default;
  // Takes what open() returned; a negative number is none.
  explicit Descriptor(int number) : mNumber(number) {}
  ~Descriptor() { Close(); }
  Descriptor(Descriptor&& other) noexcept : mNumber(std::exchange(other.mNumber, kNone)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(mNumber, other.mNumber);
    return *this;
  }

  bool IsOpen() const { return mNumber >= 0; }
  int Get() const { return mNumber; }

  // Writes all bytes, in one call to the system unless that is interrupted or the file takes less. False when it fails.
  bool WriteAll(const void* bytes, std::size_t count) const;
  // False when closing reports that something was not written. Nothing happens when nothing is open.
  bool Close();

 private:
  static constexpr int kNone = -1;

  int mNumber = kNone;
};

}  // namespace tolva
