#pragma once
// The slide show list file: the folder, the rows in show order with their check marks,
// the four options, the advance mode and the seconds per image. One value a line, CR LF.
// Three generations are read ("Vistrel 6.2 SlideShow", "SlideShow50", "SlideShow"); the
// current one is written.

#include <QByteArray>
#include <QLocale>
#include <QString>

#include <optional>
#include <vector>

namespace slideshow {

struct SlideShowRow {
  QString Name;  // the file name, without the folder
  bool Checked = true;
  bool operator==(const SlideShowRow&) const = default;
};

// What a list file holds. Reading a file that ends early leaves the values it never
// reached unset, so the dialog keeps what it showed for them.
struct SlideShowList {
  QString Folder;
  std::vector<SlideShowRow> Rows;
  std::optional<bool> Random, Repeat, FitToWindow, ShowFileName;
  std::optional<bool> ManualAdvance;
  std::optional<QString> Seconds;  // as the seconds box shows it, in the user's locale
};

// The seconds box's text read in the user's locale and rounded to one decimal (a half
// rounds up); nullopt when it is not a number.
std::optional<double> SecondsFromText(const QString& text, const QLocale& locale);

// A list file is read whole, so a larger one, or one naming more files than a folder
// sensibly holds, is refused as unreadable rather than filling memory and the dialog.
inline constexpr qsizetype kLargestListFile = qsizetype(4) << 20;
inline constexpr int kMostListRows = 100000;

// Nullopt for a file whose first line is none of the three headers, or one over the caps.
std::optional<SlideShowList> ReadSlideShowText(const QByteArray& bytes, const QLocale& locale);

// The current generation. The names go in Windows-1252 when every one fits in it (so the
// lists open in older programs too), otherwise in UTF-8. Nullopt when the folder or a name
// holds a line break or bytes that are not text: a list of lines cannot name that file.
std::optional<QByteArray> WriteSlideShowText(const SlideShowList& list, const QLocale& locale);

// Seconds read from a list are kept within what the seconds box takes.
inline constexpr double kMostSeconds = 9999.9;

}  // namespace slideshow
