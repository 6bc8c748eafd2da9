#include "edit/BatchConvert.h"
#include "base/Texts.h"

#include "base/Paths.h"
#include "files/FailureReasons.h"
#include "imaging/Loader.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>
#include <QThread>
#include <QThreadPool>

#include <algorithm>
#include <mutex>

namespace edit {

namespace {

// {name}, {ext}, {n}, or {n:0D} for the number padded with zeros to D digits.
const QRegularExpression kField(QStringLiteral("\\{([^{}]*)\\}"));
const QRegularExpression kKnownField(QStringLiteral("^(name|ext|n|n:0[1-9])$"));

// "photo (2).webp", "photo (3).webp"... the first that is neither on disk nor given already.
QString FreeName(const QString& path, const QSet<QString>& taken) {
  const QFileInfo file(path);
  const QString stem = file.completeBaseName(), suffix = file.suffix().isEmpty() ? QString() : u'.' + file.suffix();
  for (int n = 2;; ++n) {
    const QString candidate = file.dir().filePath(QStringLiteral("%1 (%2)%3").arg(stem).arg(n).arg(suffix));
    if (!taken.contains(candidate) && !QFileInfo::exists(candidate)) return candidate;
  }
}

QString ConvertOne(const BatchOrder& order, const PlannedFile& file) {
  std::optional<imaging::Image> image = order.Fit.isEmpty() ? imaging::LoadFile(file.Input)
                                                            : imaging::LoadFitting(file.Input, order.Fit.width(), order.Fit.height());
  if (!image) return files::OpenFailureReason(file.Input);
  for (const OperationStep& step : order.Steps) {
    const Applied applied = TryApply(*step.Command, *image, step.Values);
    if (!applied.Picture) return Texts::tr("can't apply %1: %2").arg(step.Command->Undo(), applied.Failure);
    image = applied.Picture;
  }
  if (imaging::SaveImage(*image, file.Output, order.Options)) return {};
  return files::SaveFailureReason(file.Output, QSize(image->Width(), image->Height()));
}

}  // namespace

QString PatternProblem(const QString& pattern) {
  if (pattern.trimmed().isEmpty()) return Texts::tr("the name pattern is empty");
  if (pattern.contains(u'/')) return Texts::tr("a name cannot hold /");
  QString rest = pattern;
  for (auto fields = kField.globalMatch(pattern); fields.hasNext();) {
    const QRegularExpressionMatch field = fields.next();
    if (!kKnownField.match(field.captured(1)).hasMatch()) return Texts::tr("an unknown field %1").arg(field.captured(0));
    rest.remove(field.captured(0));
  }
  if (rest.contains(u'{') || rest.contains(u'}')) return Texts::tr("a { without its } or a } without its {");
  return {};
}

QString NameFromPattern(const QString& pattern, const QString& input, int index, const QString& extension) {
  QString name;
  qsizetype at = 0;
  for (auto fields = kField.globalMatch(pattern); fields.hasNext();) {
    const QRegularExpressionMatch field = fields.next();
    name += pattern.mid(at, field.capturedStart() - at);
    const QString what = field.captured(1);
    if (what == QLatin1String("name")) name += QFileInfo(input).completeBaseName();
    else if (what == QLatin1String("ext")) name += extension;
    else name += QStringLiteral("%1").arg(index + 1, what.size() > 1 ? what.back().digitValue() : 0, 10, QLatin1Char('0'));
    at = field.capturedEnd();
  }
  return name + pattern.mid(at);
}

std::vector<PlannedFile> PlanBatch(const BatchOrder& order) {
  std::vector<PlannedFile> plan;
  QSet<QString> taken;  // the names given to earlier files of this batch
  for (int i = 0; i < order.Inputs.size(); ++i) {
    const QString& input = order.Inputs[i];
    const QString extension = order.Format.isEmpty() ? QFileInfo(input).suffix().toLower() : order.Format;
    QString output = base::JoinPath(order.OutputFolder, NameFromPattern(order.NamePattern, input, i, extension));
    const bool exists = QFileInfo::exists(output);
    if (taken.contains(output) || (exists && order.Existing == WhenExists::Rename)) {
      output = FreeName(output, taken);
    } else if (exists && order.Existing == WhenExists::Skip) {
      plan.push_back({input, {}, Texts::tr("%1 is already there").arg(QFileInfo(output).fileName())});
      continue;
    }
    taken.insert(output);
    plan.push_back({input, output, {}});
  }
  return plan;
}

QString ProgressLine(const BatchProgress& progress, qint64 elapsedMs) {
  const qint64 left = progress.Done > 0 ? elapsedMs * (progress.Total - progress.Done) / progress.Done / 1000 : 0;
  return QStringLiteral("%1/%2  %3  %4:%5 left")
      .arg(progress.Done)
      .arg(progress.Total)
      .arg(QFileInfo(progress.Current).fileName())
      .arg(left / 60)
      .arg(left % 60, 2, 10, QLatin1Char('0'));
}

QStringList ReportLines(const std::vector<PlannedFile>& plan, const BatchReport& report) {
  QStringList lines;
  for (const PlannedFile& file : plan) {
    if (file.Output.isEmpty()) lines << Texts::tr("%1: skipped (%2)").arg(file.Input, file.SkipReason);
  }
  for (const BatchFailure& failure : report.Failures) lines << QStringLiteral("%1: %2").arg(failure.Input, failure.Reason);
  QString summary = Texts::tr("%1 written, %2 skipped, %3 failed").arg(report.Written).arg(report.Skipped).arg(report.Failures.size());
  if (report.NotStarted > 0) summary += Texts::tr(", %1 not started (stopped)").arg(report.NotStarted);
  return lines << summary;
}

BatchReport RunBatch(const BatchOrder& order, const std::vector<PlannedFile>& plan,
                     const std::function<void(const BatchProgress&)>& progress, const std::atomic_bool& stop) {
  BatchReport report;
  std::vector<std::pair<qsizetype, BatchFailure>> failures;
  std::mutex lock;
  std::atomic<qsizetype> next{0};
  const int total = int(plan.size());
  int done = 0;
  const auto work = [&] {
    while (!stop.load()) {
      const qsizetype index = next++;
      if (index >= qsizetype(plan.size())) return;
      const PlannedFile& file = plan[size_t(index)];
      const QString failure = file.Output.isEmpty() ? QString() : ConvertOne(order, file);
      const std::lock_guard<std::mutex> guard(lock);
      if (file.Output.isEmpty()) ++report.Skipped;
      else if (failure.isEmpty()) ++report.Written;
      else failures.push_back({index, {file.Input, failure}});
      progress({++done, total, file.Input});
    }
  };
  QThreadPool pool;
  const int jobs = std::clamp(order.Jobs > 0 ? order.Jobs : QThread::idealThreadCount(), 1, std::max(1, total));
  pool.setMaxThreadCount(jobs);
  for (int j = 0; j < jobs; ++j) pool.start(work);
  pool.waitForDone();
  std::sort(failures.begin(), failures.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
  for (auto& failure : failures) report.Failures.push_back(std::move(failure.second));
  report.NotStarted = total - done;
  return report;
}

}  // namespace edit
