#pragma once
// Making Vistrel the shell's viewer of chosen image types, and the "&Open with Vistrel"
// entry on folders, through the registry access layer. Each extension's earlier owner is
// kept beside Vistrel's claim and given back when the type is unticked.

#include "shell/Registry.h"

#include <string>

namespace shell {

struct ShellProgram {
  std::string Folder;    // the program's folder
  std::string FileName;  // the program's own name, without ".exe"
  // Where the per-extension choice lives: the user's FileExts key from Windows XP on,
  // the extension's key of HKEY_CLASSES_ROOT before.
  bool WindowsXpOrLater = true;

  // "\"C:\\Program Files\\Vistrel\\Vistrel.exe\" \"%1\""
  std::string Command() const;
};

bool FolderEntryExists(Registry& registry);
void AddFolderEntry(Registry& registry, const ShellProgram& program);
void RemoveFolderEntry(Registry& registry);

void RegisterFileType(Registry& registry, const ShellProgram& program, const std::string& extension,
                      const std::string& iconFileName, const std::string& description);
void UnregisterFileType(Registry& registry, const ShellProgram& program, const std::string& extension);
bool IsAssociated(Registry& registry, const ShellProgram& program, const std::string& extension);

}  // namespace shell
