// The thumbnail cache as the desktop reads it: GLib's own lookup names our file and calls
// it valid, a changed file makes it stale, and what others planted there is not trusted.
#include "browse/ThumbnailCache.h"
#include "support/TestFiles.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QFile>

#include <gtest/gtest.h>

namespace {

// What `gio info` says of the file's thumbnail, with the cache home given.
QString GioThumbnailInfo(const QString& cacheHome, const QString& file) {
  return testing_support::Run(QStringLiteral("gio"), {"info", "-a", "thumbnail::path,thumbnail::is-valid", file},
                              {"XDG_CACHE_HOME=" + cacheHome})
      .Output;
}

TEST(ThumbnailCache, WhatWeStoreTheDesktopFindsValidAndAChangeMakesStale) {
  testing_support::TempFolder home, pictures;
  const browse::ThumbnailCache cache(home.Path());
  const QString photo = pictures.WritePng(QStringLiteral("my photo.png"), 300, 200);
  QImage reduced(128, 85, QImage::Format_RGB32);
  reduced.fill(Qt::darkGreen);
  cache.Store(photo, reduced, {300, 200}, 128);
  const QString info = GioThumbnailInfo(home.Path(), photo);
  EXPECT_TRUE(info.contains(QStringLiteral("thumbnail::path: ") + cache.PathFor(photo, 128))) << info.toStdString();
  EXPECT_TRUE(info.contains(QStringLiteral("thumbnail::is-valid: TRUE"))) << info.toStdString();
  EXPECT_EQ(QFile::permissions(cache.PathFor(photo, 128)) & 0x7077, QFileDevice::ReadOwner | QFileDevice::WriteOwner);

  const auto found = cache.Find(photo, 128);
  ASSERT_TRUE(found.has_value());
  EXPECT_EQ(found->ImageSize, QSize(300, 200));
  EXPECT_EQ(found->Picture.size(), QSize(128, 85));
  EXPECT_FALSE(cache.Find(photo, 256).has_value());  // a smaller one does not serve a larger box

  QFile file(photo);
  ASSERT_TRUE(file.open(QIODevice::ReadWrite));
  ASSERT_TRUE(file.setFileTime(QDateTime::currentDateTime().addSecs(3600), QFileDevice::FileModificationTime));
  file.close();
  EXPECT_FALSE(cache.Find(photo, 128).has_value());

  // A failure is forgotten when the file is rewritten, even within the same second.
  const QString broken = pictures.WriteBytes(QStringLiteral("broken.png"), "not yet");
  const QDateTime written = QFileInfo(broken).lastModified();
  cache.StoreFailure(broken);
  ASSERT_TRUE(cache.IsKnownFailure(broken));
  pictures.WritePng(QStringLiteral("broken.png"), 20, 20);
  QFile rewritten(broken);
  ASSERT_TRUE(rewritten.open(QIODevice::ReadWrite) && rewritten.setFileTime(written, QFileDevice::FileModificationTime));
  rewritten.close();
  EXPECT_FALSE(cache.IsKnownFailure(broken));
}

// A cache others can write into is read and written without trusting it: a link planted
// at a thumbnail's name is replaced, never written through; a linked or foreign size folder
// is refused; a folder's mode stays as the user set it; a thumbnail too large for its class
// or at odds with the size it records is made again.
TEST(ThumbnailCache, APlantedLinkOrAnUntrueThumbnailIsNeverBelieved) {
  testing_support::TempFolder home, pictures, elsewhere;
  const browse::ThumbnailCache cache(home.Path());
  const QString photo = pictures.WritePng(QStringLiteral("photo.png"), 300, 200);
  const QString victim = pictures.WriteBytes(QStringLiteral("letter.txt"), "the user's own words");
  QImage reduced(256, 171, QImage::Format_RGB32);
  reduced.fill(Qt::darkGreen);
  ASSERT_TRUE(QDir().mkpath(home.Path() + QStringLiteral("/thumbnails/large")));
  ASSERT_TRUE(QFile::link(victim, cache.PathFor(photo, 256)));
  cache.Store(photo, reduced, {300, 200}, 256);
  EXPECT_EQ(testing_support::ReadAll(victim), "the user's own words");
  EXPECT_FALSE(QFileInfo(cache.PathFor(photo, 256)).isSymLink());
  EXPECT_TRUE(cache.Find(photo, 256).has_value());

  const struct {
    QSize Picture, Recorded;
    int StoredAs;
  } untrue[] = {{{500, 333}, {300, 200}, 512}, {{256, 171}, {1, 2000000}, 256}, {{256, 171}, {60000, 60000}, 256}};
  for (const auto& c : untrue) {
    cache.Store(photo, reduced.scaled(c.Picture), c.Recorded, c.StoredAs);
    if (c.StoredAs != 256) {  // planted in the smaller class
      QFile::remove(cache.PathFor(photo, 256));
      ASSERT_TRUE(QFile::rename(cache.PathFor(photo, c.StoredAs), cache.PathFor(photo, 256)));
    }
    EXPECT_FALSE(cache.Find(photo, 256).has_value()) << c.Picture.width() << "x" << c.Recorded.height();
  }

  const QString normal = home.Path() + QStringLiteral("/thumbnails/normal");
  ASSERT_TRUE(QDir().mkpath(normal));
  QFile::setPermissions(normal, QFileDevice::ReadOwner | QFileDevice::ExeOwner);
  cache.Store(photo, reduced.scaled(128, 85), {300, 200}, 128);
  EXPECT_EQ(QFile::permissions(normal) & 0x7077, QFileDevice::ReadOwner | QFileDevice::ExeOwner);
  QFile::setPermissions(normal, QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);

  ASSERT_TRUE(QDir(home.Path() + QStringLiteral("/thumbnails/large")).removeRecursively());
  ASSERT_TRUE(QFile::link(elsewhere.Path(), home.Path() + QStringLiteral("/thumbnails/large")));
  const auto modeBefore = QFile::permissions(elsewhere.Path());
  cache.Store(photo, reduced, {300, 200}, 256);
  EXPECT_TRUE(QDir(elsewhere.Path()).isEmpty());
  EXPECT_EQ(QFile::permissions(elsewhere.Path()), modeBefore);
}

}  // namespace
