// Vistrel on the Linux desktop, in the private home the tests run in, judged by the
// desktop's own tools: xdg-mime and gio.
#include "shell/DesktopKeyFile.h"
#include "shell/FreedesktopShell.h"
#include "base/FileFormats.h"

#include <QRegularExpression>
#include <QSet>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include "support/TestFiles.h"
#include <QStandardPaths>

#include <gtest/gtest.h>

namespace {

QString Output(const QString& program, const QStringList& arguments) {
  return testing_support::Run(program, arguments).Output.trimmed();
}

QString DefaultFor(const QString& type) { return Output(QStringLiteral("xdg-mime"), {"query", "default", type}); }

void WriteFile(const QString& path, const QByteArray& text) {
  QDir().mkpath(QFileInfo(path).path());
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(text);
}

// Another viewer owns PNG; Vistrel takes PNG and JPEG, then gives both back.
TEST(FreedesktopShell, TypesAreTakenAndGivenBackToTheirEarlierViewer) {
  const QString config = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
  const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
  WriteFile(data + "/applications/other-viewer.desktop",
            "[Desktop Entry]\nType=Application\nName=Other\nExec=true %f\nMimeType=image/png;\n");
  // Another program's entry in Latin-1 stays byte for byte.
  const QByteArray theirs = "# mine \xE9t\xE9\n[Default Applications]\nimage/png=other-viewer.desktop;\n";
  WriteFile(config + "/mimeapps.list", theirs);
  shell::FreedesktopShell desktop(QCoreApplication::applicationFilePath());  // a program that exists
  for (const char* extension : {"png", "jpg", "png", "cal"}) desktop.Associate(QLatin1String(extension), 2);
  EXPECT_EQ(DefaultFor(QStringLiteral("image/png")), QStringLiteral("vistrel.desktop"));
  EXPECT_EQ(DefaultFor(QStringLiteral("image/jpeg")), QStringLiteral("vistrel.desktop"));
  EXPECT_TRUE(Output(QStringLiteral("gio"), {"mime", "image/png"}).contains(QStringLiteral("vistrel.desktop")));
  EXPECT_TRUE(desktop.IsAssociated(QStringLiteral("JPE")));
  WriteFile(data + "/photo.png", "\x89PNG\r\n\x1a\n");
  WriteFile(data + "/scan.cal", "srcdocid: scan");
  EXPECT_TRUE(Output(QStringLiteral("gio"), {"info", "-a", "standard::icon", data + "/photo.png"})
                  .contains(QStringLiteral("vistrel-document-002")));  // the chosen document icon
  EXPECT_TRUE(Output(QStringLiteral("gio"), {"info", "-a", "standard::content-type", data + "/scan.cal"})
                  .contains(QStringLiteral("image/x-cals")));  // a type the desktop learns from us
  desktop.Unassociate(QStringLiteral("cal"));
  desktop.Unassociate(QStringLiteral("png"));
  desktop.Unassociate(QStringLiteral("jpeg"));
  EXPECT_EQ(DefaultFor(QStringLiteral("image/png")), QStringLiteral("other-viewer.desktop"));
  EXPECT_FALSE(desktop.IsAssociated(QStringLiteral("jpg")));
  QFile list(config + "/mimeapps.list");
  ASSERT_TRUE(list.open(QIODevice::ReadOnly));
  EXPECT_EQ(list.readAll(), theirs);
  list.close();
  QFile::setPermissions(list.fileName(), QFileDevice::ReadOwner);  // a write that fails is a failure
  EXPECT_FALSE(desktop.Associate(QStringLiteral("png")));
  EXPECT_EQ(testing_support::ReadAll(list.fileName()), theirs);
  QFile::setPermissions(list.fileName(), QFileDevice::ReadOwner | QFileDevice::WriteOwner);
}

// A type another viewer took after us keeps no icon of ours once the user unticks it.
TEST(FreedesktopShell, ATypeAnotherViewerTookLosesOurIconWhenGivenBack) {
  const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
  shell::FreedesktopShell desktop(QCoreApplication::applicationFilePath());
  WriteFile(data + "/anim.gif", "GIF89a");
  const auto icon = [&] { return Output(QStringLiteral("gio"), {"info", "-a", "standard::icon", data + "/anim.gif"}); };
  desktop.Associate(QStringLiteral("gif"), 1);
  ASSERT_TRUE(icon().contains(QStringLiteral("vistrel-document-001")));
  WriteFile(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + "/mimeapps.list",
            "[Default Applications]\nimage/gif=other-viewer.desktop;\n");
  desktop.Unassociate(QStringLiteral("gif"));
  EXPECT_FALSE(icon().contains(QStringLiteral("vistrel-document"))) << icon().toStdString();
}

// The entry is the file managers' own; folders still open in the file manager.
TEST(FreedesktopShell, TheFolderEntryIsAddedAndRemovedInEveryFileManager) {
  shell::FreedesktopShell desktop(QCoreApplication::applicationFilePath());  // a program that exists
  EXPECT_FALSE(desktop.FolderEntryExists());
  const QString folderOpener = DefaultFor(QStringLiteral("inode/directory"));
  desktop.AddFolderEntry();
  desktop.AddFolderEntry();
  EXPECT_TRUE(desktop.FolderEntryExists());
  const QString script = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
                         QStringLiteral("/nautilus/scripts/Open with Vistrel");
  EXPECT_TRUE(QFileInfo(script).isExecutable());
  EXPECT_EQ(DefaultFor(QStringLiteral("inode/directory")), folderOpener);
  EXPECT_FALSE(Output(QStringLiteral("gio"), {"mime", "inode/directory"}).contains(QStringLiteral("vistrel.desktop")));
  desktop.RemoveFolderEntry();
  EXPECT_FALSE(desktop.FolderEntryExists());
  EXPECT_FALSE(QFile::exists(script));
}

// The desktop entry offers to open exactly the types of the format table.
TEST(FreedesktopShell, TheDesktopEntryListsEveryTypeOfTheFormatTable) {
  const QString entry = QString::fromUtf8(testing_support::ReadAll(QStringLiteral(VISTREL_SOURCE_DIR "/packaging/vistrel.desktop")));
  const QString line = entry.split(u'\n').filter(QRegularExpression(QStringLiteral("^MimeType="))).value(0);
  const QStringList listed = line.mid(9).split(u';', Qt::SkipEmptyParts);
  QSet<QString> table;
  for (const base::FileFormat& format : base::FileFormats()) table << QLatin1String(format.MimeType);
  EXPECT_EQ(QSet<QString>(listed.begin(), listed.end()), table);
}

// The key file keeps a user's other lines as they were.
TEST(DesktopKeyFile, ChangesOnlyTheLinesItIsAskedTo) {
  shell::DesktopKeyFile file("# comment\n[Added Associations]\nimage/png=a.desktop;\n\n[Default Applications]\nx=1\n");
  file.SetValue(QStringLiteral("Added Associations"), QStringLiteral("image/gif"), QStringLiteral("b.desktop;"));
  file.SetValue(QStringLiteral("Default Applications"), QStringLiteral("x"), QStringLiteral("2"));
  file.Remove(QStringLiteral("Added Associations"), QStringLiteral("image/png"));
  file.SetValue(QStringLiteral("New"), QStringLiteral("k"), QStringLiteral("v"));
  EXPECT_EQ(file.Text(), QByteArray("# comment\n[Added Associations]\nimage/gif=b.desktop;\n\n[Default Applications]\nx=2\n\n[New]\nk=v\n"));
  file.Remove(QStringLiteral("Default Applications"), QStringLiteral("x"));  // an emptied group goes
  file.Remove(QStringLiteral("New"), QStringLiteral("k"));
  EXPECT_EQ(file.Text(), QByteArray("# comment\n[Added Associations]\nimage/gif=b.desktop;\n"));
  // A group that stands twice is one group, as GLib reads it (found by the fuzzer).
  shell::DesktopKeyFile twice("[Default Applications]\n[Default Applications]\nimage/png=a.desktop;\n");
  EXPECT_EQ(twice.Value(QStringLiteral("Default Applications"), QStringLiteral("image/png")), QStringLiteral("a.desktop;"));
  twice.Remove(QStringLiteral("Default Applications"), QStringLiteral("image/png"));
  EXPECT_FALSE(twice.Value(QStringLiteral("Default Applications"), QStringLiteral("image/png")).has_value());
}

}  // namespace
