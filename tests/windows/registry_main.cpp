// The registry algorithms on Windows' own registry, run under Wine: the same cases as the
// in-memory suite, for the branch this Windows version takes. A small test main (no test
// framework in the cross build); `wine reg query` then judges what stayed in the registry.
#include "shell/Associations.h"
#include "shell/WindowsRegistry.h"

#include <cstdio>
#include <string>

namespace {

int passed = 0, failed = 0;

void Check(bool ok, const char* what) {
  ok ? ++passed : ++failed;
  if (!ok) std::printf("FAILED: %s\n", what);
}

const std::string kFileExts = "HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\FileExts\\.";

}  // namespace

int main() {
  shell::WindowsRegistry registry;
  const bool xp = shell::IsWindowsXpOrLater();
  std::printf("windows_xp_or_later: %d\n", xp ? 1 : 0);
  const shell::ShellProgram program{"C:\\Program Files\\Vistrel", "Vistrel", xp};
  const std::string key = xp ? kFileExts + "png" : "HKEY_CLASSES_ROOT\\.png";
  const std::string value = xp ? "ProgID" : "";
  const std::string backup = xp ? "ProgIDBeforeVistrel" : "DefaultBeforeVistrel";

  shell::RegEnsureKey(registry, key);
  shell::RegSetStringValue(registry, key, value, "Paint.png");
  shell::RegisterFileType(registry, program, "PNG", "Icon000.ico", "Png image");
  shell::RegisterFileType(registry, program, "png", "Icon000.ico", "Png image");
  Check(shell::IsAssociated(registry, program, "png"), "png is Vistrel's");
  Check(shell::RegGetStringValue(registry, key, backup) == "Paint.png", "the first owner is kept once");
  shell::UnregisterFileType(registry, program, "png");
  Check(shell::RegGetStringValue(registry, key, value) == "Paint.png", "png goes back to its owner");

  shell::RemoveFolderEntry(registry);
  shell::AddFolderEntry(registry, program);
  shell::AddFolderEntry(registry, program);
  Check(shell::FolderEntryExists(registry), "the folder entry is there");
  shell::RemoveFolderEntry(registry);
  Check(!shell::FolderEntryExists(registry), "the folder entry is gone, command key first");
  Check(shell::RegKeyExists(registry, "HKEY_CLASSES_ROOT\\Folder\\shell"), "the shell key stays");

  // Left in place for the outside judge.
  shell::RegisterFileType(registry, program, "jpg", "Icon000.ico", "Jpeg image");
  shell::AddFolderEntry(registry, program);
  Check(shell::IsAssociated(registry, program, "jpg"), "jpg is Vistrel's");
  std::printf("windows registry: %d passed, %d failed\n", passed, failed);
  return failed == 0 ? 0 : 1;
}
