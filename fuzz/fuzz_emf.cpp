// Arbitrary bytes as an Enhanced Metafile: the reader and the player never crash, hang
// or read outside the buffer (ASan), whatever the records say.
#include "imaging/emf/EmfRender.h"

#include <QGuiApplication>

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static int argc = 1;
  static char name[] = "fuzz_emf";
  static char* argv[] = {name, nullptr};
  static const bool started = [] {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    new QGuiApplication(argc, argv);  // fonts for text records; lives for the whole run
    return true;
  }();
  (void)started;
  (void)imaging::emf::Render(QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)), 1 << 16);
  return 0;
}
