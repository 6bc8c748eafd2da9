#pragma once
// The eighteen dialog descriptions, exactly as the commands store them.

#include <QString>

#include <vector>

namespace edit {

struct CommandDescription {
  const char* Command;  // the menu command, e.g. "mnuColorsBrightness"
  QString Description;
};

const std::vector<CommandDescription>& DialogDescriptions();

// The description a command stores in DialogDescription; empty for an unknown command.
QString DialogDescriptionFor(const QString& command);

}  // namespace edit
