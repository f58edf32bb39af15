// Times of something and of its reference, taken in turns.
#pragma once

#include <functional>
#include <string>

namespace kzbench {

/// How much is measured; the short form only shows that everything runs.
struct Effort {
  int repetitions = 21;
  /// Every number of calls a repetition is divided by this.
  int divisor = 1;
};

/// The full effort, or the short one.
Effort EffortOf(bool brief);

/// The time of one run, in seconds.
using Timed = std::function<double()>;

/// Runs `body(times)` and answers the time of one of the `times`, in seconds.
double TimePerCall(int times, const std::function<void(int)>& body);

/// Measures `subject` and `reference` in turns and prints one line: the median of each, and
/// minimum, median and maximum of the ratio, beside what the ratio is meant not to exceed (0: no
/// such aim).
void Compare(const std::string& name,
             double aim,
             const Effort& effort,
             const Timed& subject,
             const Timed& reference);

/// The line above the first comparison.
void PrintHeading(const std::string& title);

}  // namespace kzbench
