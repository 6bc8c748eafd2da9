#include "base/FileNames.h"

#include "base/TextEncoding.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace base {

namespace {

constexpr char16_t kEscapeBase = 0xDC00;

bool IsEscape(char16_t c) { return c >= 0xDC80 && c <= 0xDCFF; }

bool IsContinuation(unsigned char c) { return (c & 0xC0) == 0x80; }

// The length of the valid UTF-8 sequence at the start of the bytes, or 0.
int ValidSequenceLength(const unsigned char* p, qsizetype left) {
  const unsigned char lead = p[0];
  if (lead < 0x80) return 1;
  int length = 0;
  char32_t code = 0;
  if (lead >= 0xC2 && lead <= 0xDF) {
    length = 2, code = lead & 0x1F;
  } else if (lead >= 0xE0 && lead <= 0xEF) {
    length = 3, code = lead & 0x0F;
  } else if (lead >= 0xF0 && lead <= 0xF4) {
    length = 4, code = lead & 0x07;
  } else {
    return 0;
  }
  if (left < length) return 0;
  for (int i = 1; i < length; ++i) {
    if (!IsContinuation(p[i])) return 0;
    code = (code << 6) | (p[i] & 0x3F);
  }
  const bool overlong = (length == 3 && code < 0x800) || (length == 4 && code < 0x10000);
  const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
  return overlong || surrogate || code > 0x10FFFF ? 0 : length;
}

void AppendUtf8(QByteArray& out, char32_t code) {
  if (code < 0x80) {
    out += char(code);
  } else if (code < 0x800) {
    out += char(0xC0 | (code >> 6));
    out += char(0x80 | (code & 0x3F));
  } else if (code < 0x10000) {
    out += char(0xE0 | (code >> 12));
    out += char(0x80 | ((code >> 6) & 0x3F));
    out += char(0x80 | (code & 0x3F));
  } else {
    out += char(0xF0 | (code >> 18));
    out += char(0x80 | ((code >> 12) & 0x3F));
    out += char(0x80 | ((code >> 6) & 0x3F));
    out += char(0x80 | (code & 0x3F));
  }
}

}  // namespace

// Valid runs are decoded whole, so a folder of ordinary names costs one decode a name.
QString DecodeFileName(QByteArrayView bytes) {
  QString name;
  const auto* p = reinterpret_cast<const unsigned char*>(bytes.data());
  qsizetype runStart = 0, i = 0;
  const auto flushRun = [&] { name += QString::fromUtf8(bytes.sliced(runStart, i - runStart)); };
  while (i < bytes.size()) {
    const int length = ValidSequenceLength(p + i, bytes.size() - i);
    if (length > 0) {
      i += length;
      continue;
    }
    flushRun();
    name += QChar(char16_t(kEscapeBase | p[i]));
    runStart = ++i;
  }
  flushRun();
  return name;
}

QByteArray EncodeFileName(const QString& name) {
  if (!HasRawBytes(name)) return name.toUtf8();
  QByteArray out;
  out.reserve(name.size());
  for (qsizetype i = 0; i < name.size(); ++i) {
    const char16_t c = name[i].unicode();
    if (QChar::isHighSurrogate(c) && i + 1 < name.size() && QChar::isLowSurrogate(name[i + 1].unicode())) {
      AppendUtf8(out, QChar::surrogateToUcs4(c, name[i + 1].unicode()));
      ++i;
    } else if (IsEscape(c)) {
      out += char(c & 0xFF);
    } else {
      AppendUtf8(out, c);
    }
  }
  return out;
}

bool HasRawBytes(const QString& name) {
  for (qsizetype i = 0; i < name.size(); ++i) {
    const char16_t c = name[i].unicode();
    if (QChar::isHighSurrogate(c) && i + 1 < name.size()) {
      ++i;  // a pair is one character, never an escape
    } else if (IsEscape(c)) {
      return true;
    }
  }
  return false;
}

QString ReadableFileName(const QString& name) {
  if (!HasRawBytes(name)) return name;
  QString readable;
  for (qsizetype i = 0; i < name.size(); ++i) {
    const char16_t c = name[i].unicode();
    if (QChar::isHighSurrogate(c) && i + 1 < name.size()) {
      readable += name.mid(i++, 2);
    } else {
      readable += IsEscape(c) ? DecodeWindows1252(QByteArray(1, char(c & 0xFF))) : QString(name[i]);
    }
  }
  return readable;
}

int OpenRegularFile(const QString& path) {
  // O_NONBLOCK: opening a FIFO with no writer would otherwise wait forever.
  const int fd = ::open(EncodeFileName(path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
  if (fd < 0) return -1;
  struct stat info {};
  if (::fstat(fd, &info) != 0 || !S_ISREG(info.st_mode)) {
    ::close(fd);
    errno = EINVAL;
    return -1;
  }
  ::fcntl(fd, F_SETFL, ::fcntl(fd, F_GETFL) & ~O_NONBLOCK);
  return fd;
}

bool OpenForReading(QFile& file, const QString& path) {
  const int fd = OpenRegularFile(path);
  if (fd < 0) return false;
  if (file.open(fd, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle)) return true;
  ::close(fd);
  return false;
}

QByteArray ReadWhole(QFile& file, qint64 largest) {
  const qint64 size = file.size();  // fstat of the open file: what it held when opened
  if (size > largest) return {};
  return file.read(size);
}

bool IsSpecialFile(const QString& path) {
  struct stat info {};
  return ::stat(EncodeFileName(path).constData(), &info) == 0 && !S_ISREG(info.st_mode) && !S_ISDIR(info.st_mode);
}

std::optional<QString> WritableTarget(const QString& path) {
  QString target = path;
  for (int links = 0; links < 40; ++links) {
    struct stat info {};
    if (::lstat(EncodeFileName(target).constData(), &info) != 0) {
      if (links > 0) return std::nullopt;  // a link to no file: nothing to write through
      return target;                       // a new file
    }
    if (S_ISLNK(info.st_mode)) {
      QByteArray next(qsizetype(info.st_size) + 1, '\0');
      const ssize_t length = ::readlink(EncodeFileName(target).constData(), next.data(), size_t(next.size()));
      if (length <= 0 || length >= next.size()) return std::nullopt;
      next.truncate(length);
      // A relative link names a file in the link's own folder.
      const QString named = DecodeFileName(next);
      target = named.startsWith(u'/') ? named : target.left(target.lastIndexOf(u'/') + 1) + named;
      continue;
    }
    if (!S_ISREG(info.st_mode) || !(info.st_mode & S_IWUSR)) return std::nullopt;
    return target;
  }
  return std::nullopt;  // a loop of links
}

qint64 FileSizeOf(const QString& path) {
  struct stat info {};
  if (path.isEmpty() || ::stat(EncodeFileName(path).constData(), &info) != 0 || !S_ISREG(info.st_mode)) return -1;
  return info.st_size;
}

}  // namespace base
