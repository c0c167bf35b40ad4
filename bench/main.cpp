#include <cstdio>
#include <cstdlib>
#include <exception>

#include "Rows.h"
#include "harness/Table.h"
#include "scene/Scene.h"

// Measures all work in three runs and prints one table. The arguments: the folder of the packed archives and, if not
// all work is wanted, a part of its name. Ends with 1 when an aim is missed and with 2 when the table cannot be made.
int main(int argc, char** argv) {
  constexpr int kRuns = 3;
  using namespace tolva::bench;
  try {
    const RunDirectory directory(argc > 1 ? argv[1] : "build/data");
    Table table(argc > 2 ? argv[2] : "");
    for (int run = 1; run <= kRuns; ++run) {
      std::fprintf(stderr, "Run %d of %d\n", run, kRuns);
      AddFrameRows(table);
      AddGroundRows(table);
      AddCodecRows(table);
      AddMapRows(table);
      AddControlRows(table);
      AddStartUpRows(table);
      AddGrowthRows(table);
    }
    return table.Print() == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "tolva-bench: %s\n", error.what());
    return 2;
  }
}
