#include "plain/Copy.h"

#include "sdl/Surface.h"

namespace tolva::plain {

bool CopyPart(SDL_Surface* from, const Rect& part, SDL_Surface* to, int x, int y) {
  if (from == nullptr || to == nullptr) {
    SDL_SetError("A surface to copy is missing");
    return false;
  }
  const int dx = x - part.x;
  const int dy = y - part.y;
  const Rect covered = part.Intersect(GetBounds(*from)).MoveBy(dx, dy).Intersect(GetBounds(*to));
  std::optional<SDL_Rect> source = ToSdlRect(covered.MoveBy(-dx, -dy));
  std::optional<SDL_Rect> target = ToSdlRect(covered);
  // The compatibility library calls it a failure to copy nothing. SDL cannot address what starts beyond 16 bits.
  if (!source || !target) return true;
  return SDL_UpperBlit(from, &*source, to, &*target) == 0;
}

bool CopyWhole(SDL_Surface* from, SDL_Surface* to, int x, int y) {
  return plain::CopyPart(from, from == nullptr ? Rect{} : GetBounds(*from), to, x, y);
}

}  // namespace tolva::plain
