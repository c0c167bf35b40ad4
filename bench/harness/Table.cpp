#include "harness/Table.h"

#include <algorithm>
#include <cstdio>

namespace tolva::bench {
namespace {

constexpr int kRepetitions = 9;

std::string ToText(double microseconds) {
  char text[64];
  if (microseconds < 100) {
    std::snprintf(text, sizeof text, "%.3g us", microseconds);
  } else {
    std::snprintf(text, sizeof text, "%.3g ms", microseconds / 1000);
  }
  return text;
}

// The repetitions of one way.
struct Repetitions {
  std::vector<double> microseconds;
  std::vector<double> ratios;
  double allocations = 0;

  void Add(const Cost& cost, double yard) {
    microseconds.push_back(cost.microseconds);
    ratios.push_back(cost.microseconds / yard);
    allocations = cost.allocations;
  }
  Cost GetCost() const { return {Median(microseconds), allocations}; }
};

}  // namespace

void Table::Way::Add(double ratio, const Cost& cost) {
  ratios.push_back(ratio);
  microseconds.push_back(cost.microseconds);
  allocations = cost.allocations;
}

std::string Table::Way::ToText() const {
  if (ratios.empty()) return "-";
  char text[128];
  std::snprintf(text, sizeof text, "%.3g x (%s, %.4g)", Median(ratios), bench::ToText(Median(microseconds)).c_str(),
                allocations);
  return text;
}

Table::Row& Table::FindRow(const Work& work) {
  const auto found =
      std::find_if(mRows.begin(), mRows.end(), [&](const Row& row) { return row.work.name == work.name; });
  if (found != mRows.end()) return *found;
  return mRows.emplace_back(Row{{work.name, {}, {}, work.yardstick, {}, work.aim}, {}, {}, {}});
}

void Table::Run(const Work& work) {
  if (!Wants(work.name)) return;
  Repetitions ours;
  Repetitions plain;
  std::vector<double> yards;
  // Once before it counts: fills caches and finds out how often to call.
  work.ours();
  for (int i = 0; i < kRepetitions; ++i) {
    const Cost mine = work.ours();
    const Cost yard = work.yard ? work.yard() : work.plain();
    ours.Add(mine, yard.microseconds);
    yards.push_back(yard.microseconds);
    if (work.plain) plain.Add(work.yard ? work.plain() : yard, yard.microseconds);
  }
  Row& row = FindRow(work);
  row.ours.Add(Median(ours.ratios), ours.GetCost());
  if (work.plain) row.plain.Add(Median(plain.ratios), plain.GetCost());
  row.yard.push_back(Median(yards));
  std::fprintf(stderr, "%s: %s\n", work.name.c_str(), row.ours.ToText().c_str());
}

void Table::Note(const Work& work, const Cost& ours, const Cost* plain, const Cost& yard) {
  if (!Wants(work.name)) return;
  Row& row = FindRow(work);
  row.ours.Add(ours.microseconds / yard.microseconds, ours);
  if (plain != nullptr) row.plain.Add(plain->microseconds / yard.microseconds, *plain);
  row.yard.push_back(yard.microseconds);
}

int Table::Print() const {
  int aims = 0;
  int missed = 0;
  std::printf("In brackets: time of one call, and allocations.\n\n");
  std::printf("| Work | Ours | Plain way | Yardstick | Aim | Met |\n|---|---|---|---|---|---|\n");
  for (const Row& row : mRows) {
    const bool hasAim = row.work.aim > 0;
    const bool isMet = hasAim && Median(row.ours.ratios) <= row.work.aim;
    if (hasAim) ++aims;
    if (hasAim && !isMet) ++missed;
    char aim[32] = "-";
    if (hasAim) std::snprintf(aim, sizeof aim, "%.3g x", row.work.aim);
    std::printf("| %s | %s | %s | %s: %s | %s | %s |\n", row.work.name.c_str(), row.ours.ToText().c_str(),
                row.plain.ToText().c_str(), row.work.yardstick.c_str(), ToText(Median(row.yard)).c_str(), aim,
                !hasAim ? "-"
                : isMet ? "yes"
                        : "no");
  }
  std::printf("\nAims met: %d of %d\n", aims - missed, aims);
  return missed;
}

}  // namespace tolva::bench
