#pragma once
// Many files converted at once, without widgets: each input is read (upright, shrunk on
// load to fit a box when one is given), run through a chain of the catalogue's operations
// and written into one folder under a name made from a pattern, in a format of the user's
// choice. The names are all chosen before any work starts, so no file is ever written over
// unasked, not even by another file of the same batch; the work then runs on a pool of
// threads, one file a job. Every file is written whole or not at all, so stopping leaves
// no part of one behind.

#include "edit/Catalogue.h"
#include "imaging/Saver.h"

#include <QSize>
#include <QString>
#include <QStringList>

#include <atomic>
#include <functional>
#include <optional>
#include <vector>

namespace edit {

// What to do when a file of the chosen name is already there.
enum class WhenExists { Skip, Replace, Rename };

struct BatchOrder {
  QStringList Inputs;
  QString OutputFolder;
  QString Format;                                        // the extension written ("webp"); empty keeps each file's own
  QString NamePattern = QStringLiteral("{name}.{ext}");  // {name}, {ext}, {n} or {n:03} (counting from 1)
  QSize Fit;                                             // empty: the size stays
  std::vector<OperationStep> Steps;
  imaging::SaveOptions Options;
  WhenExists Existing = WhenExists::Skip;
  int Jobs = 0;  // 0: one a core
};

// Why the pattern cannot name files ("an unknown field {date}"), or empty when it can.
QString PatternProblem(const QString& pattern);
// The name the pattern gives input number `index` (from 0), written as `extension`.
QString NameFromPattern(const QString& pattern, const QString& input, int index, const QString& extension);

// One input and where it goes: an empty Output is skipped, with the reason.
struct PlannedFile {
  QString Input;
  QString Output;
  QString SkipReason;
};
std::vector<PlannedFile> PlanBatch(const BatchOrder& order);

struct BatchProgress {
  int Done = 0;
  int Total = 0;
  QString Current;  // the input just finished
};

struct BatchFailure {
  QString Input;
  QString Reason;
};

struct BatchReport {
  int Written = 0;
  int Skipped = 0;
  int NotStarted = 0;  // left when the batch was stopped
  std::vector<BatchFailure> Failures;
};

// "12/48  photo.jpg  0:42 left": where the run is, the file just done and the time left.
QString ProgressLine(const BatchProgress& progress, qint64 elapsedMs);
// "6 written, 1 skipped, 1 failed" (", 3 not started (stopped)"), and before it a line for
// each file skipped or failed, with why: "photo.png: skipped (photo.webp is already there)".
QStringList ReportLines(const std::vector<PlannedFile>& plan, const BatchReport& report);

// Runs the plan; `progress` is called after each file, one call at a time, from the
// workers' threads. Setting `stop` lets the files under way finish and starts no other.
BatchReport RunBatch(const BatchOrder& order, const std::vector<PlannedFile>& plan,
                     const std::function<void(const BatchProgress&)>& progress, const std::atomic_bool& stop);

}  // namespace edit
