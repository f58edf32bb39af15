// Measures something and its reference in turns, and prints their ratio.

#include "measure.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <span>

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

std::string ToText(double value, Quantity quantity) {
  struct Unit {
    double size;
    const char* name;
  };
  static constexpr Unit kTimes[] = {{1, "s"}, {1e-3, "ms"}, {1e-6, "us"}, {1e-9, "ns"}};
  static constexpr Unit kSizes[] = {{1 << 20, "MiB"}, {1 << 10, "KiB"}, {1, "B"}};
  const std::span<const Unit> units =
      quantity == Quantity::kTime ? std::span<const Unit>(kTimes) : std::span<const Unit>(kSizes);
  auto unit = std::ranges::find_if(
      units, [&](const Unit& candidate) { return std::abs(value) >= candidate.size; });
  if (unit == units.end())
    --unit;
  char text[32];
  std::snprintf(text, sizeof(text), "%.4g %s", value / unit->size, unit->name);
  return text;
}

}  // namespace

Effort EffortOf(bool brief) {
  return brief ? Effort{.repetitions = 3, .divisor = 100} : Effort{};
}

Effort WithRepetitions(const Effort& effort, int repetitions) {
  return {.repetitions = effort.is_short() ? 1 : repetitions, .divisor = effort.divisor};
}

double TimePerCall(int times, const std::function<void(int)>& body) {
  // QueryPerformanceCounter, here.
  const auto start = std::chrono::steady_clock::now();
  body(times);
  const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
  return taken.count() / times;
}

void Comparison::Add(double subject, double reference) {
  subjects_.push_back(subject);
  references_.push_back(reference);
  ratios_.push_back(reference > 0 ? subject / reference : 0);
}

void Comparison::Print(const std::string& name, double aim, Quantity quantity) const {
  const Spread ratio = SpreadOf(ratios_);
  char meant[32] = "";
  if (aim > 0)
    std::snprintf(meant, sizeof(meant), "aim %.2f", aim);
  std::printf("%-44s %12s %12s   %6.3f %6.3f %6.3f   %s\n", name.c_str(),
              ToText(SpreadOf(subjects_).middle, quantity).c_str(),
              ToText(SpreadOf(references_).middle, quantity).c_str(), ratio.least, ratio.middle,
              ratio.most, meant);
  std::fflush(stdout);
}

void Compare(const std::string& name,
             double aim,
             const Effort& effort,
             const Measured& subject,
             const Measured& reference) {
  Comparison comparison;
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
    comparison.Add(taken, reference_taken);
  }
  comparison.Print(name, aim);
}

void PrintHeading(const std::string& title) {
  std::printf("\n%-44s %12s %12s   %6s %6s %6s\n", title.c_str(), "measured", "reference", "min",
              "median", "max");
}

}  // namespace kzbench
