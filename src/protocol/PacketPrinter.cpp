#include "protocol/PacketPrinter.h"

#include <cstdio>

#include "protocol/PacketList.h"

namespace tolva {
namespace {

// Appends to a buffer and stops at its end.
class TextWriter {
 public:
  TextWriter(char* text, std::size_t capacity) : mText(text), mCapacity(capacity) {}

  void Start(const char* name) { Append("%s: ", name); }

  void Field(const char* name, std::uint32_t value) { Shown("%s=%u", name, value); }
  void Field(const char* name, std::uint16_t value) { Shown("%s=%u", name, unsigned{value}); }
  void Field(const char* name, std::uint8_t value) { Shown("%s=%u", name, unsigned{value}); }
  void Field(const char* name, std::int8_t value) { Shown("%s=%d", name, int{value}); }
  void Field(const char* name, Direction value) { Shown("%s=%u", name, static_cast<std::uint32_t>(value)); }
  template <std::size_t Capacity>
  void Field(const char* name, const char (&text)[Capacity]) {
    Shown("%s=%.*s", name, static_cast<int>(Capacity - 1), text);
  }
  template <typename T>
  void Field(const char* name, T* const& pointer) {
    Shown("%s=%p", name, static_cast<const void*>(pointer));
  }
  // Lists and grids leave only the blank that stands before a field.
  void Field(const char*, const NameList&) { Separate(); }
  template <typename T>
  void Field(const char*, const AreaGrid<T>&) {
    Separate();
  }

 private:
  template <typename... Values>
  void Shown(const char* format, Values... values) {
    Separate();
    Append(format, values...);
    mSeparated = false;
  }
  void Separate() {
    if (!mSeparated) Append("%s", " ");
    mSeparated = true;
  }
  template <typename... Values>
  void Append(const char* format, Values... values) {
    if (mLength >= mCapacity) return;
    const int written = std::snprintf(mText + mLength, mCapacity - mLength, format, values...);
    if (written > 0) mLength += static_cast<std::size_t>(written);
  }

  char* mText;
  std::size_t mCapacity;
  std::size_t mLength = 0;
  bool mSeparated = true;
};

}  // namespace

const char* PacketPrinter::Print(const Packet& packet) {
  TextWriter writer(mText, sizeof mText);
  const bool known = VisitPacket(packet, [&](const auto& typed) {
    writer.Start(typed.kName);
    VisitFields(typed, [&](const char* name, const auto& member) { writer.Field(name, member); });
  });
  if (!known) std::snprintf(mText, sizeof mText, "Unknown Packet: mEnmCode=%u", packet.mEnmCode);
  return mText;
}

}  // namespace tolva
