// frmZoom on the offscreen platform, typed into as a user would.
#include "widgets/Help.h"
#include "support/DialogAnswerer.h"
#include "view/frmZoom.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest/QTest>

#include <gtest/gtest.h>

namespace {

QLineEdit* Box(view::frmZoom& dialog) { return dialog.findChild<QComboBox*>(QStringLiteral("cboZoom"))->lineEdit(); }

void Retype(QLineEdit* box, const QString& text) {
  box->selectAll();
  QTest::keyClick(box, Qt::Key_Delete);
  QTest::keyClicks(box, text);
}

// Typed as a user types: into the combo box, which forwards the keys to its text.
TEST(frmZoom, RefusesLettersAndASeventhCharacterHoweverTheyArrive) {
  view::frmZoom dialog(100);
  dialog.show();
  auto* combo = dialog.findChild<QComboBox*>(QStringLiteral("cboZoom"));
  for (const auto& [typed, kept] : {std::pair{"ab0150%x", "0150%"}, std::pair{"12345678", "123456"}}) {
    Box(dialog)->selectAll();
    QTest::keyClicks(combo, QLatin1String(typed));
    EXPECT_EQ(Box(dialog)->text(), QLatin1String(kept)) << typed;
  }
}

TEST(frmZoom, OutOfRangeValuesAreRefusedAndEnterAcceptsTheLeadingNumber) {
  view::frmZoom dialog(100);
  dialog.show();
  Retype(Box(dialog), QStringLiteral("5"));  // never completed to "50%"
  testing_support::DialogAnswerer answerer;
  QTest::mouseClick(dialog.findChild<QPushButton*>(QStringLiteral("cmdAceptar")), Qt::LeftButton);
  EXPECT_EQ(answerer.LastText(), QStringLiteral("Please enter a value between 10% and 1000%"));
  EXPECT_EQ(answerer.LastTitle(), QStringLiteral("Zoom Functions"));
  EXPECT_TRUE(dialog.isVisible());
  EXPECT_EQ(Box(dialog)->selectedText(), QStringLiteral("5"));
  Retype(Box(dialog), QStringLiteral("0150%"));  // Enter accepts the leading number
  QTest::keyClick(Box(dialog), Qt::Key_Return);
  EXPECT_EQ(dialog.result(), QDialog::Accepted);
  EXPECT_EQ(dialog.Value(), 150);
}

}  // namespace
