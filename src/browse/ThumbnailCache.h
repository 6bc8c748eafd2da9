#pragma once
// The desktop's shared thumbnail cache (the freedesktop Thumbnail Managing Standard):
// $XDG_CACHE_HOME/thumbnails/normal (128 pixels) and large (256), each a PNG named by the
// MD5 of the file's URI and carrying Thumb::URI and Thumb::MTime. Thumbnails that file
// managers made are used here, and ours are theirs; one whose file changed is stale.
// Files that cannot be read are remembered under fail/vistrel-VERSION.

#include <QImage>
#include <QSize>
#include <QString>

#include <map>
#include <optional>

namespace browse {

// The tEXt keys of a PNG, read up to its first image data; whatever the bytes, a map.
std::map<QByteArray, QByteArray> PngTextKeys(const QByteArray& png);

class ThumbnailCache {
 public:
  // `cacheHome` is $XDG_CACHE_HOME (or ~/.cache).
  explicit ThumbnailCache(QString cacheHome) : home_(std::move(cacheHome)) {}
  static ThumbnailCache ForUser();

  // The smallest of the cache's sizes (128, 256, 512, 1024) that holds the box, in device
  // pixels; 1024 for anything larger.
  static int SideFor(QSize box);

  struct Found {
    QImage Picture;
    QSize ImageSize;  // the original's size when the thumbnail records it
  };
  // A fresh thumbnail of at least `side` pixels' class for the file, if the cache has one.
  std::optional<Found> Find(const QString& path, int side) const;
  bool IsKnownFailure(const QString& path) const;

  // Stores the picture (reduced to fit `side` when larger) with the file's URI, mtime and
  // size; written whole or not at all, readable by the user alone.
  void Store(const QString& path, const QImage& picture, QSize imageSize, int side) const;
  void StoreFailure(const QString& path) const;

  QString PathFor(const QString& path, int side) const;

 private:
  QString FailurePath(const QString& path) const;
  bool Save(const QString& target, const QByteArray& png) const;

  QString home_;
};

}  // namespace browse
