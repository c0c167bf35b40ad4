#include "protocol/PacketConverter.h"

#include "foundation/ByteOrder.h"
#include "foundation/Guard.h"
#include "protocol/PacketList.h"
#include "protocol/WireReader.h"
#include "protocol/WireWriter.h"

namespace tolva {

std::uint32_t PacketConverter::WriteBuffer(std::uint8_t* record, const Packet& packet) const {
  StoreBig32(record, mProtocolMagic);
  StoreBig32(record + 4, packet.mEnmCode);
  std::uint32_t length = kHeaderSize;
  VisitPacket(packet, [&](const auto& typed) {
    WireWriter writer(record + kHeaderSize);
    VisitFields(typed, [&](const char*, const auto& member) { writer.Write(member); });
    length = static_cast<std::uint32_t>(writer.GetEnd() - record);
  });
  StoreBig32(record + 8, length);
  return length;
}

std::unique_ptr<Packet> PacketConverter::ReadBuffer(const std::uint8_t* bytes, std::uint32_t available,
                                                    std::uint32_t& consumed) const {
  return Guard("PacketConverter", "ReadBuffer", [&]() -> std::unique_ptr<Packet> {
    consumed = 0;
    if (available < kHeaderSize || LoadBig32(bytes) != mProtocolMagic)
      return std::make_unique<PacketInternPacketDamaged>();
    const std::uint32_t declared = LoadBig32(bytes + 8);
    if (declared < kHeaderSize || declared > available) return std::make_unique<PacketInternPacketDamaged>();

    std::unique_ptr<Packet> packet;
    const bool known = VisitClass(LoadBig32(bytes + 4), [&]<typename T>(std::type_identity<T>) {
      // Grids need no zeros first: each value is read.
      auto made = std::make_unique_for_overwrite<T>();
      WireReader reader(bytes + kHeaderSize, declared - kHeaderSize);
      if (!reader.ReadFields(*made)) return;
      consumed = kHeaderSize + reader.GetReadCount();
      packet = std::move(made);
    });
    if (!known) {
      consumed = kHeaderSize;
      return std::make_unique<Packet>();
    }
    if (packet == nullptr) return std::make_unique<PacketInternPacketDamaged>();
    return packet;
  });
}

}  // namespace tolva
