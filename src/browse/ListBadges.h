#pragma once
// The marks after a name in the list, "12 frames" or "3 pages" for a file of several: read on
// a worker for the rows the list paints, each file once, so painting never waits on a file.

#include <QHash>
#include <QObject>
#include <QSet>
#include <QString>
#include <QThreadPool>

#include <atomic>
#include <memory>
#include <optional>

namespace browse {

// "3 pages" or "12 frames" for a file of several; empty otherwise.
QString PageBadge(const QString& path);

class ListBadges : public QObject {
  Q_OBJECT

 public:
  explicit ListBadges(QObject* parent = nullptr);
  ~ListBadges() override;

  // The file's mark when it is known (empty for none); otherwise it is read, and Ready follows.
  std::optional<QString> Find(const QString& path);
  // Another folder: what was known goes, and reads under way are dropped.
  void Clear();

 Q_SIGNALS:
  void Ready();

 private:
  QHash<QString, QString> known_;
  QSet<QString> asked_;
  QThreadPool reader_;
  std::shared_ptr<std::atomic_int> generation_ = std::make_shared<std::atomic_int>(0);
};

}  // namespace browse
