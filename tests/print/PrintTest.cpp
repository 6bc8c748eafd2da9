// Margins, the page layout and printing, judged from real PDFs with poppler's tools.
#include "print/PrintLayout.h"
#include "print/frmImprimir.h"
#include "print/frmMargen.h"
#include "settings/SettingsFile.h"
#include "support/DialogAnswerer.h"
#include "support/TestFiles.h"

#include <QApplication>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QTimer>
#include <QFile>

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
  const Case cases[] = {
      {"its own size at 96 dpi, top left, 1 inch", {960, 480}, 0, {{1, 1, 1, 1}, 0, false, false, false},
       QRectF(72, 72, 720, 360).intersected(QRectF(72, 72, 451.28, 225.64))},
      {"its own size at 300 dpi", {600, 300}, 300, {{1, 1, 1, 1}, 0, false, false, false}, QRectF(72, 72, 144, 72)},
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

// vistrel-cli in a folder of its own, with these margins stored beside it, printing the
// sample to out.pdf there; the PDF, or nothing when it failed.
QString PrintWithMargins(const testing_support::TempFolder& folder, float margin, int units, const QStringList& more = {}) {
  QFile::copy(QStringLiteral(VISTREL_CLI_PATH), folder.File(QStringLiteral("vistrel-cli")));
  settings::SettingsStore stored = settings::DefaultSettings({});
  stored.PrintMargins = {margin, margin, margin, margin};
  stored.PrintUnits = units;
  settings::WriteSettingsFile(folder.File(QStringLiteral("Ini.in")), settings::WriteSettingsText(stored, {}, {}));
  const QString pdf = folder.File(QStringLiteral("out.pdf"));
  const QStringList words = QStringList{"print", QStringLiteral(VISTREL_SOURCE_DIR "/samples/landscape.jpg"), "--center", "--pdf", pdf} + more;
  return QProcess::execute(folder.File(QStringLiteral("vistrel-cli")), words) == 0 ? pdf : QString();
}

// Where the picture's left and right edges lie at mid-height, in points (at 72 dpi a pixel
// is a point), on a page poppler must read as A4.
std::pair<int, int> Edges(const testing_support::TempFolder& folder, const QString& pdf) {
  EXPECT_TRUE(testing_support::Run(QStringLiteral("pdfinfo"), {pdf}).Output.contains(QStringLiteral("595 x 842 pts (A4)")));
  QProcess::execute(QStringLiteral("pdftoppm"), {"-r", "72", "-png", "-singlefile", pdf, folder.File(QStringLiteral("page"))});
  const QImage page(folder.File(QStringLiteral("page.png")));
  int left = page.width(), right = -1;
  for (int x = 0; x < page.width(); ++x) {
    if (qGray(page.pixel(x, page.height() / 2)) >= 250) continue;
    left = std::min(left, x);
    right = std::max(right, x);
  }
  return {left, right + 1};
}

// Printed to a PDF, the picture's edges lie at the stored margins, in centimetres and in
// inches; copies asked are all in it; margins that leave no room print nothing.
TEST(Printing, TheEdgesLieAtTheStoredMarginsEveryCopyIsPrintedAndNoRoomIsRefused) {
  for (const auto& [margin, units, points] : {std::tuple(2.0f, 1, 56.69), std::tuple(1.0f, 0, 72.0)}) {
    testing_support::TempFolder folder;
    const auto [left, right] = Edges(folder, PrintWithMargins(folder, margin, units));
    EXPECT_NEAR(left, points, 1.0);
    EXPECT_NEAR(right, 595.28 - points, 1.0);
  }
  testing_support::TempFolder folder;
  const QString pdf = PrintWithMargins(folder, 1, 0, {"--copies", "3"});
  EXPECT_TRUE(testing_support::Run(QStringLiteral("pdfinfo"), {pdf}).Output.contains(QStringLiteral("Pages:           3")));
  QFile::remove(pdf);
  EXPECT_TRUE(PrintWithMargins(folder, 5, 0).isEmpty());  // 10 in of 8.3
  EXPECT_FALSE(QFile::exists(folder.File(QStringLiteral("out.pdf"))));
}

}  // namespace
