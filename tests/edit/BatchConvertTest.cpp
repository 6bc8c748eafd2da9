// Converting many files at once: the names a pattern gives, a plan that never writes over a
// file unasked, a run whose files ImageMagick reads, whose failures say why and which,
// stopped, leaves only whole files; and the dialog a user runs it from.
#include "edit/BatchConvert.h"
#include "edit/frmBatch.h"
#include "support/DialogAnswerer.h"
#include "support/TestFiles.h"

#include <QCheckBox>
#include <QComboBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QtTest/QTest>

#include <QDir>

#include <gtest/gtest.h>

namespace {

using edit::WhenExists;

TEST(BatchNames, PatternsGiveNamesAndBadOnesSayWhy) {
  const struct {
    const char* pattern;
    const char* name;  // for the third file, photo.JPG, written as webp
    const char* problem;
  } cases[] = {{"{name}.{ext}", "photo.webp", ""},
               {"{n:03}-{name}.{ext}", "003-photo.webp", ""},
               {"small {n}.{ext}", "small 3.webp", ""},
               {"{date}.{ext}", nullptr, "an unknown field {date}"},
               {"{name.{ext}", nullptr, "a { without its } or a } without its {"},
               {"a/{name}", nullptr, "a name cannot hold /"}};
  for (const auto& c : cases) {
    EXPECT_EQ(edit::PatternProblem(QLatin1String(c.pattern)), QLatin1String(c.problem)) << c.pattern;
    if (c.name) {
      EXPECT_EQ(edit::NameFromPattern(QLatin1String(c.pattern), QStringLiteral("/in/photo.JPG"), 2, QStringLiteral("webp")), QLatin1String(c.name));
    }
  }
}

TEST(BatchPlan, NoFileIsWrittenOverUnasked) {
  testing_support::TempFolder out;
  out.WriteBytes(QStringLiteral("a.webp"), "mine");
  const struct {
    WhenExists existing;
    QStringList outputs;  // for a.jpg, a.png (both a.webp) and b.jpg; empty: skipped
  } cases[] = {{WhenExists::Skip, {"", "", "b.webp"}},
               {WhenExists::Rename, {"a (2).webp", "a (3).webp", "b.webp"}},
               {WhenExists::Replace, {"a.webp", "a (2).webp", "b.webp"}}};
  for (const auto& c : cases) {
    edit::BatchOrder order;
    order.Inputs = {"/in/a.jpg", "/in/a.png", "/in/b.jpg"};
    order.OutputFolder = out.Path();
    order.Format = QStringLiteral("webp");
    order.Existing = c.existing;
    QStringList outputs;
    for (const edit::PlannedFile& file : edit::PlanBatch(order)) outputs << QFileInfo(file.Output).fileName();
    EXPECT_EQ(outputs, c.outputs) << int(c.existing);
  }
}

class BatchRun : public ::testing::Test {
 protected:
  BatchRun() {
    for (int i = 0; i < 6; ++i) order_.Inputs << in_.WritePng(QStringLiteral("p%1.png").arg(i), 400, 300);
    order_.Inputs.insert(2, in_.WriteBytes(QStringLiteral("broken.png"), "not a picture"));
    order_.OutputFolder = out_.Path();
    order_.Format = QStringLiteral("jpg");
    order_.Fit = QSize(100, 100);
    order_.Jobs = 2;
  }
  // Each file in the output folder, hidden ones too, as ImageMagick reads its size.
  QStringList WrittenSizes(QString folder = {}) const {
    if (folder.isEmpty()) folder = out_.Path();
    QStringList sizes;
    for (const QString& name : QDir(folder).entryList(QDir::Files | QDir::Hidden)) {
      sizes << testing_support::Run(QStringLiteral("identify"), {"-format", "%wx%h", folder + u'/' + name}).Output;
    }
    return sizes;
  }
  testing_support::TempFolder in_, out_;
  edit::BatchOrder order_;
};

TEST_F(BatchRun, WritesEveryFileFittedAndReportsTheOneThatFailed) {
  std::atomic_bool stop{false};
  int calls = 0;
  const edit::BatchReport report = edit::RunBatch(order_, edit::PlanBatch(order_), [&](const edit::BatchProgress& p) {
    EXPECT_EQ(p.Total, 7);
    EXPECT_EQ(p.Done, ++calls);
  }, stop);
  EXPECT_EQ(report.Written, 6);
  ASSERT_EQ(report.Failures.size(), 1u);
  EXPECT_EQ(report.Failures[0].Input, order_.Inputs[2]);
  EXPECT_EQ(report.Failures[0].Reason, QStringLiteral("not an image this program reads"));
  EXPECT_EQ(WrittenSizes(), QStringList(6, QStringLiteral("100x75")));
}

TEST_F(BatchRun, StoppedItLeavesOnlyWholeFiles) {
  std::atomic_bool stop{false};
  order_.Jobs = 1;
  const edit::BatchReport report =
      edit::RunBatch(order_, edit::PlanBatch(order_), [&](const edit::BatchProgress& p) { stop = p.Done == 2; }, stop);
  EXPECT_EQ(report.Written, 2);
  EXPECT_EQ(report.NotStarted, 5);
  EXPECT_EQ(WrittenSizes(), QStringList(2, QStringLiteral("100x75")));  // no part of a third
}

// The dialog as a user fills it: a bad operation is refused with its reason before anything
// is written; then the folder's images, its subfolder's too, are converted and reported.
TEST_F(BatchRun, TheDialogConvertsTheFolderAndReports) {
  QDir(in_.Path()).mkdir(QStringLiteral("more"));
  in_.WritePng(QStringLiteral("more/q.png"), 200, 100);
  QDir(in_.Path()).mkdir(QStringLiteral("converted"));
  in_.WritePng(QStringLiteral("converted/p0.png"), 10, 10);  // last time's output is not converted again
  edit::frmBatch dialog(in_.Path());
  using testing_support::Child;
  Child<QCheckBox>(dialog, "chkSubfolders")->setChecked(true);
  Child<QComboBox>(dialog, "cboFormat")->setCurrentIndex(Child<QComboBox>(dialog, "cboFormat")->findData(QStringLiteral("jpg")));
  Child<QCheckBox>(dialog, "chkFit")->setChecked(true);
  testing_support::Retype(Child<QLineEdit>(dialog, "txtOperations"), QStringLiteral("Sepia"));
  {
    testing_support::DialogAnswerer answerer;
    QTest::mouseClick(Child<QPushButton>(dialog, "cmdStart"), Qt::LeftButton);
    EXPECT_TRUE(answerer.LastText().startsWith(QStringLiteral("Unknown operation \"Sepia\"")));
  }
  const QString converted = in_.File(QStringLiteral("converted"));
  EXPECT_EQ(Child<QLineEdit>(dialog, "txtOutput")->text(), converted);
  EXPECT_EQ(WrittenSizes(converted), QStringList{"10x10"});
  testing_support::Retype(Child<QLineEdit>(dialog, "txtOperations"), QStringLiteral("Negative"));
  QTest::mouseClick(Child<QPushButton>(dialog, "cmdStart"), Qt::LeftButton);
  auto* report = Child<QPlainTextEdit>(dialog, "txtReport");
  ASSERT_TRUE(QTest::qWaitFor([&] { return report->isVisibleTo(&dialog); }, 20000));
  EXPECT_TRUE(report->toPlainText().endsWith(QStringLiteral("broken.png: not an image this program reads\n7 written, 0 skipped, 1 failed")));
  QStringList sizes = WrittenSizes(converted);
  sizes.sort();
  EXPECT_EQ(sizes, QStringList({"10x10", "200x100", "400x300", "400x300", "400x300", "400x300", "400x300", "400x300"}));  // none enlarged
}

}  // namespace
