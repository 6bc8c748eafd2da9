// Margins, the page layout and printing, judged from real PDFs with poppler's tools.
#include "print/PrintLayout.h"
#include "print/frmImprimir.h"
#include "print/frmMargen.h"
#include "settings/SettingsFile.h"
#include "support/DialogAnswerer.h"
#include "support/TestFiles.h"

#include <QApplication>
#include <QComboBox>
#include <QDateTime>
#include <QDir>
#include <QDoubleSpinBox>
#include <QTimer>
#include <QFile>
#include <QThread>

#include <grp.h>
#include <sys/stat.h>
#include <unistd.h>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QRadioButton>
#include <QtTest/QTest>

#include <gtest/gtest.h>

namespace {

const QSizeF kA4(595.28, 841.89);

// Where a picture lands on an A4 page, in points.
TEST(PrintLayout, PlacesThePictureWithinTheMargins) {
  struct Case {
    const char* what;
    QSize image;
    double dpi;
    print::PrintOptions options;
    QRectF expected;
  };
  const float cm2 = 2;
  const Case cases[] = {
      {"fitted and centred, 2 cm", {1800, 1200}, 0, {{cm2, cm2, cm2, cm2}, 1, true, true, true},
       QRectF(56.69, 260.31, 481.89, 321.26)},
      {"its own size at 96 dpi, top left, 1 inch", {960, 480}, 0, {{1, 1, 1, 1}, 0, false, false, false},
       QRectF(72, 72, 720, 360).intersected(QRectF(72, 72, 451.28, 225.64))},
      {"its own size at 300 dpi", {600, 300}, 300, {{1, 1, 1, 1}, 0, false, false, false}, QRectF(72, 72, 144, 72)},
      {"margins wider than the page", {10, 10}, 0, {{5, 5, 1, 1}, 0, true, true, true}, QRectF()},
  };
  for (const Case& c : cases) {
    const QRectF placed = print::ImagePlacement(kA4, c.image, c.dpi, c.options);
    const QRectF rounded(std::round(placed.x() * 100) / 100, std::round(placed.y() * 100) / 100,
                         std::round(placed.width() * 100) / 100, std::round(placed.height() * 100) / 100);
    EXPECT_EQ(rounded, c.expected) << c.what;
  }
}

// The printer's page setup shows the stored margins, and a margin changed there is the
// one printing uses; Cancel keeps them.
TEST(frmImprimir, ThePageSetupEditsTheStoredMargins) {
  settings::SettingsStore settings = settings::DefaultSettings({});
  settings.PrintMargins = {2, 1, 1.5f, 1};
  settings.PrintUnits = 1;  // centimetres
  print::frmImprimir dialog(settings, [] { return std::nullopt; }, {});
  dialog.findChild<QComboBox*>(QStringLiteral("cboPrinter"))->setCurrentText(print::frmImprimir::PdfEntry());
  for (const bool accept : {false, true}) {
    QTimer::singleShot(0, [accept] {
      auto* setup = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(setup, nullptr);
      auto* left = setup->findChild<QDoubleSpinBox*>(QStringLiteral("leftMargin"));
      ASSERT_NE(left, nullptr);
      EXPECT_NEAR(left->value(), 20.0, 0.01);  // shown in millimetres
      left->setValue(30);
      accept ? setup->accept() : setup->reject();
    });
    dialog.findChild<QPushButton*>(QStringLiteral("cmdPageSetup"))->click();
    EXPECT_NEAR(settings.PrintMargins[0], accept ? 3.0 : 2.0, 0.01) << accept;
  }
  EXPECT_NEAR(settings.PrintMargins[2], 1.5, 0.01);
}

// The margins dialog with real keys: units switch both ways, a bad box is refused at OK.
TEST(frmMargen, SwitchesUnitsAndRefusesABadValue) {
  settings::SettingsStore settings = settings::DefaultSettings({});
  settings.PrintMargins = {1, 1, 1, 1};
  settings.PrintUnits = 0;  // inches
  print::frmMargen dialog(settings);
  dialog.show();
  auto* left = dialog.findChild<QLineEdit*>(QStringLiteral("txtIzquierda"));
  dialog.findChild<QRadioButton*>(QStringLiteral("optUnidad(1)"))->click();
  EXPECT_EQ(left->text(), dialog.locale().toString(2.54));  // "2,54" where the comma is the separator
  dialog.findChild<QRadioButton*>(QStringLiteral("optUnidad(0)"))->click();
  EXPECT_EQ(left->text(), QStringLiteral("1"));
  auto* bottom = dialog.findChild<QLineEdit*>(QStringLiteral("txtAbajo"));
  testing_support::Retype(bottom, QString());
  {
    testing_support::DialogAnswerer answerer;
    dialog.findChild<QPushButton*>(QStringLiteral("cmdAceptar"))->click();
    EXPECT_EQ(answerer.LastText(), QStringLiteral("Bad value"));
  }
  EXPECT_TRUE(dialog.isVisible());
  for (const char* pasted : {"inf", "nan"}) {
    bottom->setText(QLatin1String(pasted));
    testing_support::DialogAnswerer answerer;
    dialog.findChild<QPushButton*>(QStringLiteral("cmdAceptar"))->click();
    EXPECT_EQ(answerer.LastText(), QStringLiteral("Bad value")) << pasted;
  }
  testing_support::Retype(bottom, QStringLiteral("70"));
  bottom->setCursorPosition(0);
  QTest::keyClick(bottom, Qt::Key_Delete);  // the Delete key works in the box
  EXPECT_EQ(bottom->text(), QStringLiteral("0"));
  bottom->clear();
  QTest::keyClicks(bottom, QStringLiteral("x0"));  // the letter is dropped
  dialog.findChild<QRadioButton*>(QStringLiteral("optUnidad(1)"))->click();
  dialog.findChild<QPushButton*>(QStringLiteral("cmdAceptar"))->click();
  EXPECT_EQ(settings.PrintMargins, (std::array<float, 4>{2.54f, 2.54f, 2.54f, 0}));
  EXPECT_EQ(settings.PrintUnits, 1);
}

// vistrel-cli in a folder of its own, with these margins stored beside it; the PDF it made.
QString PrintWithMargins(const testing_support::TempFolder& folder, float margin, int units, QStringList target,
                         const std::function<QString()>& output) {
  QFile::copy(QStringLiteral(VISTREL_CLI_PATH), folder.File(QStringLiteral("vistrel-cli")));
  settings::SettingsStore stored = settings::DefaultSettings({});
  stored.PrintMargins = {margin, margin, margin, margin};
  stored.PrintUnits = units;
  settings::WriteSettingsFile(folder.File(QStringLiteral("Ini.in")), settings::WriteSettingsText(stored, {}, {}));
  const QStringList words = QStringList{"print", QStringLiteral(VISTREL_SOURCE_DIR "/samples/landscape.jpg"), "--center"} + target;
  if (QProcess::execute(folder.File(QStringLiteral("vistrel-cli")), words) != 0) return {};
  return output();
}

// The page size poppler reads, and the picture's left and right edges at mid-height (at
// 72 dpi a pixel is a point).
std::tuple<QString, int, int> PageAndEdges(const testing_support::TempFolder& folder, const QString& pdf) {
  const QString size = testing_support::Run(QStringLiteral("pdfinfo"), {pdf}).Output.split(u'\n').filter(QStringLiteral("Page size:")).value(0);
  QProcess::execute(QStringLiteral("pdftoppm"), {"-r", "72", "-png", "-singlefile", pdf, folder.File(QStringLiteral("page"))});
  const QImage page(folder.File(QStringLiteral("page.png")));
  int left = page.width(), right = -1;
  for (int x = 0; x < page.width(); ++x) {
    if (qGray(page.pixel(x, page.height() / 2)) >= 250) continue;
    left = std::min(left, x);
    right = std::max(right, x);
  }
  return {size.section(QStringLiteral(":"), 1).trimmed(), left, right + 1};
}

void ExpectEdgesAt(const std::tuple<QString, int, int>& page, double margin) {
  EXPECT_EQ(std::get<0>(page), QStringLiteral("595 x 842 pts (A4)"));
  EXPECT_NEAR(std::get<1>(page), margin, 1.0);
  EXPECT_NEAR(std::get<2>(page), 595.28 - margin, 1.0);
}

// Copies asked of a PDF are all in it; margins that leave no room print nothing and say so.
TEST(Printing, APdfHoldsEveryCopyAndNoRoomIsRefused) {
  testing_support::TempFolder folder;
  const QString file = folder.File(QStringLiteral("out.pdf"));
  const QString pdf = PrintWithMargins(folder, 1, 0, {"--pdf", file, "--copies", "3"}, [file] { return file; });
  EXPECT_TRUE(testing_support::Run(QStringLiteral("pdfinfo"), {pdf}).Output.contains(QStringLiteral("Pages:           3")));
  QFile::remove(file);
  EXPECT_TRUE(PrintWithMargins(folder, 5, 0, {"--pdf", file}, [file] { return file; }).isEmpty());  // 10 in of 8.3
  EXPECT_FALSE(QFile::exists(file));
}

// A CUPS scheduler of the test's own: its configuration, spool and queue live in a
// temporary folder and go with it; the programs the test starts reach it through
// CUPS_SERVER. Its one queue is cups-pdf, which writes to ~/PDF. It needs root, as the
// cups-pdf backend does.
class PrivateCups {
 public:
  static constexpr const char* kQueue = "vistrel-test-pdf";

  PrivateCups() {
    if (::geteuid() != 0) return;
    const QString root = folder_.Path();
    QFile::setPermissions(root, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner | QFile::ReadGroup |
                                    QFile::ExeGroup | QFile::ReadOther | QFile::ExeOther);
    for (const char* name : {"spool", "tmp", "cache", "state", "log"}) folder_.MakeFolder(QLatin1String(name));
    // The filters run as lp and write their temporary files here, as in the system's own spool.
    if (const group* lp = ::getgrnam("lp")) {
      for (const char* name : {"spool", "tmp"}) {
        if (::chown(folder_.File(QLatin1String(name)).toLocal8Bit(), 0, lp->gr_gid) != 0) return;
      }
    }
    ::chmod(folder_.File(QStringLiteral("tmp")).toLocal8Bit(), 01770);
    ::chmod(folder_.File(QStringLiteral("spool")).toLocal8Bit(), 0710);
    socket_ = folder_.File(QStringLiteral("cups.sock"));
    folder_.WriteBytes(QStringLiteral("cupsd.conf"), "Listen " + socket_.toLocal8Bit() +
                                                         "\nLogLevel warn\nWebInterface No\n"
                                                         "<Location />\n  Order allow,deny\n  Allow all\n</Location>\n");
    QByteArray files;
    for (const auto& [key, name] : {std::pair("ServerRoot", ""), std::pair("RequestRoot", "/spool"), std::pair("TempDir", "/tmp"),
                                     std::pair("CacheDir", "/cache"), std::pair("StateDir", "/state"),
                                     std::pair("ErrorLog", "/log/error_log"), std::pair("AccessLog", "/log/access_log"),
                                     std::pair("PageLog", "/log/page_log")}) {
      files += QByteArray(key) + ' ' + root.toLocal8Bit() + name + '\n';
    }
    folder_.WriteBytes(QStringLiteral("cups-files.conf"), files);
    scheduler_.start(QStringLiteral("cupsd"), {"-f", "-c", folder_.File(QStringLiteral("cupsd.conf")), "-s",
                                               folder_.File(QStringLiteral("cups-files.conf"))});
    for (int i = 0; i < 100 && !QFile::exists(socket_); ++i) QThread::msleep(50);
    qputenv("CUPS_SERVER", socket_.toLocal8Bit());
    ready_ = testing_support::Run(QStringLiteral("lpadmin"), {"-p", kQueue, "-v", "cups-pdf:/", "-E", "-P",
                                                             "/usr/share/ppd/cups-pdf/CUPS-PDF_opt.ppd"}).ExitCode == 0;
  }
  ~PrivateCups() {
    qunsetenv("CUPS_SERVER");
    scheduler_.terminate();
    scheduler_.waitForFinished(5000);
  }
  bool Ready() const { return ready_; }
  QString Log() const { return QString::fromUtf8(testing_support::ReadAll(folder_.File(QStringLiteral("log/error_log")))); }

 private:
  testing_support::TempFolder folder_;
  QProcess scheduler_;
  QString socket_;
  bool ready_ = false;
};

// The PDF cups-pdf wrote for the job sent at `sent`, once the queue has finished it.
QString SpooledPdfSince(const QDir& spool, const QDateTime& sent) {
  for (int i = 0; i < 300; ++i, QThread::msleep(100)) {
    if (!testing_support::Run(QStringLiteral("lpstat"), {"-o"}).Output.trimmed().isEmpty()) continue;
    for (const QFileInfo& file : spool.entryInfoList(QDir::Files, QDir::Time)) {
      if (file.lastModified() >= sent.addSecs(-1)) return file.filePath();
    }
  }
  return {};
}

// Printed to a PDF file and through a real CUPS queue, the picture's edges lie at the
// stored margins, in centimetres and in inches, and the queue prints every copy asked for.
TEST(Printing, TheEdgesLieAtTheStoredMarginsAndTheQueuePrintsEveryCopy) {
  const PrivateCups cups;
  if (::geteuid() == 0) {
    ASSERT_TRUE(cups.Ready()) << cups.Log().toStdString();
  }
  const QDir spool(QDir::homePath() + QStringLiteral("/PDF"));
  for (const auto& [margin, units, points, copies] : {std::tuple(2.0f, 1, 56.69, "1"), std::tuple(1.0f, 0, 72.0, "2")}) {
    testing_support::TempFolder folder;
    const QString file = folder.File(QStringLiteral("out.pdf"));
    const QString pdf = PrintWithMargins(folder, margin, units, {"--pdf", file}, [file] { return file; });
    ExpectEdgesAt(PageAndEdges(folder, pdf), points);
    if (!cups.Ready()) continue;
    const QDateTime sent = QDateTime::currentDateTime();
    const QString printed = PrintWithMargins(folder, margin, units, {"--printer", PrivateCups::kQueue, "--copies", copies},
                                             [&] { return SpooledPdfSince(spool, sent); });
    ASSERT_FALSE(printed.isEmpty()) << "no PDF from the CUPS queue\n" << cups.Log().toStdString();
    ExpectEdgesAt(PageAndEdges(folder, printed), points);
    const QString info = testing_support::Run(QStringLiteral("pdfinfo"), {printed}).Output;
    EXPECT_TRUE(info.contains(QStringLiteral("Pages:           ") + QLatin1String(copies))) << info.toStdString();
    QFile::remove(printed);
  }
  if (!cups.Ready()) GTEST_SKIP() << "the CUPS queue needs root, as the cups-pdf backend does";
}

}  // namespace
