// The folder's entries in the main window: the file list (clicks, keys, rename in place and
// its menu) and the Thumbnails view (pages of twelve filled off the UI thread, a click
// opening the entry and a double-click going full screen, the keys moving the highlighted
// tile, a renamed entry redrawn).
#include "browse/ThumbnailsView.h"
#include "files/FileOperations.h"
#include "support/DialogAnswerer.h"
#include "support/ImageCompare.h"
#include "support/MainWindowTest.h"
#include "view/frmFull.h"

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTreeView>
#include <QtTest/QTest>

#include <gtest/gtest.h>

namespace {

class frmMainListTest : public testing_support::MainWindowTest {
 protected:
  frmMainListTest() {
    pictures_.WritePng(QStringLiteral("a.png"));
    pictures_.WritePng(QStringLiteral("b.png"));
    Start(pictures_.Path());
    list_ = Child<QTreeView>("lisLista");
  }

  QPoint RowCentre(int row) const { return list_->visualRect(list_->model()->index(row, 0)).center(); }

  void EditRow(int row, const QString& text) {
    list_->edit(list_->model()->index(row, 0));
    auto* editor = list_->findChild<QLineEdit*>();
    ASSERT_NE(editor, nullptr);
    editor->setText(text);
    QTest::keyClick(editor, Qt::Key_Return);
    QCoreApplication::processEvents();  // the delegate commits through a queued call
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);  // and the editor goes
  }

  QTreeView* list_ = nullptr;
};

// A click on another entry opens it, unless Cancel to the save question keeps the shown one
// highlighted.
TEST_F(frmMainListTest, ClickingAnotherEntryOpensItUnlessTheSaveQuestionIsCancelled) {
  Trigger("mnuColorsNegative");
  {
    testing_support::DialogAnswerer answerer(QMessageBox::Cancel);
    QTest::mouseClick(list_->viewport(), Qt::LeftButton, {}, RowCentre(1));
    QCoreApplication::processEvents();
    EXPECT_EQ(answerer.Count(), 1);
  }
  EXPECT_EQ(std::tuple(Doc().ShownRow(), list_->currentIndex().row()), std::tuple(0, 0));
  EXPECT_EQ(list_->selectionModel()->selectedRows().value(0).row(), 0);
  testing_support::DialogAnswerer answerer(QMessageBox::No);
  QTest::mouseClick(list_->viewport(), Qt::LeftButton, {}, RowCentre(1));
  EXPECT_EQ(Doc().ShownRow(), 1);
  EXPECT_TRUE(Doc().ImageLoaded());
}

// An entry that does not open is stepped past in both directions, and says why in the view.
TEST_F(frmMainListTest, StepsGoOnPastAFileThatDoesNotOpen) {
  pictures_.WriteBytes(QStringLiteral("b2-empty.png"), "");
  pictures_.WritePng(QStringLiteral("c.png"));
  Doc().OpenChosenFolder(pictures_.Path());
  const QString names[] = {"a.png", "b.png", "b2-empty.png", "c.png", "b2-empty.png", "b.png"};
  const int steps[] = {0, 1, 1, 1, -1, -1};
  for (size_t i = 0; i < std::size(names); ++i) {
    Doc().Step(steps[i]);
    EXPECT_EQ(Doc().CurrentFilePath(), pictures_.File(names[i])) << i;
    EXPECT_EQ(list_->currentIndex().row(), Doc().ShownRow()) << i;
  }
  Doc().Step(1);
  const auto* message = Child<QLabel>("lblMessage");
  EXPECT_TRUE(message->isVisible());
  EXPECT_EQ(message->text(), QStringLiteral("b2-empty.png: Can't open file\nthe file is empty"));
  Doc().Step(1);
  EXPECT_FALSE(message->isVisible());
}

// Renaming in place follows the Rename dialog's rule: the base name is offered for
// typing, a lost extension is asked about and a forbidden character is refused with the
// program's message.
TEST_F(frmMainListTest, RenamingInPlaceFollowsTheRenameDialogsRule) {
  list_->setFocus();
  QTest::keyClick(list_, Qt::Key_F2);
  auto* editor = list_->findChild<QLineEdit*>();
  ASSERT_NE(editor, nullptr);
  QCoreApplication::processEvents();
  EXPECT_EQ(editor->selectedText(), QStringLiteral("a"));
  QTest::keyClick(editor, Qt::Key_Escape);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EditRow(0, QStringLiteral("z.png"));
  EXPECT_EQ(list_->model()->index(1, 0).data().toString(), QStringLiteral("z.png"));
  const std::tuple<const char*, QMessageBox::StandardButton, QString> refused[] = {
      {"b", QMessageBox::No, QStringLiteral("The file extension is different. Do you want to continue?")},
      {"b*.png", QMessageBox::Ok, files::ForbiddenNameMessage()},
  };
  for (const auto& [typed, answer, message] : refused) {
    testing_support::DialogAnswerer answerer(answer);
    EditRow(0, QLatin1String(typed));
    EXPECT_EQ(answerer.LastText(), message) << typed;
  }
  EXPECT_EQ(QDir(pictures_.Path()).entryList(QDir::Files), QStringList({"b.png", "z.png"}));
}

// View > Sort By reorders the list at once and remembers it; the entry shown stays shown.
TEST_F(frmMainListTest, SortByReordersTheListKeepingTheEntryShown) {
  pictures_.WritePng(QStringLiteral("c.png"), 80, 60);  // the largest file
  Doc().OpenChosenFolder(pictures_.Path());
  Doc().StepTo(1);  // b.png
  Trigger("mnuViewSortSize");
  Trigger("mnuViewSortDescending");
  EXPECT_EQ(list_->model()->index(0, 0).data().toString(), QStringLiteral("c.png"));
  EXPECT_EQ(std::pair(Doc().CurrentFilePath(), list_->currentIndex().data().toString()),
            std::pair(pictures_.File(QStringLiteral("b.png")), QStringLiteral("b.png")));
  EXPECT_EQ(std::pair(window_->State().Settings.SortOrder, bool(window_->State().Settings.SortDescending)), std::pair(3, true));
  EXPECT_TRUE(Command("mnuViewSortSize")->isChecked());
}

class frmMainThumbnailsTest : public testing_support::MainWindowTest {
 protected:
  frmMainThumbnailsTest() {
    for (int i = 0; i < 12; ++i) pictures_.WritePng(QStringLiteral("p%1.png").arg(i, 2, 10, QLatin1Char('0')), 40, 30);
    pictures_.WriteBytes(QStringLiteral("zz-broken.png"), "not a picture");
    Start(pictures_.Path());
    Trigger("mnuViewThumbnails");
    view_ = Child<browse::ThumbnailsView>("picFondoThumbnails");
  }
  bool Filled() { return QTest::qWaitFor([this] { return view_->PageComplete(); }, 10000); }
  QPoint CellCentre(int index) const {
    const browse::ThumbnailGeometry& g = view_->Geometry();
    return {(index % 4) * g.Cell.width() + g.Cell.width() / 2, browse::kPageStripPixels + (index / 4) * g.Cell.height() + g.Cell.height() / 2};
  }

  // A point inside the tile's highlight frame but outside its picture and captions.
  QColor TileCornerColour(int index) {
    const QPoint corner = CellCentre(index) - QPoint(view_->Geometry().Cell.width() / 2 - 8, view_->Geometry().Cell.height() / 2 - 8);
    return view_->grab().toImage().pixelColor(Child<QWidget>("picThumbnails")->mapTo(view_, corner));
  }

  browse::ThumbnailsView* view_ = nullptr;
};

TEST_F(frmMainThumbnailsTest, PagesOfTwelveFillWithPicturesAndCaptions) {
  EXPECT_TRUE(view_->isVisible());
  EXPECT_EQ(Pane("lblPagina"), QStringLiteral("Page 1 of 2"));
  ASSERT_TRUE(Filled());
  ASSERT_EQ(view_->Cells().size(), 12u);
  EXPECT_EQ(view_->Cells()[0].ImageSize, QSize(40, 30));
  const QSize picture = view_->Cells()[0].Picture.size();  // enlarged to fill its box, 4:3 kept
  EXPECT_EQ(picture.width(), view_->Geometry().Box.width());
  EXPECT_NEAR(picture.height() * 4.0 / 3, picture.width(), 2);
  QTest::mouseClick(Child<QPushButton>("picBoton(2)"), Qt::LeftButton);  // Next >
  EXPECT_EQ(Pane("lblPagina"), QStringLiteral("Page 2 of 2"));
  ASSERT_TRUE(Filled());
  ASSERT_EQ(view_->Cells().size(), 1u);
  EXPECT_TRUE(view_->Cells()[0].ImageSize.isEmpty());  // a file that does not open: no picture
  // Every picture went to the desktop's thumbnail cache, the failure too.
  const browse::ThumbnailCache cache = browse::ThumbnailCache::ForUser();
  const int side = browse::ThumbnailCache::SideFor(view_->Geometry().Box);
  EXPECT_TRUE(cache.Find(pictures_.File(QStringLiteral("p00.png")), side).has_value());
  EXPECT_TRUE(cache.IsKnownFailure(pictures_.File(QStringLiteral("zz-broken.png"))));
  QTest::mouseClick(Child<QPushButton>("picBoton(0)"), Qt::LeftButton);  // << First
  EXPECT_EQ(view_->Page(), 1);
  EXPECT_FALSE(Command("mnuColorsNegative")->isEnabled());  // no editing here
}

TEST_F(frmMainThumbnailsTest, TheKeysMoveTheHighlightedTileAndItsPageFollows) {
  QWidget* page = Child<QWidget>("picThumbnails");
  QTest::mouseClick(page, Qt::LeftButton, {}, CellCentre(5));  // a click opens the entry
  EXPECT_EQ(std::pair(Doc().ShownRow(), Child<QTreeView>("lisLista")->currentIndex().row()), std::pair(5, 5));
  EXPECT_NE(TileCornerColour(5), TileCornerColour(4));  // the current tile stands out
  EXPECT_EQ(TileCornerColour(4), TileCornerColour(7));
  const std::tuple<Qt::Key, int, int> steps[] = {
      {Qt::Key_Right, 6, 1}, {Qt::Key_Down, 10, 1}, {Qt::Key_Up, 6, 1}, {Qt::Key_PageDown, 12, 2},
      {Qt::Key_Home, 0, 1},  {Qt::Key_Left, 0, 1},  {Qt::Key_End, 12, 2},
  };
  for (const auto& [key, row, pageShown] : steps) {
    QTest::keyClick(view_, key);
    EXPECT_EQ(std::tuple(view_->CurrentRow(), view_->Page(), Child<QTreeView>("lisLista")->currentIndex().row()),
              std::tuple(row, pageShown, row)) << key;
  }
  QTest::keyClick(view_, Qt::Key_Home);
  EXPECT_EQ(Doc().CurrentFilePath(), pictures_.File(QStringLiteral("p00.png")));
  // Stepping in another view decodes no thumbnails; coming back shows the entry's page.
  Trigger("mnuViewListAndImage");
  Doc().StepTo(12);
  EXPECT_EQ(view_->Page(), 1);
  Trigger("mnuViewThumbnails");
  EXPECT_EQ(std::pair(view_->Page(), view_->CurrentRow()), std::pair(2, 12));
  QTest::keyClick(view_, Qt::Key_Home);
  int fullScreens = 0;
  window_->SetFullScreenRunner([&](view::frmFull&) { ++fullScreens; });
  QTest::keyClick(view_, Qt::Key_Return);
  QTest::mouseDClick(page, Qt::LeftButton, {}, CellCentre(6));
  EXPECT_EQ(std::pair(fullScreens, Doc().ShownRow()), std::pair(2, 6));
  // The right button makes the tile under the pointer current before its menu acts.
  QTest::mousePress(page, Qt::RightButton, {}, CellCentre(3));
  EXPECT_EQ(Doc().ShownRow(), 3);
  auto* menu = Child<QMenu>("mnuList");
  EXPECT_TRUE(menu->isVisible());
  menu->close();
}

// A page of photos whose colours are converted fills as any other: the conversions that
// the thumbnail workers ask for never wait on the workers' own threads.
TEST_F(frmMainThumbnailsTest, APageOfTaggedPhotosFills) {
  const QString first = pictures_.File(QStringLiteral("a00.jpg"));
  ASSERT_EQ(testing_support::Run(QStringLiteral("vips"),
                                 {"icc_transform", testing_support::CorpusPath(QStringLiteral("formats/hopper.jpg")), first,
                                  "/usr/share/color/icc/ghostscript/a98.icc", "--input-profile", "srgb"})
                .ExitCode, 0);
  for (int i = 1; i < 12; ++i) QFile::copy(first, pictures_.File(QStringLiteral("a%1.jpg").arg(i, 2, 10, QLatin1Char('0'))));
  Doc().OpenChosenFolder(pictures_.Path());
  Trigger("mnuViewThumbnails");
  EXPECT_TRUE(Filled());
  EXPECT_EQ(view_->Cells().at(11).ImageSize, QSize(128, 128));
}

}  // namespace
