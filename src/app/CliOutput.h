#pragma once
// vistrel-cli's two outputs: results on standard output, failures on standard error.

#include <QString>

#include <cstdio>

namespace cli {

inline void Print(const QString& line) { std::printf("%s\n", line.toLocal8Bit().constData()); }
inline void Complain(const QString& line) { std::fprintf(stderr, "%s\n", line.toLocal8Bit().constData()); }

}  // namespace cli
