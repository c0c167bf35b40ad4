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

using AreaRecord = std::array<std::uint8_t, kAreaFileSize>;
using AreaRecordHead = std::array<std::uint8_t, kAreaFileVersion>;

std::string CacheFile(const char* directory, const AreaPosition& position) {
  char name[48];
  std::snprintf(name, sizeof name, kAreaFileName, position.mUintRx, position.mUintRy, unsigned{position.mByAx},
                unsigned{position.mByAy}, static_cast<unsigned>(int{position.mByLevel}));
  return std::string(directory) + name;
}

// The part of the file that names its area.
AreaRecordHead HeadOf(const AreaPosition& position) {
  AreaRecordHead head;
  StoreLittle32(&head[kAreaFileRx], position.mUintRx);
  StoreLittle32(&head[kAreaFileRy], position.mUintRy);
  head[kAreaFileAx] = position.mByAx;
  head[kAreaFileAy] = position.mByAy;
  head[kAreaFileLevel] = static_cast<std::uint8_t>(position.mByLevel);
  return head;
}

// Atomic because maps on several threads may count.
std::atomic<std::uint64_t> sLastGroundState{0};

bool IsInside(int fx, int fy) { return fx >= 0 && fx < kAreaEdge && fy >= 0 && fy < kAreaEdge; }

constexpr int IndexOf(int fx, int fy) { return fx * kAreaEdge + fy; }

}  // namespace

Field* Area::GetField(std::uint8_t fx, std::uint8_t fy) {
  return IsInside(fx, fy) ? &mFields[IndexOf(fx, fy)] : nullptr;
}

const Field* Area::GetField(std::uint8_t fx, std::uint8_t fy) const {
  return const_cast<Area*>(this)->GetField(fx, fy);
}

void Area::SetNeighbor(Direction direction, Area* area) {
  const auto side = static_cast<std::size_t>(direction);
  if (mNeighbors[side] != area) mStaleSides.set(side);
  mNeighbors[side] = area;
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
    if (!mLinkedInside) LinkInside();
    mLinkedInside = true;
    for (const Direction side : kDirections) {
      if (mStaleSides[static_cast<std::size_t>(side)]) LinkAcross(side);
    }
    mStaleSides.reset();
  });
}

// Sets the places of the fields and the links that stay within the area.
void Area::LinkInside() {
  for (int fx = 0; fx < kAreaEdge; ++fx) {
    for (int fy = 0; fy < kAreaEdge; ++fy) {
      Field& field = mFields[IndexOf(fx, fy)];
      field.SetPlace(this, static_cast<std::uint8_t>(fx), static_cast<std::uint8_t>(fy));
      const bool isInner = IsInside(fx - 1, fy - 1) && IsInside(fx + 1, fy + 1);
      for (const Direction direction : kDirections) {
        const int nextFx = fx + StepIn(direction).x, nextFy = fy + StepIn(direction).y;
        if (isInner || IsInside(nextFx, nextFy)) field.SetNeighbor(direction, &mFields[IndexOf(nextFx, nextFy)]);
      }
    }
  }
}

// Sets the links that lead into the neighbor on this side: of a row of fields, or of one for a corner.
void Area::LinkAcross(Direction side) {
  const Step across = StepIn(side);
  Area* area = GetNeighbor(side);
  const auto firstAt = [](int step) { return step > 0 ? kAreaEdge - 1 : 0; };
  const auto lastAt = [](int step) { return step < 0 ? 0 : kAreaEdge - 1; };
  for (int fx = firstAt(across.x); fx <= lastAt(across.x); ++fx) {
    for (int fy = firstAt(across.y); fy <= lastAt(across.y); ++fy) {
      for (const Direction direction : kDirections) {
        const int nextFx = fx + StepIn(direction).x - across.x * kAreaEdge;
        const int nextFy = fy + StepIn(direction).y - across.y * kAreaEdge;
        if (!IsInside(nextFx, nextFy)) continue;
        Field* next = area == nullptr ? nullptr : &area->mFields[IndexOf(nextFx, nextFy)];
        mFields[IndexOf(fx, fy)].SetNeighbor(direction, next);
      }
    }
  }
}

bool Area::Save(const char* directory) const {
  return Guard("Area", "Save", [&] {
    AreaRecord record;
    const AreaRecordHead head = HeadOf(mPosition);
    std::copy(head.begin(), head.end(), record.begin());
    record[kAreaFileVersion] = mVersion;
    for (std::size_t k = 0; k < kAreaFields; ++k) {
      StoreLittle32(&record[kAreaFileGround + kAreaFileIdSize * k], mFields[k].GetGroundId());
      record[kAreaFileSmoothness + k] = mFields[k].GetSmoothness();
      StoreLittle32(&record[kAreaFileVolu + kAreaFileIdSize * k], mFields[k].GetVoluId());
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
      mFields[k].SetGroundId(LoadLittle32(&record[kAreaFileGround + kAreaFileIdSize * k]));
      mFields[k].SetSmoothness(record[kAreaFileSmoothness + k]);
      mFields[k].SetVoluId(LoadLittle32(&record[kAreaFileVolu + kAreaFileIdSize * k]));
    }
    return true;
  });
}

}  // namespace tolva
