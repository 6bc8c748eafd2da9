#pragma once
// Timing helpers for the benchmarks: best of N runs, printed as "name: value unit".

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>

namespace bench {

inline double BestMilliseconds(int runs, const std::function<void()>& work) {
  double best = 1e300;
  for (int i = 0; i < runs; ++i) {
    const auto start = std::chrono::steady_clock::now();
    work();
    const std::chrono::duration<double, std::milli> elapsed = std::chrono::steady_clock::now() - start;
    if (elapsed.count() < best) best = elapsed.count();
  }
  return best;
}

// Best of N runs of `work`, each after an untimed `setup`.
inline double BestMillisecondsAfter(int runs, const std::function<void()>& setup, const std::function<void()>& work) {
  double best = 1e300;
  for (int i = 0; i < runs; ++i) {
    setup();
    best = std::min(best, BestMilliseconds(1, work));
  }
  return best;
}

inline void PrintFigure(const char* name, double value, const char* unit) {
  std::printf("%s: %.1f %s\n", name, value, unit);
}

inline void PrintRatio(const char* name, double value) { std::printf("%s ratio: %.2f\n", name, value); }

}  // namespace bench
