// Measures something and its reference in turns, and prints their ratio.

#include "measure.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

namespace kzbench {
namespace {

struct Spread {
  double least;
  double middle;
  double most;
};

Spread SpreadOf(std::vector<double> values) {
  std::ranges::sort(values);
  return {values.front(), values[values.size() / 2], values.back()};
}

std::string ToText(double seconds) {
  struct Unit {
    double seconds;
    const char* name;
  };
  constexpr Unit kUnits[] = {{1, "s"}, {1e-3, "ms"}, {1e-6, "us"}, {1e-9, "ns"}};
  const auto* unit = std::ranges::find_if(
      kUnits, [&](const Unit& candidate) { return seconds >= candidate.seconds; });
  if (unit == std::end(kUnits))
    unit = std::end(kUnits) - 1;
  char text[32];
  std::snprintf(text, sizeof(text), "%.4g %s", seconds / unit->seconds, unit->name);
  return text;
}

}  // namespace

Effort EffortOf(bool brief) {
  return brief ? Effort{.repetitions = 3, .divisor = 100} : Effort{};
}

double TimePerCall(int times, const std::function<void(int)>& body) {
  const auto start = std::chrono::steady_clock::now();
  body(times);
  const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
  return taken.count() / times;
}

void Compare(const std::string& name,
             double aim,
             const Effort& effort,
             const Timed& subject,
             const Timed& reference) {
  std::vector<double> subjects;
  std::vector<double> references;
  std::vector<double> ratios;
  // The first of each fills the caches.
  subject();
  reference();
  for (int at = 0; at < effort.repetitions; ++at) {
    // Whoever comes second finds the machine as the first left it, so they swap.
    const bool subject_first = at % 2 == 0;
    double taken = subject_first ? subject() : 0;
    const double reference_taken = reference();
    if (!subject_first)
      taken = subject();
    subjects.push_back(taken);
    references.push_back(reference_taken);
    ratios.push_back(reference_taken > 0 ? taken / reference_taken : 0);
  }
  const Spread ratio = SpreadOf(ratios);
  char meant[32] = "";
  if (aim > 0)
    std::snprintf(meant, sizeof(meant), "aim %.2f", aim);
  std::printf("%-44s %12s %12s   %6.3f %6.3f %6.3f   %s\n", name.c_str(),
              ToText(SpreadOf(subjects).middle).c_str(),
              ToText(SpreadOf(references).middle).c_str(), ratio.least, ratio.middle, ratio.most,
              meant);
  std::fflush(stdout);
}

void PrintHeading(const std::string& title) {
  std::printf("\n%-44s %12s %12s   %6s %6s %6s\n", title.c_str(), "measured", "reference", "min",
              "median", "max");
}

}  // namespace kzbench
