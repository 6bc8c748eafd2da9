// Arbitrary text as a dialog description: parsing never crashes or hangs, and the model
// is always well formed (indices 1, 2, 3 per kind, tab indices in clause order, OK and
// Cancel last).
#include "edit/DialogDescription.h"

#include <cstdint>
#include <cstdlib>
#include <map>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const QString text = QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
  const edit::DialogLayout layout = edit::ParseDialogDescription(text);
  std::map<edit::ControlKind, int> counts;
  int tab = 0;
  for (const edit::DialogControl& control : layout.Controls) {
    if (control.Index != ++counts[control.Kind] || control.TabIndex != tab++) std::abort();
  }
  if (layout.OkTabIndex != tab || layout.CancelTabIndex != tab + 1) std::abort();
  return 0;
}
