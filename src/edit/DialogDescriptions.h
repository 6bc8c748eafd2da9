#pragma once
// The eighteen dialog descriptions, exactly as the commands store them.

#include "edit/OperationId.h"

#include <QString>

#include <vector>

namespace edit {

struct CommandDescription {
  OperationId Command;
  QString Description;
};

const std::vector<CommandDescription>& DialogDescriptions();

// The description a command stores in DialogDescription; empty for a command without a dialog.
QString DialogDescriptionFor(OperationId command);

}  // namespace edit
