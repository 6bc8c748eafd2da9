#include "browse/FileListModel.h"

#include <QMimeData>
#include <QUrl>

namespace browse {

void FileListModel::SetEntries(std::vector<FileEntry> entries) {
  beginResetModel();
  entries_ = std::move(entries);
  endResetModel();
}

int FileListModel::ReplaceAndResort(int row, FileEntry entry) {
  const QString fileName = entry.FileName;
  std::vector<FileEntry> entries = entries_;
  entries.at(static_cast<size_t>(row)) = std::move(entry);
  SortEntries(entries);
  layoutAboutToBeChanged();
  entries_ = std::move(entries);
  layoutChanged();
  return RowOfFileName(fileName);
}

int FileListModel::RowOfFileName(const QString& fileName) const {
  for (size_t i = 0; i < entries_.size(); ++i) {
    if (entries_[i].FileName == fileName) return static_cast<int>(i);
  }
  return -1;
}

int FileListModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : Count(); }

int FileListModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : 1; }

QVariant FileListModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || index.row() >= Count()) return {};
  if (role == Qt::DisplayRole) return Entry(index.row()).DisplayName;
  if (role == Qt::EditRole) return Entry(index.row()).FileName;  // the editor starts from the real name
  return {};
}

QVariant FileListModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (section == 0 && orientation == Qt::Horizontal && role == Qt::DisplayRole) return tr("File");
  return {};
}

Qt::ItemFlags FileListModel::flags(const QModelIndex& index) const {
  if (!index.isValid()) return Qt::NoItemFlags;
  const Qt::ItemFlags dragged = pathOf_ ? Qt::ItemIsDragEnabled : Qt::NoItemFlags;
  return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsEditable | Qt::ItemNeverHasChildren | dragged;
}

QStringList FileListModel::mimeTypes() const { return {QStringLiteral("text/uri-list")}; }

QMimeData* FileListModel::mimeData(const QModelIndexList& indexes) const {
  if (!pathOf_) return nullptr;
  QList<QUrl> urls;
  for (const QModelIndex& index : indexes) {
    if (!index.isValid()) continue;
    const QUrl url = QUrl::fromLocalFile(pathOf_(index.row()));
    if (!urls.contains(url)) urls << url;
  }
  auto* files = new QMimeData;
  files->setUrls(urls);
  return files;
}

bool FileListModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (!index.isValid() || role != Qt::EditRole || !rename_) return false;
  return rename_(index.row(), value.toString());
}

}  // namespace browse
