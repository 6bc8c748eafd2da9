// The parameter dialog on the offscreen platform, driven by real key and mouse events, and
// its preview off the UI thread: a fresh reduced copy, the operation with the current
// values, and only the latest request shown.
#include "edit/Catalogue.h"
#include "edit/DialogDescriptions.h"
#include "edit/PreviewRenderer.h"
#include "edit/frmDiseno.h"
#include "support/DialogAnswerer.h"
#include "widgets/Help.h"

#include <QAtomicInt>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>
#include <QThread>
#include <QtTest/QTest>

#include <gtest/gtest.h>

namespace {

using testing_support::Child;
using testing_support::Retype;
using edit::frmDiseno;

const edit::DialogContext k800x600{800 * 15, 600 * 15, 15, 15};

QString Description(edit::OperationId command) { return edit::DialogDescriptionFor(command); }

// Every dialog lays its controls out inside its window, clear of OK and Cancel.
TEST(frmDiseno, EveryDialogKeepsItsControlsInsideAndClearOfItsButtons) {
  for (const auto& entry : edit::DialogDescriptions()) {
    SCOPED_TRACE(edit::CommandFor(entry.Command).Command);
    frmDiseno dialog(entry.Description, k800x600, std::nullopt, {});
    const QRect ok = Child<QPushButton>(dialog, "cmdAceptar")->geometry();
    const QRect cancel = Child<QPushButton>(dialog, "cmdCancelar")->geometry();
    EXPECT_LT(ok.right(), cancel.left());
    int checked = 0;
    for (QWidget* control : dialog.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
      if (control->isWindow()) continue;
      ++checked;
      EXPECT_TRUE(dialog.rect().contains(control->geometry())) << control->objectName().toStdString();
      if (control->geometry() == ok || control->geometry() == cancel) continue;
      EXPECT_FALSE(control->geometry().intersects(ok) || control->geometry().intersects(cancel))
          << control->objectName().toStdString();
    }
    EXPECT_GT(checked, 2);  // the buttons and at least one control of the description
  }
}

TEST(frmDiseno, ResizeRefusesOutside1To2048WithTheTextSelected) {
  frmDiseno dialog(Description(edit::OperationId::Resize), k800x600, std::nullopt, {});
  dialog.show();
  auto* width = Child<QLineEdit>(dialog, "txtTexto(3)");
  for (const auto& [typed, message] : {std::pair{"2049", "Please enter a value smaller than 2049"},
                                       std::pair{"0", "Please enter a value greater than zero"}}) {
    Retype(width, QLatin1String(typed));
    testing_support::DialogAnswerer answerer;
    QTest::keyClick(width, Qt::Key_Return);
    EXPECT_EQ(answerer.LastText(), QLatin1String(message));
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(width->selectedText(), QLatin1String(typed));
  }
  Retype(width, QStringLiteral("2048"));
  QTest::keyClick(width, Qt::Key_Return);
  EXPECT_EQ(dialog.result(), QDialog::Accepted);
  EXPECT_EQ(dialog.Values().Number(4), 1536);
}

imaging::Image Solid(int width, int height, QColor color) {
  QImage image(width, height, QImage::Format_RGB32);
  image.fill(color);
  return imaging::Image::FromQImage(image);
}

// Paints the whole image with red = the first value, slowly, and counts its runs.
edit::Operation SlowMarker(QAtomicInt& runs) {
  return [&runs](const imaging::Image& image, const edit::DialogValues& values) {
    runs.fetchAndAddRelaxed(1);
    QThread::msleep(30);
    return Solid(image.Width(), image.Height(), QColor(values.Number(1) & 0xFF, 0, 0));
  };
}

edit::DialogValues WithNumber(int value) { return edit::DialogValues{{value}, 0, {}}; }

TEST(PreviewRenderer, ShowsOnlyTheLatestOfManyRequests) {
  QAtomicInt runs;
  edit::PreviewRenderer renderer(Solid(20, 10, Qt::white), SlowMarker(runs));
  QImage last;
  int shown = 0;
  QObject::connect(&renderer, &edit::PreviewRenderer::Rendered, [&](const QImage& image) {
    last = image;
    ++shown;
  });
  for (int value = 1; value <= 20; ++value) renderer.Request(WithNumber(value));
  ASSERT_TRUE(QTest::qWaitFor([&] { return renderer.IsIdle() && shown > 0; }, 5000));
  EXPECT_EQ(QColor(last.pixel(3, 3)).red(), 20);
  EXPECT_LT(runs.loadRelaxed(), 20);  // requests overtaken by a later one never run
}

TEST(frmDisenoPreview, ShowsTheOperationOnACopyReducedToThePanel) {
  QAtomicInt runs;
  const imaging::Image photo = Solid(800, 600, Qt::white);
  frmDiseno dialog(Description(edit::OperationId::Solarize), k800x600, photo, SlowMarker(runs));
  dialog.show();
  auto* preview = dialog.findChild<QLabel*>(QStringLiteral("picPreview"));
  ASSERT_TRUE(QTest::qWaitFor([&] { return dialog.PreviewIdle() && !preview->pixmap().isNull(); }, 5000));
  const QImage first = preview->pixmap().toImage();
  EXPECT_LE(first.width(), preview->width());
  EXPECT_EQ(first.width() * 600, first.height() * 800);
  EXPECT_EQ(QColor(first.pixel(5, 5)).red(), 0);  // the slider starts at 0
  QTest::keyClick(dialog.findChild<QSlider*>(QStringLiteral("sliControl(1)")), Qt::Key_End);
  ASSERT_TRUE(QTest::qWaitFor([&] { return dialog.PreviewIdle() && QColor(preview->pixmap().toImage().pixel(5, 5)).red() == 255; }, 5000));
  EXPECT_EQ(photo.Width(), 800);  // effects never touch the source
}

}  // namespace
