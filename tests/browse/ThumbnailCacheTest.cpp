// The thumbnail cache as the desktop reads it: GLib's own lookup names our file and calls
// it valid, and a changed file makes it stale.
#include "browse/ThumbnailCache.h"
#include "support/TestFiles.h"

#include <QDateTime>
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
}

}  // namespace
