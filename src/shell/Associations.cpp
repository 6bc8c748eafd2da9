#include "shell/Associations.h"

#include <algorithm>
#include <cctype>

namespace shell {

namespace {

const std::string kFolderEntry = "HKEY_CLASSES_ROOT\\Folder\\shell\\openwithvistrel";
const std::string kOwnPrefix = "vistrel.";

std::string TrimmedLower(const std::string& text) {
  const auto first = text.find_first_not_of(' ');
  if (first == std::string::npos) return {};
  std::string result = text.substr(first, text.find_last_not_of(' ') - first + 1);
  std::transform(result.begin(), result.end(), result.begin(), [](unsigned char c) { return char(std::tolower(c)); });
  return result;
}

std::string JoinPath(const std::string& folder, const std::string& name) {
  return !folder.empty() && folder.back() == '\\' ? folder + name : folder + '\\' + name;
}

bool IsOurs(const std::string& progId) { return TrimmedLower(progId).rfind(kOwnPrefix, 0) == 0; }

std::string FileExtsKey(const std::string& extension) {
  return "HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\FileExts\\." + extension;
}

std::string ClassesKey(const std::string& extension) { return "HKEY_CLASSES_ROOT\\." + extension; }

// The key and the value that hold the extension's current owner, and where its earlier one is kept.
struct Choice {
  std::string Key, Value, Backup;
};

Choice ChoiceOf(const ShellProgram& program, const std::string& extension) {
  if (program.WindowsXpOrLater) return {FileExtsKey(extension), "ProgID", "ProgIDBeforeVistrel"};
  return {ClassesKey(extension), "", "DefaultBeforeVistrel"};
}

}  // namespace

std::string ShellProgram::Command() const { return "\"" + JoinPath(Folder, FileName + ".exe") + "\" \"%1\""; }

bool FolderEntryExists(Registry& registry) { return RegKeyExists(registry, kFolderEntry); }

void AddFolderEntry(Registry& registry, const ShellProgram& program) {
  RegEnsureKey(registry, "HKEY_CLASSES_ROOT\\Folder\\shell");
  RegEnsureKey(registry, kFolderEntry);
  RegSetStringValue(registry, kFolderEntry, "", "&Open with Vistrel");
  RegEnsureKey(registry, kFolderEntry + "\\command");
  RegSetStringValue(registry, kFolderEntry + "\\command", "", program.Command());
}

// The command key goes first: a key that still has subkeys cannot be deleted.
void RemoveFolderEntry(Registry& registry) {
  if (!FolderEntryExists(registry)) return;
  RegDeleteSubKey(registry, kFolderEntry, "command");
  RegDeleteSubKey(registry, "HKEY_CLASSES_ROOT\\Folder\\shell", "openwithvistrel");
}

void RegisterFileType(Registry& registry, const ShellProgram& program, const std::string& extensionAsGiven,
                      const std::string& iconFileName, const std::string& description) {
  const std::string extension = TrimmedLower(extensionAsGiven);
  const std::string progId = "Vistrel." + extension;
  const std::string classKey = "HKEY_CLASSES_ROOT\\" + progId;
  const bool showsItself = extension == "cur" || extension == "ico";
  RegEnsureKey(registry, classKey);
  RegSetStringValue(registry, classKey, "", description);
  RegEnsureKey(registry, classKey + "\\DefaultIcon");
  RegSetStringValue(registry, classKey + "\\DefaultIcon", "", showsItself ? "%1" : JoinPath(program.Folder, iconFileName));
  for (const char* below : {"\\shell", "\\shell\\open", "\\shell\\open\\command"}) RegEnsureKey(registry, classKey + below);
  RegSetStringValue(registry, classKey + "\\shell\\open\\command", "", program.Command());
  const Choice choice = ChoiceOf(program, extension);
  RegEnsureKey(registry, choice.Key);
  const std::string previous = RegGetStringValue(registry, choice.Key, choice.Value);
  RegSetStringValue(registry, choice.Key, choice.Value, progId);
  if (!IsOurs(previous)) RegSetStringValue(registry, choice.Key, choice.Backup, previous);
  registry.NotifyAssociationsChanged();
}

void UnregisterFileType(Registry& registry, const ShellProgram& program, const std::string& extensionAsGiven) {
  const std::string extension = TrimmedLower(extensionAsGiven);
  const Choice choice = ChoiceOf(program, extension);
  if (!IsAssociated(registry, program, extension)) {
    if (program.WindowsXpOrLater) RegDeleteNamedValue(registry, choice.Key, choice.Backup);
    return;
  }
  const std::string previous = RegGetStringValue(registry, choice.Key, choice.Backup);
  if (!program.WindowsXpOrLater || !previous.empty()) {
    RegSetStringValue(registry, choice.Key, choice.Value, previous);
  } else {
    RegDeleteNamedValue(registry, choice.Key, choice.Value);
  }
  RegDeleteNamedValue(registry, choice.Key, choice.Backup);
  registry.NotifyAssociationsChanged();
}

bool IsAssociated(Registry& registry, const ShellProgram& program, const std::string& extension) {
  const Choice choice = ChoiceOf(program, TrimmedLower(extension));
  return IsOurs(RegGetStringValue(registry, choice.Key, choice.Value));
}

}  // namespace shell
