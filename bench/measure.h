// Figures of something and of its reference, taken in turns.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace kzbench {

// How much is measured; the short form only shows that everything runs.
struct Effort {
  int repetitions = 21;
  // Every number of calls a repetition is divided by this.
  int divisor = 1;

  bool is_short() const { return divisor > 1; }
};

// The full effort, or the short one.
Effort EffortOf(bool brief);

// The same with `repetitions` for what takes long, or with one in the short form.
Effort WithRepetitions(const Effort& effort, int repetitions);

// One figure: a time in seconds, or a size in bytes.
using Measured = std::function<double()>;
enum class Quantity { kTime, kSize };

// Runs `body(times)` and returns the time of one of the `times`, in seconds.
double TimePerCall(int times, const std::function<void(int)>& body);

// Pairs of figures, of which one line is printed.
class Comparison {
 public:
  void Add(double subject, double reference);

  // The median of each, and minimum, median and maximum of the ratio, beside what its median is
  // meant not to exceed (0: no such aim).
  void Print(const std::string& name, double aim, Quantity quantity = Quantity::kTime) const;

 private:
  std::vector<double> subjects_;
  std::vector<double> references_;
  std::vector<double> ratios_;
};

// Takes the times of `subject` and `reference` in turns and prints their comparison.
void Compare(const std::string& name,
             double aim,
             const Effort& effort,
             const Measured& subject,
             const Measured& reference);

// The line above the first comparison.
void PrintHeading(const std::string& title);

}  // namespace kzbench
