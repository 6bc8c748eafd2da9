#include "app/CliPrint.h"

#include "app/CliOutput.h"

#include "imaging/Loader.h"
#include "print/Printing.h"
#include "settings/SettingsFile.h"

#include <QPageSize>
#include <QPrinter>
#include <QPrinterInfo>

#include <cstdio>

namespace cli {

namespace {

struct PrintRequest {
  QStringList Files;
  QString Printer, Pdf;
  int Copies = 1;
  print::PrintOptions Options;
};

std::optional<PrintRequest> ParseWords(const QStringList& words) {
  PrintRequest request;
  request.Options.CenterHorizontally = request.Options.CenterVertically = false;
  for (qsizetype i = 0; i < words.size(); ++i) {
    const QString& word = words[i];
    const bool hasValue = i + 1 < words.size();
    if (word == QLatin1String("--printer") && hasValue) {
      request.Printer = words[++i];
    } else if (word == QLatin1String("--pdf") && hasValue) {
      request.Pdf = words[++i];
    } else if (word == QLatin1String("--copies") && hasValue) {
      bool ok = false;
      request.Copies = words[++i].toInt(&ok);
      if (!ok || request.Copies < 1 || request.Copies > 999) return std::nullopt;
    } else if (word == QLatin1String("--fit") || word == QLatin1String("--original")) {
      request.Options.FitToPage = word == QLatin1String("--fit");
    } else if (word == QLatin1String("--center")) {
      request.Options.CenterHorizontally = request.Options.CenterVertically = true;
    } else if (word.startsWith(QLatin1String("--"))) {
      return std::nullopt;
    } else {
      request.Files << word;
    }
  }
  if (request.Files.isEmpty() || (!request.Printer.isEmpty() && !request.Pdf.isEmpty())) return std::nullopt;
  return request;
}

}  // namespace

int Print(const QStringList& words, const QString& settingsPath) {
  auto request = ParseWords(words);
  if (!request) {
    Complain(QStringLiteral("usage: vistrel-cli print FILE... [--printer NAME | --pdf OUT.pdf] [--copies N] "
                            "[--fit | --original] [--center]"));
    return 2;
  }
  settings::SettingsStore stored = settings::DefaultSettings({});
  settings::ReadSettingsFile(settingsPath, {}, stored);
  request->Options.Margins = stored.PrintMargins;
  request->Options.Units = stored.PrintUnits;
  std::vector<print::PageSource> pages;
  for (const QString& file : request->Files) {
    auto picture = imaging::LoadFile(file);
    if (!picture) {
      Complain(QStringLiteral("Can't open file: %1").arg(file));
      return 1;
    }
    pages.push_back([picture] { return picture; });
  }
  QPrinter printer(QPrinter::HighResolution);
  if (!request->Pdf.isEmpty()) {
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setPageSize(print::LocalePaper());
    printer.setOutputFileName(request->Pdf);
  } else {
    printer.setPrinterName(request->Printer.isEmpty() ? QPrinterInfo::defaultPrinterName() : request->Printer);
  }
  printer.setCopyCount(request->Copies);
  switch (print::PrintPages(printer, pages, request->Options)) {
    case print::PrintOutcome::Printed: return 0;
    case print::PrintOutcome::NoRoom: Complain(QStringLiteral("Can't print: %1").arg(print::NoRoomReason())); return 1;
    case print::PrintOutcome::Failed: break;
  }
  Complain(QStringLiteral("Can't print: %1").arg(request->Pdf.isEmpty() ? printer.printerName() : request->Pdf));
  return 1;
}

}  // namespace cli
