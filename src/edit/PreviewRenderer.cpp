#include "edit/PreviewRenderer.h"

#include <QtConcurrent/QtConcurrentRun>

namespace edit {

namespace {

QImage Render(const imaging::Image& reduced, const Operation& operation, const DialogValues& values) {
  if (!operation) return reduced.ForScreen();
  try {
    return operation(reduced, values).ForScreen();
  } catch (...) {
    return reduced.ForScreen();  // a failing operation previews as the unchanged image
  }
}

}  // namespace

PreviewRenderer::PreviewRenderer(imaging::Image reduced, Operation operation, QObject* parent)
    : QObject(parent), reduced_(std::move(reduced)), operation_(std::move(operation)) {
  connect(&watcher_, &QFutureWatcher<QImage>::finished, this, [this] {
    Q_EMIT Rendered(watcher_.result());
    if (pending_) StartNext();
  });
}

PreviewRenderer::~PreviewRenderer() { watcher_.waitForFinished(); }

void PreviewRenderer::Request(const DialogValues& values) {
  pending_ = values;
  if (!watcher_.isRunning()) StartNext();
}

void PreviewRenderer::StartNext() {
  const DialogValues values = *pending_;
  pending_.reset();
  watcher_.setFuture(QtConcurrent::run(
      [reduced = reduced_, operation = operation_, values] { return Render(reduced, operation, values); }));
}

}  // namespace edit
