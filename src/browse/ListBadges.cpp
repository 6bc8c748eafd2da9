#include "browse/ListBadges.h"
#include "base/Texts.h"

#include "imaging/Loader.h"

namespace browse {

QString PageBadge(const QString& path) {
  const imaging::SourceFacts facts = imaging::ReadPageFacts(path);
  if (facts.Pages < 2) return {};
  return (facts.Animated ? Texts::tr("%1 frames") : Texts::tr("%1 pages")).arg(facts.Pages);
}

ListBadges::ListBadges(QObject* parent) : QObject(parent) { reader_.setMaxThreadCount(1); }

ListBadges::~ListBadges() {
  ++*generation_;
  reader_.clear();
  reader_.waitForDone();
}

std::optional<QString> ListBadges::Find(const QString& path) {
  if (const auto found = known_.constFind(path); found != known_.constEnd()) return *found;
  if (asked_.contains(path)) return std::nullopt;
  asked_.insert(path);
  const int generation = *generation_;
  reader_.start([this, path, generation, current = generation_] {
    if (*current != generation) return;
    const QString badge = PageBadge(path);
    QMetaObject::invokeMethod(this, [this, path, badge, generation, current] {
      if (*current != generation) return;
      known_.insert(path, badge);
      Q_EMIT Ready();
    }, Qt::QueuedConnection);
  });
  return std::nullopt;
}

void ListBadges::Clear() {
  ++*generation_;
  reader_.clear();
  known_.clear();
  asked_.clear();
}

}  // namespace browse
