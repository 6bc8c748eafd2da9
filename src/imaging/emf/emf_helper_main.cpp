// vistrel-emf: plays an Enhanced Metafile in its own process (the viewer never parses
// EMF itself) and writes the picture as PAM to standard output.
// Usage: vistrel-emf FILE
#include "imaging/Loader.h"
#include "imaging/emf/EmfRender.h"

#include <QFile>
#include <QGuiApplication>

#include <cstdio>
#include <vector>

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  qputenv("QT_QPA_PLATFORM", "offscreen");  // fonts for text records; no display is used
  QGuiApplication application(argc, argv);
  QFile file(QString::fromLocal8Bit(argv[1]));
  if (!file.open(QIODevice::ReadOnly) || file.size() > (qint64(256) << 20)) return 1;
  const auto picture = imaging::emf::Render(file.readAll(), imaging::kMaxPixels);
  if (!picture) return 1;
  // Row by row into RGB, so the picture is the only full-size buffer.
  std::printf("P7\nWIDTH %d\nHEIGHT %d\nDEPTH 3\nMAXVAL 255\nTUPLTYPE RGB\nENDHDR\n", picture->width(), picture->height());
  std::vector<unsigned char> row(size_t(picture->width()) * 3);
  for (int y = 0; y < picture->height(); ++y) {
    const auto* pixels = reinterpret_cast<const QRgb*>(picture->constScanLine(y));
    for (int x = 0; x < picture->width(); ++x) {
      row[size_t(x) * 3] = static_cast<unsigned char>(qRed(pixels[x]));
      row[size_t(x) * 3 + 1] = static_cast<unsigned char>(qGreen(pixels[x]));
      row[size_t(x) * 3 + 2] = static_cast<unsigned char>(qBlue(pixels[x]));
    }
    std::fwrite(row.data(), 1, row.size(), stdout);
  }
  return std::fflush(stdout) == 0 ? 0 : 1;
}
