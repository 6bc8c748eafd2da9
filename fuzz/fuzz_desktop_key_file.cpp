// Arbitrary bytes as a user's mimeapps.list: reading, changing one value and writing never
// crash, the value set reads back, and removing it leaves every other line as it was.
#include "shell/DesktopKeyFile.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
  const QString group = QStringLiteral("Default Applications"), key = QStringLiteral("image/x-fuzz");
  shell::DesktopKeyFile file(bytes);
  if (file.Value(group, key)) return 0;  // the input names our key already
  const QByteArray before = file.Text();
  file.SetValue(group, key, QStringLiteral("vistrel.desktop;"));
  if (shell::DesktopKeyFile(file.Text()).Value(group, key) != QStringLiteral("vistrel.desktop;")) std::abort();
  file.Remove(group, key);
  const shell::DesktopKeyFile again(before);
  if (file.Value(group, key) || (again.Text() != before)) std::abort();
  return 0;
}
