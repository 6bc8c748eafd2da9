// vistrel-cli's `apply` words: OPERATION [VALUE...] repeated, checked against the
// catalogue's parameters with a message naming the allowed range.
#include "edit/Catalogue.h"
#include "base/Texts.h"

#include <climits>
#include <cmath>

namespace edit {

namespace {

QString Compact(const char* name) { return QString::fromUtf8(name).remove(u' ').toLower(); }

const CatalogueCommand* ByName(const QString& word, int bits) {
  const QString wanted = word.toLower();
  for (const CatalogueCommand& c : Catalogue()) {
    if (c.Bits != bits) continue;
    if (Compact(c.UndoName) == wanted || (c.HasDialog() && Compact(c.DialogClass) == wanted)) return &c;
  }
  return nullptr;
}

QString Number(double value) { return QString::number(value, 'g', 12); }

QString RangeText(const Parameter& p) {
  if (p.Maximum >= INT_MAX) return Texts::tr("at least %1").arg(Number(p.Minimum));
  return Texts::tr("from %1 to %2").arg(Number(p.Minimum), Number(p.Maximum));
}

QString Usage(const QString& name, const CatalogueCommand& c) {
  QStringList parts;
  for (const Parameter& p : c.Parameters) parts << QStringLiteral("%1 (%2)").arg(QLatin1String(p.Name), RangeText(p));
  return Texts::tr("%1 takes %2 value(s): %3").arg(name).arg(c.Parameters.size()).arg(parts.join(QStringLiteral(", ")));
}

// One value: a number, whole unless the parameter is fractional, inside its range.
std::optional<QString> ReadValue(const QString& name, const Parameter& p, const QString& word, double& out) {
  bool ok = false;
  out = word.toDouble(&ok);
  if (!ok || !std::isfinite(out)) return Texts::tr("%1: \"%2\" is not a number").arg(name, word);
  if (!p.Fractional && out != std::round(out)) {
    return Texts::tr("%1: %2 must be a whole number, not %3").arg(name, QLatin1String(p.Name), word);
  }
  if (out < p.Minimum || out > p.Maximum) {
    return Texts::tr("%1: %2 must be %3, not %4").arg(name, QLatin1String(p.Name), RangeText(p), word);
  }
  return std::nullopt;
}

QString KnownNames() {
  QStringList names;
  for (const CatalogueCommand& c : Catalogue()) {
    const QString name = QString::fromUtf8(c.HasDialog() ? c.DialogClass : c.UndoName).remove(u' ');
    if (!names.contains(name)) names << name;
  }
  return names.join(QStringLiteral(", "));
}

}  // namespace

OperationChain ParseOperationChain(const QStringList& words) {
  OperationChain chain;
  int i = 0;
  const auto fail = [&chain](const QString& error) {
    chain.Steps.clear();
    chain.Error = error;
    return chain;
  };
  while (i < words.size()) {
    const QString name = words[i++];
    int bits = 0;
    if (name.compare(QLatin1String("ColorDepth"), Qt::CaseInsensitive) == 0) {
      bits = i < words.size() ? words[i++].toInt() : 0;
      if (bits != 1 && bits != 4 && bits != 8 && bits != 24) return fail(Texts::tr("ColorDepth takes 1 value: bits (1, 4, 8 or 24)"));
    }
    const CatalogueCommand* command = ByName(name, bits);
    if (!command) return fail(Texts::tr("Unknown operation \"%1\"; known: %2").arg(name, KnownNames()));
    OperationStep step{command, {}};
    if (i + static_cast<int>(command->Parameters.size()) > words.size()) return fail(Usage(name, *command));
    for (const Parameter& p : command->Parameters) {
      double value = 0;
      if (const auto error = ReadValue(name, p, words[i++], value)) return fail(*error);
      step.Values.push_back(value);
    }
    chain.Steps.push_back(step);
  }
  if (chain.Steps.empty()) return fail(Texts::tr("No operation given; known: %1").arg(KnownNames()));
  return chain;
}

std::optional<imaging::BlockEdit> BlockEditOf(const std::vector<OperationStep>& steps, QSize picture) {
  imaging::BlockEdit edit(picture);
  for (const OperationStep& step : steps) {
    const auto blocks = BlockStepOf(*step.Command, step.Values);
    if (!blocks) return std::nullopt;
    edit = edit.Then(*blocks);
  }
  return edit;
}

}  // namespace edit
