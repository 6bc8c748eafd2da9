// Shows each of the eighteen parameter dialogs on an image and saves what the window
// looks like, for looking at them as a user would (run under Xvfb or a desktop).
// Usage: vistrel-dialog-gallery OUTPUT_FOLDER IMAGE [COMMAND...]
#include "edit/Catalogue.h"
#include "edit/DialogDescriptions.h"
#include "edit/frmDiseno.h"
#include "imaging/Loader.h"

#include <QApplication>
#include <QDir>
#include <QtTest/QTest>

#include <cstdio>

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  if (argc < 3) {
    std::fprintf(stderr, "usage: %s OUTPUT_FOLDER IMAGE [COMMAND...]\n", argv[0]);
    return 2;
  }
  imaging::Initialize();
  const QString output = QString::fromLocal8Bit(argv[1]);
  QDir().mkpath(output);
  const auto image = imaging::LoadFile(QString::fromLocal8Bit(argv[2]));
  if (!image) {
    std::fprintf(stderr, "Can't open file\n");
    return 1;
  }
  QStringList wanted;
  for (int i = 3; i < argc; ++i) wanted << QString::fromLocal8Bit(argv[i]);
  const edit::DialogContext context{image->Width() * 15.0, image->Height() * 15.0, 15, 15};
  for (const edit::CommandDescription& entry : edit::DialogDescriptions()) {
    const QString command = QLatin1String(edit::CommandFor(entry.Command).Command);
    if (!wanted.isEmpty() && !wanted.contains(command)) continue;
    edit::frmDiseno dialog(entry.Description, context, image, {});
    dialog.show();
    if (!QTest::qWaitFor([&] { return dialog.PreviewIdle(); }, 5000)) std::fprintf(stderr, "slow preview\n");
    QTest::qWait(100);
    dialog.grab().save(output + u'/' + command + QStringLiteral(".png"));
    std::printf("%s\n", qPrintable(command));
  }
  return 0;
}
