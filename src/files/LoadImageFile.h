#pragma once
// LoadImageFile of Part 5.1: the one loader of an image file for every view, reporting
// success and giving the natural size record (Part 3.1) to keep beside the picture.

#include "app/SettingsStore.h"
#include "imaging/Image.h"

#include <QString>

#include <optional>

namespace files {

struct LoadedImage {
  imaging::Image Picture;
  QString NaturalSizeTag;  // "width height" in twips
};

std::optional<LoadedImage> LoadImageFile(const QString& path, const app::ScreenMetrics& metrics);

}  // namespace files
