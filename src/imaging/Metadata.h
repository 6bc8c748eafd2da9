#pragma once
// What a photo says about itself, read from its header by libvips: camera, lens, exposure,
// aperture, ISO, focal length, date taken, orientation, colour profile and GPS position,
// each only when the file records it.

#include <QString>

#include <utility>
#include <vector>

namespace imaging {

// (name, value) rows in that order; empty for a file without such metadata.
std::vector<std::pair<QString, QString>> ReadPhotoMetadata(const QString& path);

}  // namespace imaging
