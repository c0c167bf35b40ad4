#include "plain/PacketConverter.h"

#include <cstring>

#include "foundation/ByteOrder.h"
#include "protocol/PacketList.h"
#include "protocol/WireFormat.h"

namespace tolva::plain {
namespace {

class WireWriter {
 public:
  WireWriter(std::uint8_t* record, std::uint32_t position) : mRecord(record), mPosition(position) {}

  std::uint32_t GetPosition() const { return mPosition; }

  void Write(std::uint32_t value) {
    StoreBig32(mRecord + mPosition, value);
    mPosition += 4;
  }
  void Write(std::uint16_t value) {
    StoreBig16(mRecord + mPosition, value);
    mPosition += 2;
  }
  void Write(std::uint8_t value) { mRecord[mPosition++] = value; }
  void Write(std::int8_t value) { Write(static_cast<std::uint8_t>(value)); }
  void Write(Direction value) { Write(static_cast<std::uint32_t>(value)); }
  template <std::size_t Capacity>
  void Write(const char (&text)[Capacity]) {
    const auto length = static_cast<std::uint32_t>(strnlen(text, Capacity - 1));
    Write(length + 1);
    std::memcpy(mRecord + mPosition, text, length);
    mRecord[mPosition + length] = 0;
    mPosition += length + 1;
  }
  void Write(const NameList& names) {
    Write(static_cast<std::uint32_t>(kUserListCapacity));
    for (const auto& name : names) Write(name);
  }
  template <typename T>
  void Write(const AreaGrid<T>& grid) {
    Write(static_cast<std::uint32_t>(kAreaEdge));
    Write(static_cast<std::uint32_t>(kAreaEdge));
    for (const T value : grid) Write(value);
  }
  template <typename T>
  void Write(T* const&) {}

 private:
  std::uint8_t* mRecord;
  std::uint32_t mPosition;
};

class WireReader {
 public:
  WireReader(const std::uint8_t* record, std::uint32_t size, std::uint32_t position)
      : mRecord(record), mSize(size), mPosition(position) {}

  bool IsDamaged() const { return mDamaged; }
  std::uint32_t GetPosition() const { return mPosition; }

  void Read(std::uint32_t& value) {
    if (const std::uint8_t* bytes = Take(4)) value = LoadBig32(bytes);
  }
  void Read(std::uint16_t& value) {
    if (const std::uint8_t* bytes = Take(2)) value = LoadBig16(bytes);
  }
  void Read(std::uint8_t& value) {
    if (const std::uint8_t* bytes = Take(1)) value = *bytes;
  }
  void Read(std::int8_t& value) {
    if (const std::uint8_t* bytes = Take(1)) value = static_cast<std::int8_t>(*bytes);
  }
  void Read(Direction& value) {
    std::uint32_t number = 0;
    Read(number);
    value = static_cast<Direction>(number);
  }
  template <std::size_t Capacity>
  void Read(char (&text)[Capacity]) {
    std::uint32_t length = 0;
    Read(length);
    if (length == 0 || length > Capacity) mDamaged = true;
    const std::uint8_t* bytes = mDamaged ? nullptr : Take(length);
    if (bytes == nullptr) return;
    if (bytes[length - 1] != 0) {
      mDamaged = true;
      return;
    }
    std::memcpy(text, bytes, length);
  }
  void Read(NameList& names) {
    Take(4);
    for (auto& name : names) Read(name);
  }
  template <typename T>
  void Read(AreaGrid<T>& grid) {
    Take(8);
    for (T& value : grid) Read(value);
  }
  template <typename T>
  void Read(T*&) {}

 private:
  const std::uint8_t* Take(std::uint32_t count) {
    if (mDamaged || count > mSize - mPosition) {
      mDamaged = true;
      return nullptr;
    }
    const std::uint8_t* bytes = mRecord + mPosition;
    mPosition += count;
    return bytes;
  }

  const std::uint8_t* mRecord;
  std::uint32_t mSize;
  std::uint32_t mPosition;
  bool mDamaged = false;
};

template <typename PacketType, typename Visitor, typename... Packets>
void VisitPacket(PacketType& packet, Visitor&& visitor, TypeList<Packets...>) {
  const auto visitIf = [&](auto* typed) {
    if (typed != nullptr) VisitFields(*typed, visitor);
    return typed != nullptr;
  };
  static_cast<void>((visitIf(PacketCast<Packets>(&packet)) || ...));
}

template <typename... Packets>
std::unique_ptr<Packet> CreatePacket(PacketCode code, TypeList<Packets...>) {
  std::unique_ptr<Packet> packet;
  const auto createIf = [&](auto create, PacketCode ownCode) {
    if (code == ownCode) packet = create();
    return code == ownCode;
  };
  static_cast<void>(
      (createIf([]() -> std::unique_ptr<Packet> { return std::make_unique<Packets>(); }, Packets::kCode) || ...));
  return packet;
}

}  // namespace

std::uint32_t PacketConverter::WriteBuffer(std::uint8_t* record, const Packet& packet) const {
  StoreBig32(record, kProtocolMagic);
  StoreBig32(record + 4, packet.mEnmCode);
  WireWriter writer(record, kHeaderSize);
  VisitPacket(
      packet, [&](const char*, const auto& member) { writer.Write(member); }, AllPackets{});
  StoreBig32(record + 8, writer.GetPosition());
  return writer.GetPosition();
}

std::unique_ptr<Packet> PacketConverter::ReadBuffer(const std::uint8_t* bytes, std::uint32_t available,
                                                    std::uint32_t& consumed) const {
  consumed = 0;
  if (available < kHeaderSize || LoadBig32(bytes) != kProtocolMagic)
    return std::make_unique<PacketInternPacketDamaged>();
  const std::uint32_t declared = LoadBig32(bytes + 8);
  if (declared < kHeaderSize || declared > available) return std::make_unique<PacketInternPacketDamaged>();

  auto packet = CreatePacket(LoadBig32(bytes + 4), AllPackets{});
  if (packet == nullptr) {
    consumed = kHeaderSize;
    return std::make_unique<Packet>();
  }
  WireReader reader(bytes, declared, kHeaderSize);
  VisitPacket(
      *packet, [&](const char*, auto& member) { reader.Read(member); }, AllPackets{});
  if (reader.IsDamaged()) return std::make_unique<PacketInternPacketDamaged>();
  consumed = reader.GetPosition();
  return packet;
}

}  // namespace tolva::plain
