// Files dropped on the real main window as file managers hand them over (a text/uri-list,
// percent-encoded, CRLF-separated, as Nautilus and Dolphin write it), and what Copy and
// Copy Path give other programs.
#include "files/FileDialogs.h"
#include "support/DialogAnswerer.h"
#include "support/MainWindowTest.h"

#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QMimeData>
#include <QTreeView>

#include <memory>

namespace {

class frmMainExchangeTest : public testing_support::MainWindowTest {
 protected:
  frmMainExchangeTest() {
    for (const char* name : {"a b.png", "c.png", "d.png"}) pictures_.WritePng(QLatin1String(name));
    config_.WritePng(QStringLiteral("elsewhere.png"));
    Start(config_.File(QStringLiteral("elsewhere.png")));
  }
  // Drags `uriList` over the window and drops it; whether the window took it.
  bool Drop(const QByteArray& uriList) {
    QMimeData data;
    data.setData(QStringLiteral("text/uri-list"), uriList);
    const QPointF middle = QPointF(window_->rect().center());
    QDragEnterEvent enter(middle.toPoint(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window_.get(), &enter);
    if (!enter.isAccepted()) return false;
    QDropEvent drop(middle, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window_.get(), &drop);
    return drop.isAccepted();
  }
  QByteArray Uri(const char* name) const { return QUrl::fromLocalFile(pictures_.File(QLatin1String(name))).toEncoded() + "\r\n"; }
  QStringList Listed() const {
    QStringList names;
    for (int row = 0; row < window_->ListModel().Count(); ++row) names << window_->ListModel().Entry(row).FileName;
    return names;
  }
};

TEST_F(frmMainExchangeTest, AFolderAFileOrSeveralFilesDroppedOpenAsTheyShouldAndAnEntryDraggedOutIsItsFile) {
  EXPECT_FALSE(Drop("https://example.org/a.png\r\n"));
  EXPECT_TRUE(Drop(QUrl::fromLocalFile(pictures_.Path()).toEncoded() + "\r\n"));
  EXPECT_EQ(std::pair(Doc().View(), Listed()), std::pair(document::ViewMode::ListAndImage, QStringList({"a b.png", "c.png", "d.png"})));
  const QAbstractItemModel* list = Child<QTreeView>("lisLista")->model();  // an entry dragged out is its file
  const std::unique_ptr<QMimeData> dragged(list->mimeData({list->index(1, 0)}));
  EXPECT_EQ(dragged->urls(), QList<QUrl>{QUrl::fromLocalFile(pictures_.File(QStringLiteral("c.png")))});
  EXPECT_TRUE(Drop(Uri("d.png")));
  EXPECT_EQ(std::pair(Doc().Open().File, Doc().View()), std::pair(pictures_.File(QStringLiteral("d.png")), document::ViewMode::Image));
  EXPECT_TRUE(Drop(Uri("a b.png") + Uri("d.png")));
  EXPECT_EQ(Listed(), QStringList({"a b.png", "d.png"}));
  EXPECT_EQ(Doc().CurrentFilePath(), pictures_.File(QStringLiteral("a b.png")));
}

TEST_F(frmMainExchangeTest, CopyGivesThePictureAndTheFileAndCopyPathThePath) {
  Trigger("mnuEditCopy");
  const QMimeData* copied = QGuiApplication::clipboard()->mimeData();
  EXPECT_EQ(qvariant_cast<QImage>(copied->imageData()).size(), QSize(8, 6));
  EXPECT_EQ(copied->urls(), QList<QUrl>{QUrl::fromLocalFile(config_.File(QStringLiteral("elsewhere.png")))});
  Trigger("mnuColorsNegative");  // an edited picture is no longer the file
  Trigger("mnuEditCopy");
  EXPECT_TRUE(QGuiApplication::clipboard()->mimeData()->urls().isEmpty());
  Trigger("mnuEditCopyPath");
  EXPECT_EQ(QGuiApplication::clipboard()->text(), config_.File(QStringLiteral("elsewhere.png")));
}

// A picture on the clipboard opens as a new unnamed image that leaving asks about; Yes saves
// it under the name Save As gets. Files copied in a file manager paste as if dropped.
TEST_F(frmMainExchangeTest, APastedPictureIsSavedUnderTheNameSaveAsGetsAndPastedFilesOpen) {
  QImage red(20, 10, QImage::Format_RGB32);
  red.fill(Qt::red);
  QGuiApplication::clipboard()->setImage(red);
  Trigger("mnuEditPaste");
  EXPECT_EQ(std::pair(Shown().Width(), window_->windowTitle()), std::pair(20, QStringLiteral("Pasted image* - Vistrel")));
  fileAnswer_ = {pictures_.File(QStringLiteral("red")), files::SaveAsFilterIndex(QStringLiteral("png"))};
  {
    testing_support::DialogAnswerer yes(QMessageBox::Yes);
    EXPECT_TRUE(window_->close());
    EXPECT_EQ(yes.LastText(), QStringLiteral("'Pasted image' has changed. Do you want to save changes?"));
  }
  EXPECT_EQ(QImage(pictures_.File(QStringLiteral("red.png"))).pixelColor(5, 5), QColor(Qt::red));
  EXPECT_EQ(std::pair(Doc().Open().File, Doc().IsChanged()), std::pair(pictures_.File(QStringLiteral("red.png")), false));
  auto* copied = new QMimeData;
  copied->setData(QStringLiteral("text/uri-list"), Uri("c.png"));
  copied->setData(QStringLiteral("x-special/gnome-copied-files"), "copy\n" + Uri("c.png").trimmed());
  QGuiApplication::clipboard()->setMimeData(copied);
  Trigger("mnuEditPaste");
  EXPECT_EQ(Doc().Open().File, pictures_.File(QStringLiteral("c.png")));
}

}  // namespace
