#pragma once
// What `picEstado` says: the file's name, its place in the folder ("7 / 120"), the page
// of a file of several ("page 2/5") or the frame of an animation ("frame 3/12"), the image's size ("w x h"), the zoom ("25%") and the
// file's size, or a command's message alone. Plain text from plain facts, so it is tested without a window.

#include <QString>

#include <optional>

namespace document {

struct StatusFacts {
  QString Message;            // a command's message; when set, nothing else is shown
  QString DisplayName;        // empty when no image is shown
  int Row = -1;               // the entry shown in the list, -1 when none
  int Count = 0;              // entries in the list
  int Width = 0, Height = 0;  // the image's pixels
  int Percentage = 100;
  int Page = 0, Pages = 1;    // the page shown (0 the first) of the file's pages
  int Frame = 0, Frames = 1;  // the frame shown (0 the first) of an animation's frames
  std::optional<qint64> FileBytes;  // the file on disk; none for an unsaved or missing file
};

struct StatusTexts {
  QString Name, Position, Page, Size, Zoom, FileSize;
};

StatusTexts ComposeStatus(const StatusFacts& facts);

// "512 bytes", "1.5 KB", "340 KB", "2.4 MB", "1,204 MB": three significant figures at most.
QString FormatFileSize(qint64 bytes);

}  // namespace document
