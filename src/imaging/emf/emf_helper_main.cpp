// vistrel-emf: plays an Enhanced Metafile in its own process (the viewer never parses
// EMF itself) and writes the picture as PAM to standard output.
// Usage: vistrel-emf FILE
#include "imaging/Loader.h"
#include "imaging/emf/EmfRender.h"

#include <QFile>
#include <QGuiApplication>

#include <cstdio>

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  qputenv("QT_QPA_PLATFORM", "offscreen");  // fonts for text records; no display is used
  QGuiApplication application(argc, argv);
  QFile file(QString::fromLocal8Bit(argv[1]));
  if (!file.open(QIODevice::ReadOnly) || file.size() > (qint64(256) << 20)) return 1;
  const auto picture = imaging::emf::Render(file.readAll(), imaging::kMaxPixels);
  if (!picture) return 1;
  const QImage rgba = picture->convertToFormat(QImage::Format_RGBA8888);
  std::printf("P7\nWIDTH %d\nHEIGHT %d\nDEPTH 4\nMAXVAL 255\nTUPLTYPE RGB_ALPHA\nENDHDR\n", rgba.width(), rgba.height());
  for (int y = 0; y < rgba.height(); ++y) std::fwrite(rgba.constScanLine(y), 4, size_t(rgba.width()), stdout);
  return std::fflush(stdout) == 0 ? 0 : 1;
}
