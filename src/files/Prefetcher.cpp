#include "files/Prefetcher.h"

#include "imaging/Loader.h"

#include <QFileInfo>
#include <QtConcurrent>

namespace files {

namespace {

qint64 DecodedBytes(QSize size) { return qint64(size.width()) * size.height() * 4; }

}  // namespace

Prefetcher::Prefetcher(Decode decode, qint64 budgetBytes, WarmHook warm)
    : decode_(std::move(decode)), warm_(std::move(warm)), budgetBytes_(budgetBytes) {
  pool_.setMaxThreadCount(1);
}

Prefetcher::~Prefetcher() { WaitForIdle(); }

bool Prefetcher::Unchanged(const Entry& entry, const QString& path) {
  const QFileInfo info(path);
  return info.exists() && info.lastModified() == entry.Modified && info.size() == entry.Size;
}

std::optional<LoadedImage> Prefetcher::Take(const QString& path) {
  std::optional<Entry> taken;
  {
    const std::lock_guard lock(mutex_);
    if (const auto found = entries_.find(path); found != entries_.end()) {
      taken = std::move(found->second);
      entries_.erase(found);
    }
  }
  if (taken) {
    Entry& entry = *taken;
    int waiting = Waiting;
    if (entry.State->compare_exchange_strong(waiting, Claimed)) return decode_(path);  // not begun: no wait
    if (Unchanged(entry, path)) {
      Outcome outcome = entry.Result.result();
      if (!outcome.OverBudget) return std::move(outcome.Loaded);
    }
  }
  return decode_(path);
}

bool Prefetcher::Holds(const QString& path) const {
  const std::lock_guard lock(mutex_);
  const auto found = entries_.find(path);
  if (found == entries_.end() || !found->second.Result.isFinished()) return false;
  return !found->second.Result.result().OverBudget && Unchanged(found->second, path);
}

// On the worker: the header first, so an image over its share of the budget is never decoded.
Prefetcher::Outcome Prefetcher::DecodeWithin(const QString& path, qint64 share) const {
  if (const auto size = imaging::ReadImageSizeCheaply(path); size && DecodedBytes(*size) > share) return {true, {}};
  auto loaded = decode_(path);
  if (loaded && DecodedBytes(QSize(loaded->Picture.Width(), loaded->Picture.Height())) > share) return {true, {}};
  if (loaded && warm_) warm_(loaded->Picture);
  return {false, std::move(loaded)};
}

int Prefetcher::PrefetchedCount() const {
  const std::lock_guard lock(mutex_);
  return static_cast<int>(entries_.size());
}

void Prefetcher::Prefetch(const QStringList& paths) {
  const std::lock_guard lock(mutex_);
  std::map<QString, Entry> kept;
  const qint64 share = paths.isEmpty() ? 0 : budgetBytes_ / paths.size();
  for (const QString& path : paths) {
    const auto found = entries_.find(path);
    if (found != entries_.end() && Unchanged(found->second, path)) {
      kept.emplace(path, std::move(found->second));
      entries_.erase(found);
      continue;
    }
    const QFileInfo info(path);
    if (!info.isFile()) continue;
    Entry entry{{}, info.lastModified(), info.size()};
    entry.Result = QtConcurrent::run(&pool_, [this, path, share, state = entry.State] {
      int waiting = Waiting;
      if (!state->compare_exchange_strong(waiting, Began)) return Outcome{true, {}};  // taken meanwhile
      return DecodeWithin(path, share);
    });
    kept.emplace(path, std::move(entry));
  }
  for (auto& [path, dropped] : entries_) dropped.Result.cancel();  // a queued decode never starts
  entries_ = std::move(kept);
}

void Prefetcher::Warm(const imaging::Image& shown) {
  if (warm_) (void)QtConcurrent::run(&pool_, [warm = warm_, shown] { warm(shown); });
}

void Prefetcher::WaitForIdle() { pool_.waitForDone(); }

}  // namespace files
