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
  WireWriter writer(record, kHeaderSize);
  VisitPacket(packet, [&](const auto& typed) {
    VisitFields(typed, [&](const char*, const auto& member) { writer.Write(member); });
  });
  StoreBig32(record + 8, writer.GetPosition());
  return writer.GetPosition();
}

std::unique_ptr<Packet> PacketConverter::ReadBuffer(const std::uint8_t* bytes, std::uint32_t available,
                                                    std::uint32_t& consumed) const {
  return Guard("PacketConverter", "ReadBuffer", [&]() -> std::unique_ptr<Packet> {
    consumed = 0;
    if (available < kHeaderSize || LoadBig32(bytes) != mProtocolMagic)
      return std::make_unique<PacketInternPacketDamaged>();
    const std::uint32_t declared = LoadBig32(bytes + 8);
    if (declared < kHeaderSize || declared > available) return std::make_unique<PacketInternPacketDamaged>();

    auto packet = CreatePacket(LoadBig32(bytes + 4));
    if (packet == nullptr) {
      consumed = kHeaderSize;
      return std::make_unique<Packet>();
    }
    WireReader reader(bytes, declared, kHeaderSize);
    VisitPacket(*packet,
                [&](auto& typed) { VisitFields(typed, [&](const char*, auto& member) { reader.Read(member); }); });
    if (reader.IsDamaged()) return std::make_unique<PacketInternPacketDamaged>();
    consumed = reader.GetPosition();
    return packet;
  });
}

}  // namespace tolva
