#include <memory>
#include <vector>

#include "Rows.h"
#include "display/GameDisplayRect.h"
#include "display/GroundTiles.h"
#include "harness/Table.h"
#include "media/Archive.h"
#include "plain/Ground.h"
#include "scene/Scene.h"

namespace tolva::bench {
namespace {

constexpr std::size_t kGroundBytes = std::size_t{GroundGrid::kWidth} * GroundGrid::kHeight * 2;

// All ground of the map, as the game screen would draw it if it had to draw all of it at once.
class OurGround {
 public:
  OurGround(GameGraphics& graphics, Repository& repository, InfoHandler& log)
      : mTiles(std::make_shared<GroundTiles>(graphics)) {
    for (int place = 0; place < GroundGrid::kEdge * GroundGrid::kEdge; ++place) {
      const auto start = plain::Ground::FindStart(place / GroundGrid::kEdge, place % GroundGrid::kEdge);
      mRects.push_back(std::make_unique<GameDisplayRect>(&graphics, &repository, &log, mTiles));
      mRects.back()->SetStartField(start.r, start.c, start.fx, start.fy);
    }
  }

  // As after a step of the light, when no tile is left from before.
  void DrawAll() {
    mTiles->Clear();
    for (const auto& rect : mRects) rect->Update();
  }

 private:
  std::shared_ptr<GroundTiles> mTiles;
  std::vector<std::unique_ptr<GameDisplayRect>> mRects;
};

// Twelve kinds of ground side by side, so that each edge of each field is blended as wide as can be.
void BlendAllEdges(ClientMap& map) {
  constexpr std::uint32_t kFirst = 112000;
  constexpr int kKinds = 12;
  constexpr int kVariants = 16;
  for (std::uint8_t i = 0; i < kMapAreas; ++i) {
    for (Field& field : map.GetAreaAt(i / kMapEdge, i % kMapEdge)->GetFields()) {
      const int kind = (field.GetFx() + 5 * field.GetFy()) % kKinds;
      field.SetGroundId(kFirst + static_cast<std::uint32_t>(kVariants * kind));
      field.SetSmoothness(15);
    }
  }
}

}  // namespace

void AddGroundRows(Table& table) {
  const struct {
    const char* name;
    bool isBlended;
    double aim;
  } works[] = {{"All 25 rectangles of ground, village", false, 9},
               {"All 25 rectangles of ground, every edge blended", true, 6}};
  for (const auto& work : works) {
    if (!table.Wants(work.name)) continue;
    SetWindow({800, 600});
    Scene scene(FindVillage());
    if (work.isBlended) BlendAllEdges(scene.GetRepository().GetMap());
    InfoHandler log;
    Archive archive("Graphics", &log);
    GameGraphics graphics(&archive);
    OurGround ours(graphics, scene.GetRepository(), log);
    plain::Ground plain(graphics, scene.GetRepository());
    CopyRing ring(kGroundBytes);
    table.Run({work.name, PerCall([&] { ours.DrawAll(); }), PerCall([&] { plain.DrawAll(); }),
               "memcpy of their pixels, 19.7 MB", PerCall([&] { ring(); }), work.aim});
  }
}

}  // namespace tolva::bench
