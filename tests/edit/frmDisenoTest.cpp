// frmDiseno on the offscreen platform, driven by real key and mouse events.
#include "widgets/Help.h"
#include "edit/DialogDescriptions.h"
#include "edit/frmDiseno.h"
#include "support/DialogAnswerer.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>
#include <QtTest/QTest>

#include <gtest/gtest.h>

namespace {

using edit::frmDiseno;

const edit::DialogContext k800x600{800 * 15, 600 * 15, 15, 15};

QString Description(const char* command) { return edit::DialogDescriptionFor(QLatin1String(command)); }

template <typename T>
T* Child(QWidget& dialog, const char* name) {
  return dialog.findChild<T*>(QLatin1String(name));
}

void Retype(QLineEdit* box, const QString& text) {
  box->setFocus();
  box->selectAll();
  QTest::keyClick(box, Qt::Key_Delete);
  QTest::keyClicks(box, text);
}

TEST(frmDiseno, BuildsBrightnessWhereItsDescriptionSays) {
  frmDiseno dialog(Description("mnuColorsBrightness"), k800x600, std::nullopt, {});
  EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Brightness"));
  auto* box = Child<QLineEdit>(dialog, "txtTexto(1)");
  auto* slider = Child<QSlider>(dialog, "sliControl(1)");
  ASSERT_NE(box, nullptr);
  ASSERT_NE(slider, nullptr);
  EXPECT_EQ(box->geometry().topLeft(), QPoint(8, 24));
  EXPECT_EQ(box->width(), 32);
  EXPECT_EQ(slider->geometry().topLeft(), QPoint(48, 24));
  EXPECT_EQ(slider->width(), 128);
  EXPECT_EQ(slider->tickInterval(), 50);
  EXPECT_EQ(box->text(), QStringLiteral("0"));
  EXPECT_EQ(Child<QLabel>(dialog, "lblLetras(3)")->text(), QStringLiteral("100"));
  EXPECT_EQ(Child<QLabel>(dialog, "lblLetras(1)")->buddy(), box);
  EXPECT_EQ(Child<QWidget>(dialog, "picPreview")->pos(), QPoint(192, 8));
  auto* ok = Child<QPushButton>(dialog, "cmdAceptar");
  auto* cancel = Child<QPushButton>(dialog, "cmdCancelar");
  EXPECT_EQ(cancel->geometry().right() + 1, dialog.width() - 8);
  EXPECT_EQ(ok->geometry().right() + 1, cancel->x() - 8);
  EXPECT_EQ(cancel->geometry().bottom() + 1, dialog.height() - 8);
}

TEST(frmDiseno, TheKeyFilterDiscardsLettersAndPassesSigns) {
  frmDiseno dialog(Description("mnuColorsBrightness"), k800x600, std::nullopt, {});
  dialog.show();
  auto* box = Child<QLineEdit>(dialog, "txtTexto(1)");
  Retype(box, QStringLiteral("-a3x"));
  EXPECT_EQ(box->text(), QStringLiteral("-3"));
  EXPECT_EQ(Child<QSlider>(dialog, "sliControl(1)")->value(), -3);
}

TEST(frmDiseno, EnterActsAsOkAndEscapeAsCancel) {
  frmDiseno dialog(Description("mnuColorsBrightness"), k800x600, std::nullopt, {});
  dialog.show();
  QTest::keyClick(Child<QLineEdit>(dialog, "txtTexto(1)"), Qt::Key_Return);
  EXPECT_EQ(dialog.result(), QDialog::Accepted);
  EXPECT_FALSE(dialog.isVisible());
  frmDiseno other(Description("mnuColorsBrightness"), k800x600, std::nullopt, {});
  other.show();
  QTest::keyClick(Child<QLineEdit>(other, "txtTexto(1)"), Qt::Key_Escape);
  EXPECT_EQ(other.result(), QDialog::Rejected);
}

TEST(frmDiseno, ClosingByTheWindowFrameIsCancel) {
  frmDiseno dialog(Description("mnuImageSwirl"), k800x600, std::nullopt, {});
  dialog.show();
  dialog.close();
  EXPECT_EQ(dialog.result(), QDialog::Rejected);
}

TEST(frmDiseno, OkWithAnEmptyBoxAsksForAValueAndStaysOpen) {
  frmDiseno dialog(Description("mnuColorsBrightness"), k800x600, std::nullopt, {});
  dialog.show();
  auto* box = Child<QLineEdit>(dialog, "txtTexto(1)");
  Retype(box, QString());
  EXPECT_EQ(Child<QSlider>(dialog, "sliControl(1)")->value(), -100);
  testing_support::DialogAnswerer answerer;
  QTest::mouseClick(Child<QPushButton>(dialog, "cmdAceptar"), Qt::LeftButton);
  EXPECT_EQ(answerer.LastText(), QStringLiteral("Please enter a value"));
  EXPECT_EQ(answerer.LastTitle(), QStringLiteral("Brightness"));
  EXPECT_TRUE(dialog.isVisible());
  EXPECT_NE(dialog.result(), QDialog::Accepted);
}

TEST(frmDiseno, ResizeRefuses2049WithTheTextSelectedAndAccepts2048) {
  frmDiseno dialog(Description("mnuImageResize"), k800x600, std::nullopt, {});
  dialog.show();
  auto* width = Child<QLineEdit>(dialog, "txtTexto(3)");
  EXPECT_FALSE(Child<QLineEdit>(dialog, "txtTexto(1)")->isEnabled());
  Retype(width, QStringLiteral("400"));
  EXPECT_EQ(Child<QLineEdit>(dialog, "txtTexto(4)")->text(), QStringLiteral("300"));
  Retype(width, QStringLiteral("2049"));
  {
    testing_support::DialogAnswerer answerer;
    QTest::keyClick(width, Qt::Key_Return);
    EXPECT_EQ(answerer.LastText(), QStringLiteral("Please enter a value smaller than 2049"));
  }
  EXPECT_TRUE(dialog.isVisible());
  EXPECT_EQ(width->selectedText(), QStringLiteral("2049"));
  Retype(width, QStringLiteral("2048"));
  QTest::keyClick(width, Qt::Key_Return);
  EXPECT_EQ(dialog.result(), QDialog::Accepted);
  EXPECT_EQ(dialog.Values().Number(4), 1536);
}

TEST(frmDiseno, F1AsksForTheMenuGroupsHelpTopic) {
  QString asked;
  widgets::SetHelpHandler([&](const QString& topic) { asked = topic; });
  frmDiseno dialog(Description("mnuImageFiltersNoise"), k800x600, std::nullopt, {});
  dialog.show();
  QTest::keyClick(&dialog, Qt::Key_F1);
  widgets::SetHelpHandler({});
  EXPECT_EQ(asked, QStringLiteral("Image Filters"));
}

}  // namespace
