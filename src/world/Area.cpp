#include "world/Area.h"

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <string>

#include "foundation/AtomicFile.h"
#include "foundation/ByteOrder.h"
#include "foundation/Guard.h"
#include "foundation/RegularFile.h"
#include "protocol/FieldPosition.h"
#include "world/AreaFile.h"

namespace tolva {
namespace {

constexpr int kEdge = kAreaEdge;

using AreaRecord = std::array<std::uint8_t, kAreaFileSize>;
using AreaRecordHead = std::array<std::uint8_t, kAreaFileVersion>;

std::string CacheFile(const char* directory, const AreaPosition& position) {
  char name[48];
  std::snprintf(name, sizeof name, kAreaFileName, position.mUintRx, position.mUintRy, unsigned{position.mByAx},
                unsigned{position.mByAy}, static_cast<unsigned>(int{position.mByLevel}));
  return std::string(directory) + name;
}

// The part of the file that says which area it is of.
AreaRecordHead HeadOf(const AreaPosition& position) {
  AreaRecordHead head;
  StoreLittle32(&head[kAreaFileRx], position.mUintRx);
  StoreLittle32(&head[kAreaFileRy], position.mUintRy);
  head[kAreaFileAx] = position.mByAx;
  head[kAreaFileAy] = position.mByAy;
  head[kAreaFileLevel] = static_cast<std::uint8_t>(position.mByLevel);
  return head;
}

// Maps of several threads may draw from it.
std::atomic<std::uint64_t> sLastGroundState{0};

bool IsInside(int x, int y) { return x >= 0 && x < kEdge && y >= 0 && y < kEdge; }

}  // namespace

Field* Area::GetField(std::uint8_t fx, std::uint8_t fy) {
  return IsInside(fx, fy) ? &mFields[fx * kAreaEdge + fy] : nullptr;
}

const Field* Area::GetField(std::uint8_t fx, std::uint8_t fy) const {
  return const_cast<Area*>(this)->GetField(fx, fy);
}

void Area::NoteGroundChange() { mGroundState = sLastGroundState.fetch_add(1, std::memory_order_relaxed) + 1; }

void Area::SetPosition(const AreaPosition& position) {
  mPosition = position;
  mPlaced = true;
}

void Area::Reset() {
  mPosition = {};
  mPlaced = false;
  mVersion = 0;
}

void Area::InitFields() {
  Guard("Area", "InitFields", [&] {
    for (int fx = 0; fx < kEdge; ++fx) {
      for (int fy = 0; fy < kEdge; ++fy) {
        Field& field = mFields[static_cast<std::size_t>(fx) * kAreaEdge + static_cast<std::size_t>(fy)];
        field.SetPlace(this, static_cast<std::uint8_t>(fx), static_cast<std::uint8_t>(fy));
        // A map has 28,224 fields and links them at each shift: those away from the border need no look-up.
        const bool isInner = IsInside(fx - 1, fy - 1) && IsInside(fx + 1, fy + 1);
        for (std::uint32_t d = 0; d < kDirectionCount; ++d) {
          const Step step = kSteps[d];
          field.SetNeighbor(static_cast<Direction>(d),
                            isInner ? &field + (step.x * kEdge + step.y) : FieldAcross(fx + step.x, fy + step.y));
        }
      }
    }
  });
}

// The field at a place that may lie up to one field outside this area.
Field* Area::FieldAcross(int fx, int fy) {
  const auto sideOf = [](int place) { return place < 0 ? -1 : place >= kEdge ? 1 : 0; };
  const Step side{sideOf(fx), sideOf(fy)};
  const Direction direction = DirectionOf(side);
  Area* area = direction == Direction::None ? this : GetNeighbor(direction);
  if (area == nullptr) return nullptr;
  return &area->mFields[static_cast<std::size_t>((fx - side.x * kEdge) * kEdge + fy - side.y * kEdge)];
}

bool Area::Save(const char* directory) const {
  return Guard("Area", "Save", [&] {
    AreaRecord record;
    const AreaRecordHead head = HeadOf(mPosition);
    std::copy(head.begin(), head.end(), record.begin());
    record[kAreaFileVersion] = mVersion;
    for (std::size_t k = 0; k < kAreaFields; ++k) {
      StoreLittle32(&record[kAreaFileGround + 4 * k], mFields[k].GetGroundId());
      record[kAreaFileSmoothness + k] = mFields[k].GetSmoothness();
      StoreLittle32(&record[kAreaFileVolu + 4 * k], mFields[k].GetVoluId());
    }
    AtomicFile file(CacheFile(directory, mPosition));
    return file.Write(record.data(), record.size()) && file.Commit();
  });
}

bool Area::Load(const char* directory) {
  return Guard("Area", "Load", [&] {
    AreaRecord record;
    const RegularFile file(CacheFile(directory, mPosition));
    if (file.GetSize() != record.size() || !file.ReadAt(0, record.data(), record.size())) return false;
    const AreaRecordHead head = HeadOf(mPosition);
    if (!std::equal(head.begin(), head.end(), record.begin())) return false;
    mVersion = record[kAreaFileVersion];
    for (std::size_t k = 0; k < kAreaFields; ++k) {
      mFields[k].SetGroundId(LoadLittle32(&record[kAreaFileGround + 4 * k]));
      mFields[k].SetSmoothness(record[kAreaFileSmoothness + k]);
      mFields[k].SetVoluId(LoadLittle32(&record[kAreaFileVolu + 4 * k]));
    }
    return true;
  });
}

}  // namespace tolva
