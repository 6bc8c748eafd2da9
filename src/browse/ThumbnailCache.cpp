#include "browse/ThumbnailCache.h"
#include "base/FileNames.h"
#include "imaging/Loader.h"

#include <QBuffer>
#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <QTemporaryFile>
#include <QUrl>

#include <cerrno>
#include <cstdio>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <map>
#include <utility>
#include <vector>

namespace browse {

namespace {

const QString kFailureFolder = QStringLiteral("fail/vistrel-" VISTREL_VERSION);

// A name that is not UTF-8 is escaped byte by byte, as the desktop's own tools do.
QString UriOf(const QString& path) {
  const QString absolute = QFileInfo(path).absoluteFilePath();
  if (!base::HasRawBytes(absolute)) return QString::fromLatin1(QUrl::fromLocalFile(absolute).toEncoded());
  return QStringLiteral("file://") +
         QString::fromLatin1(base::EncodeFileName(absolute).toPercentEncoding("/!$&'()*+,;=:@~"));
}

QString MTimeOf(const QString& path) {
  struct stat info {};
  return ::stat(base::EncodeFileName(path).constData(), &info) == 0 ? QString::number(info.st_mtime) : QString();
}

QString HashedName(const QString& path) {
  return QString::fromLatin1(QCryptographicHash::hash(UriOf(path).toUtf8(), QCryptographicHash::Md5).toHex()) +
         QStringLiteral(".png");
}

constexpr int kSides[] = {128, 256, 512, 1024};

QString FolderOfSide(int side) {
  if (side <= 128) return QStringLiteral("normal");
  if (side <= 256) return QStringLiteral("large");
  return side <= 512 ? QStringLiteral("x-large") : QStringLiteral("xx-large");
}

using TextKeys = std::vector<std::pair<QByteArray, QByteArray>>;

// The keys every thumbnail of a file carries, as the cache names them.
TextKeys Describe(const QString& path, QSize imageSize) {
  TextKeys keys = {{"Thumb::URI", UriOf(path).toLatin1()}, {"Thumb::MTime", MTimeOf(path).toLatin1()},
                   {"Thumb::Size", QByteArray::number(QFileInfo(path).size())}, {"Software", "Vistrel"}};
  if (!imageSize.isEmpty()) {
    keys.push_back({"Thumb::Image::Width", QByteArray::number(imageSize.width())});
    keys.push_back({"Thumb::Image::Height", QByteArray::number(imageSize.height())});
  }
  return keys;
}

quint32 Crc32(const QByteArray& bytes) {
  quint32 crc = 0xFFFFFFFFu;
  for (const char byte : bytes) {
    crc ^= quint8(byte);
    for (int bit = 0; bit < 8; ++bit) crc = (crc >> 1) ^ (0xEDB88320u & (0u - (crc & 1u)));
  }
  return ~crc;
}

QByteArray BigEndian(quint32 value) {
  QByteArray bytes(4, '\0');
  for (int i = 0; i < 4; ++i) bytes[i] = char(value >> (24 - 8 * i));
  return bytes;
}

// The PNG with the keys as plain tEXt chunks right after its header, where every reader of
// the cache looks for them (Qt would compress a long one, which some readers skip).
QByteArray PngWithKeys(const QImage& picture, const TextKeys& keys) {
  QByteArray png;
  QBuffer buffer(&png);
  buffer.open(QIODevice::WriteOnly);
  if (!picture.save(&buffer, "PNG")) return {};
  constexpr int kAfterHeader = 8 + 4 + 4 + 13 + 4;  // signature, then IHDR's length, type, data and CRC
  QByteArray chunks;
  for (const auto& [key, value] : keys) {
    const QByteArray body = "tEXt" + key + '\0' + value;
    chunks += BigEndian(quint32(body.size() - 4)) + body + BigEndian(Crc32(body));
  }
  return png.insert(kAfterHeader, chunks);
}

// Fresh when it names this file and the file has not changed since.
bool IsFresh(const std::map<QByteArray, QByteArray>& keys, const QString& path) {
  const auto value = [&keys](const char* key) {
    const auto found = keys.find(key);
    return found == keys.end() ? QString() : QString::fromLatin1(found->second);
  };
  // The size is optional in the cache's format; when recorded it must match too, so a file
  // rewritten within the same second is not mistaken for the old one.
  const bool sizeMatches = !keys.count("Thumb::Size") || value("Thumb::Size").toLongLong() == QFileInfo(path).size();
  return value("Thumb::URI") == UriOf(path) && value("Thumb::MTime") == MTimeOf(path) && sizeMatches;
}

quint32 ReadBigEndian(const char* bytes) {
  return quint32(quint8(bytes[0])) << 24 | quint32(quint8(bytes[1])) << 16 | quint32(quint8(bytes[2])) << 8 |
         quint32(quint8(bytes[3]));
}

// A cache file is read only when it is a regular file itself: a link planted in the cache
// is not followed.
QByteArray ReadFile(const QString& path) {
  constexpr qint64 kLargestThumbnail = 4 << 20;
  const int fd = ::open(base::EncodeFileName(path).constData(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
  if (fd < 0) return {};
  struct stat info {};
  if (::fstat(fd, &info) != 0 || !S_ISREG(info.st_mode)) {
    ::close(fd);
    return {};
  }
  QFile file;
  if (!file.open(fd, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle)) {
    ::close(fd);
    return {};
  }
  return base::ReadWhole(file, kLargestThumbnail);
}

// The PNG's own width and height from its header, before anything decodes it.
QSize PngSize(const QByteArray& png) {
  if (png.size() < 24 || png.mid(12, 4) != "IHDR") return {};
  const auto side = [&png](int at) { return qint64(ReadBigEndian(png.constData() + at)); };
  if (side(16) > 0xFFFF || side(20) > 0xFFFF) return {};
  return QSize(int(side(16)), int(side(20)));
}

// What a thumbnail says of itself is believed only when it fits its size class and, where
// it records the original's size, has that size's proportions.
bool IsBelievable(QSize own, QSize recorded, int side) {
  if (own.isEmpty() || own.width() > side || own.height() > side) return false;
  if (recorded.isNull()) return true;
  if (recorded.isEmpty() || qint64(recorded.width()) * recorded.height() > imaging::kMaxPixels) return false;
  const QSize expected = recorded.width() <= side && recorded.height() <= side ? recorded : recorded.scaled(side, side, Qt::KeepAspectRatio);
  return std::abs(expected.width() - own.width()) <= 2 && std::abs(expected.height() - own.height()) <= 2;
}

// A folder of the cache, made when missing (readable by the user alone) and otherwise used
// only when it is a real folder of the user's own: never a link, never another's, and its
// mode is left as the user set it.
bool IsOwnFolder(const QString& folder) {
  const QByteArray name = base::EncodeFileName(folder);
  struct stat info {};
  if (::lstat(name.constData(), &info) != 0) {
    if (errno != ENOENT || (::mkdir(name.constData(), 0700) != 0 && errno != EEXIST)) return false;
    if (::lstat(name.constData(), &info) != 0) return false;
  }
  return S_ISDIR(info.st_mode) && info.st_uid == ::geteuid();
}

}  // namespace

std::map<QByteArray, QByteArray> PngTextKeys(const QByteArray& png) {
  std::map<QByteArray, QByteArray> keys;
  if (!png.startsWith("\x89PNG\r\n\x1a\n")) return keys;
  qsizetype at = 8;
  while (png.size() - at >= 12) {
    const quint32 length = ReadBigEndian(png.constData() + at);
    const QByteArray type = png.mid(at + 4, 4);
    if (type == "IDAT" || length > quint32(png.size() - at - 12)) break;
    if (type == "tEXt") {
      const QByteArray body = png.mid(at + 8, qsizetype(length));
      const qsizetype separator = body.indexOf('\0');
      if (separator > 0) keys[body.left(separator)] = body.mid(separator + 1);
    }
    at += 12 + qsizetype(length);
  }
  return keys;
}

ThumbnailCache ThumbnailCache::ForUser() {
  return ThumbnailCache(QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation));
}

int ThumbnailCache::SideFor(QSize box) {
  const int longest = std::max(box.width(), box.height());
  for (const int side : kSides) {
    if (longest <= side) return side;
  }
  return kSides[std::size(kSides) - 1];
}

QString ThumbnailCache::PathFor(const QString& path, int side) const {
  return home_ + QStringLiteral("/thumbnails/") + FolderOfSide(side) + u'/' + HashedName(path);
}

QString ThumbnailCache::FailurePath(const QString& path) const {
  return home_ + QStringLiteral("/thumbnails/") + kFailureFolder + u'/' + HashedName(path);
}

std::optional<ThumbnailCache::Found> ThumbnailCache::Find(const QString& path, int side) const {
  for (const int candidate : kSides) {  // a larger one serves a smaller box too
    if (candidate < side) continue;
    const QByteArray png = ReadFile(PathFor(path, candidate));
    const auto keys = PngTextKeys(png);
    if (!IsFresh(keys, path)) continue;
    const auto number = [&keys](const char* key) { return keys.count(key) ? keys.at(key).toInt() : 0; };
    const QSize recorded(number("Thumb::Image::Width"), number("Thumb::Image::Height"));
    if (!IsBelievable(PngSize(png), recorded, candidate)) continue;  // made again, and replaced
    QImage picture = QImage::fromData(png, "PNG");
    if (!picture.isNull()) return Found{std::move(picture), recorded};
  }
  return std::nullopt;
}

bool ThumbnailCache::IsKnownFailure(const QString& path) const {
  return IsFresh(PngTextKeys(ReadFile(FailurePath(path))), path);
}

bool ThumbnailCache::Save(const QString& target, const QByteArray& png) const {
  if (png.isEmpty() || !QDir().mkpath(home_)) return false;
  QString folder = home_;
  const QString below = QFileInfo(target).absolutePath().mid(home_.size() + 1);
  for (const QString& part : below.split(u'/', Qt::SkipEmptyParts)) {
    folder += u'/' + part;
    if (!IsOwnFolder(folder)) return false;
  }
  // A fresh file beside the target (never through a link), renamed over it when whole:
  // rename(2) replaces a link planted at the target instead of writing through it.
  QTemporaryFile file(folder + QStringLiteral("/.vistrel-XXXXXX.png"));
  if (!file.open() || file.write(png) != png.size() || !file.flush()) return false;
  file.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner);
  if (::rename(base::EncodeFileName(file.fileName()).constData(), base::EncodeFileName(target).constData()) != 0) {
    return false;
  }
  file.setAutoRemove(false);
  return true;
}

void ThumbnailCache::Store(const QString& path, const QImage& picture, QSize imageSize, int side) const {
  const QImage thumbnail = std::max(picture.width(), picture.height()) > side
                               ? picture.scaled(side, side, Qt::KeepAspectRatio, Qt::SmoothTransformation)
                               : picture;
  Save(PathFor(path, side), PngWithKeys(thumbnail, Describe(path, imageSize)));
}

void ThumbnailCache::StoreFailure(const QString& path) const {
  QImage empty(1, 1, QImage::Format_ARGB32);
  empty.fill(Qt::transparent);
  Save(FailurePath(path), PngWithKeys(empty, Describe(path, {})));
}

}  // namespace browse
