#pragma once
// Neighbour preloading: the images next to the one shown are decoded ahead on a worker
// thread, within a memory budget, so that stepping to them shows them at once. `Take` is
// the loader the session uses: a finished (or running) prefetch of the same unchanged
// file is handed over, anything else is decoded on the spot, so what is shown is exactly
// what a fresh load would show. A prefetch still waiting its turn is taken back and done on
// the spot, so stepping back never waits for the image ahead to finish.

#include "files/LoadImageFile.h"

#include <QDateTime>
#include <QFuture>
#include <QStringList>
#include <QThreadPool>

#include <functional>
#include <atomic>
#include <map>
#include <memory>
#include <mutex>

namespace files {

class Prefetcher {
 public:
  using Decode = std::function<std::optional<LoadedImage>(const QString& path)>;
  // Called on the worker after a decode, to warm what the first paint needs.
  using WarmHook = std::function<void(const imaging::Image&)>;

  Prefetcher(Decode decode, qint64 budgetBytes, WarmHook warm = {});
  ~Prefetcher();
  Prefetcher(const Prefetcher&) = delete;
  Prefetcher& operator=(const Prefetcher&) = delete;

  std::optional<LoadedImage> Take(const QString& path);
  // Whether Take would hand this file over at once: its prefetch is done, within the budget,
  // and the file unchanged since.
  bool Holds(const QString& path) const;
  // Decodes these files ahead, nearest first, each within an equal share of the budget;
  // forgets every other prefetched image.
  void Prefetch(const QStringList& paths);
  // Warms the image shown (its display levels) on the worker, before any prefetch.
  void Warm(const imaging::Image& shown);
  void WaitForIdle();
  int PrefetchedCount() const;

 private:
  struct Outcome {
    bool OverBudget = false;
    std::optional<LoadedImage> Loaded;
  };
  // Who got to the file first: the worker (Began) or Take while it waited (Claimed).
  enum Claim : int { Waiting, Began, Claimed };
  struct Entry {
    QFuture<Outcome> Result;
    QDateTime Modified;
    qint64 Size = 0;
    std::shared_ptr<std::atomic_int> State = std::make_shared<std::atomic_int>(Waiting);
  };
  static bool Unchanged(const Entry& entry, const QString& path);
  Outcome DecodeWithin(const QString& path, qint64 share) const;

  Decode decode_;
  WarmHook warm_;
  qint64 budgetBytes_;
  QThreadPool pool_;
  mutable std::mutex mutex_;  // Take runs on the document's loading thread
  std::map<QString, Entry> entries_;
};

}  // namespace files
