#pragma once
// Printing pictures one to a page through Qt Print Support: to a printer queue or a PDF.

#include "imaging/Image.h"
#include "print/PrintLayout.h"

#include <QString>

#include <functional>
#include <optional>
#include <vector>

class QPageSize;
class QPainter;
class QPrinter;

namespace print {

// Each page's picture, read when its page is printed; nothing for one that cannot be read
// (its page is left out).
using PageSource = std::function<std::optional<imaging::Image>()>;

// The page size in points of the printer's page layout, full page.
QSizeF PagePoints(const QPrinter& printer);

// Draws one picture as it will print on a page of `pagePoints` scaled into `painter`'s
// coordinates of `pixelsPerPoint` (the printer's own, or a preview's).
void DrawPage(QPainter& painter, const imaging::Image& picture, QSizeF pagePoints, double pixelsPerPoint,
              const PrintOptions& options);

// NoRoom when the margins leave no space on the page (nothing is printed); Failed when the
// printer could not start or no page had a picture. A PDF file holds every copy asked for,
// the pages in order for each, since a PDF printer makes one copy only.
enum class PrintOutcome { Printed, NoRoom, Failed };
PrintOutcome PrintPages(QPrinter& printer, const std::vector<PageSource>& pages, const PrintOptions& options);

// "the margins leave no room on the page"
QString NoRoomReason();

// The paper of the user's locale (Letter in the United States, A4 in most places), for a
// PDF, which has no printer to say.
QPageSize LocalePaper();

}  // namespace print
