#include "threads/ManagerThread.h"

#include <cstdio>

namespace tolva {

std::unique_ptr<Packet> ManagerThread::FetchMail() {
  return Guard("ManagerThread", "FetchMail", [&] { return mMailbox->Get(); });
}

bool ManagerThread::SendMail(Mailbox* target, Packet* packet) {
  return Guard("ManagerThread", "SendMail", [&] {
    packet->mObjSource = mMailbox;
    return target != nullptr && target->Put(packet);
  });
}

void ManagerThread::Send(Mailbox* target, std::unique_ptr<Packet> packet) {
  if (SendMail(target, packet.get())) static_cast<void>(packet.release());  // the target owns it now
}

void ManagerThread::LogTraffic(const char* what, const Packet& packet) {
  char line[512];
  std::snprintf(line, sizeof line, "%s: %s", what, mPacketPrinter.Print(packet));
  Log(InfoLevel::Traffic, line);
}

}  // namespace tolva
