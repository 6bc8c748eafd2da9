#pragma once
// exiv2 on a file held in memory: opened with its metadata read, and the file again once the
// metadata has been changed. exiv2's errors are the callers' to catch (Exiv2::AnyError).

#include <QByteArray>

#include <exiv2/exiv2.hpp>

namespace imaging {

inline Exiv2::Image::AutoPtr OpenInMemory(const QByteArray& file) {
  Exiv2::Image::AutoPtr image = Exiv2::ImageFactory::open(reinterpret_cast<const Exiv2::byte*>(file.constData()), long(file.size()));
  image->readMetadata();
  return image;
}

// The file with the changed metadata written; `unchanged` when it cannot be read back.
inline QByteArray WrittenInMemory(Exiv2::Image& image, const QByteArray& unchanged) {
  image.writeMetadata();
  Exiv2::BasicIo& io = image.io();
  QByteArray bytes(qsizetype(io.size()), Qt::Uninitialized);
  const bool read = io.seek(0, Exiv2::BasicIo::beg) == 0 && io.read(reinterpret_cast<Exiv2::byte*>(bytes.data()), long(bytes.size())) == long(bytes.size());
  return read ? bytes : unchanged;
}

}  // namespace imaging
