#pragma once
// Computes a dialog's preview off the UI thread. Only the latest request counts: while
// one preview is being computed, newer requests replace each other and only the last
// one runs next, so a slider dragged end to end stays fluid.

#include "edit/Operation.h"

#include <QFutureWatcher>
#include <QImage>
#include <QObject>

#include <optional>

namespace edit {

class PreviewRenderer : public QObject {
  Q_OBJECT

 public:
  // `reduced` is the image already reduced to the preview panel; an empty operation
  // shows it unchanged.
  PreviewRenderer(imaging::Image reduced, Operation operation, QObject* parent = nullptr);
  ~PreviewRenderer() override;

  void Request(const DialogValues& values);
  bool IsIdle() const { return !watcher_.isRunning() && !pending_; }

 Q_SIGNALS:
  void Rendered(const QImage& preview);

 private:
  void StartNext();

  imaging::Image reduced_;
  Operation operation_;
  std::optional<DialogValues> pending_;
  QFutureWatcher<QImage> watcher_;
};

}  // namespace edit
