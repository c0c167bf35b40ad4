#pragma once

#include <string>
#include <utility>
#include <vector>

#include "harness/Measure.h"

namespace tolva::bench {

// A piece of work that must not take longer than so many times a yardstick.
struct Work {
  std::string name;
  Sample ours;
  Sample plain;           // the same outcome by the obvious way; none for work that has no other
  std::string yardstick;  // says what `yard` does
  Sample yard;            // none: the plain way is the yardstick
  double aim = 0;         // ours in yardsticks, at most; 0 for none
};

// The table of all work: each figure is a ratio between ways that take turns, so that a busy machine slows them alike.
class Table {
 public:
  // Leaves out the work whose name does not contain `filter`.
  explicit Table(std::string filter = "") : mFilter(std::move(filter)) {}

  // Whether the work is measured. For work that takes long to prepare.
  bool Wants(const std::string& name) const { return name.find(mFilter) != std::string::npos; }
  // Measures the work now, in turns with its plain way and its yardstick. The same name again is a further run of it.
  void Run(const Work& work);
  // A further run of work that was measured in another way. `plain` may be null.
  void Note(const Work& work, const Cost& ours, const Cost* plain, const Cost& yard);
  // Prints all work in the order of the first runs; figures are medians of the runs. Returns how many aims were missed.
  int Print() const;

 private:
  // Medians of one way through the work, over all runs.
  struct Way {
    std::vector<double> ratios;  // to the yardstick, one for each run
    std::vector<double> microseconds;
    double allocations = 0;

    void Add(double ratio, const Cost& cost);
    std::string ToText() const;
  };
  struct Row {
    Work work;  // without its samples
    Way ours;
    Way plain;
    std::vector<double> yard;  // microseconds
  };

  Row& FindRow(const Work& work);

  const std::string mFilter;
  std::vector<Row> mRows;
};

}  // namespace tolva::bench
