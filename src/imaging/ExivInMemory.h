#pragma once
// exiv2 on a file held in memory: opened with its metadata read, and the file again once the
// metadata has been changed. exiv2's errors are the callers' to catch (Exiv2::AnyError).

#include <QByteArray>

#include <exiv2/exiv2.hpp>

#include <memory>

namespace imaging {

// exiv2 0.27 hands the image over in a std::auto_ptr, which C++17 deprecates: it is moved
// into a std::unique_ptr at once.
inline std::unique_ptr<Exiv2::Image> OpenInMemory(const QByteArray& file) {
  std::unique_ptr<Exiv2::Image> image(
      Exiv2::ImageFactory::open(reinterpret_cast<const Exiv2::byte*>(file.constData()), long(file.size())).release());
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
