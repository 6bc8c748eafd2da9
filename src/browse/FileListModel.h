#pragma once
// The data behind `lisLista`: one column "File", one row per listed file, in list order.
// A model/view list, so a folder of 100,000 files needs no widget per file.

#include "browse/FolderScan.h"

#include <QAbstractTableModel>

#include <functional>
#include <vector>

namespace browse {

class FileListModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  // Renames the file of a row to a new name; false cancels the edit.
  using RenameHandler = std::function<bool(int row, const QString& newName)>;

  using QAbstractTableModel::QAbstractTableModel;

  void SetEntries(std::vector<FileEntry> entries);
  void Clear() { SetEntries({}); }
  const std::vector<FileEntry>& Entries() const { return entries_; }
  const FileEntry& Entry(int row) const { return entries_.at(static_cast<size_t>(row)); }
  int Count() const { return static_cast<int>(entries_.size()); }

  // Replaces one entry and restores the list order; returns the entry's new row.
  int ReplaceAndResort(int row, FileEntry entry);
  // The row whose file has this real name, or -1.
  int RowOfFileName(const QString& fileName) const;

  void SetRenameHandler(RenameHandler handler) { rename_ = std::move(handler); }
  // Dragged out of the list, entries carry their files' URLs as a file manager's do (to
  // copy, move or link as the target and the keys held say); `path` gives a row's file.
  void SetPathOf(std::function<QString(int row)> path) { pathOf_ = std::move(path); }

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;
  QStringList mimeTypes() const override;
  QMimeData* mimeData(const QModelIndexList& indexes) const override;
  Qt::DropActions supportedDragActions() const override { return Qt::CopyAction | Qt::MoveAction | Qt::LinkAction; }

 private:
  std::vector<FileEntry> entries_;
  RenameHandler rename_;
  std::function<QString(int row)> pathOf_;
};

}  // namespace browse
