// The registry algorithms on a registry in memory: the folder entry, and each image type
// taken over and given back on both kinds of Windows.
#include "shell/Associations.h"
#include "shell/MemoryRegistry.h"

#include <gtest/gtest.h>

namespace {

using shell::RegGetStringValue;
using testing_support::MemoryRegistry;

const std::string kFileExts = "HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\FileExts\\.";

TEST(Registry, KeyPathsNeedAKnownRoot) {
  EXPECT_EQ(shell::SplitKeyPath("HKEY_CURRENT_USER\\Software\\X")->Root, 0x80000001u);
  EXPECT_EQ(shell::SplitKeyPath("HKEY_DYN_DATA\\A")->SubKey, "A");
  EXPECT_FALSE(shell::SplitKeyPath("HKEY_NOWHERE\\A").has_value());
  EXPECT_FALSE(shell::SplitKeyPath("Software\\HKEY_CURRENT_USER").has_value());
  MemoryRegistry registry;
  shell::RegEnsureKey(registry, "Folder\\shell");  // no root: nothing happens
  EXPECT_EQ(registry.KeyCount(), 0u);
}

TEST(FolderEntry, AddedOnceRemovedCommandFirst) {
  MemoryRegistry registry;
  const shell::ShellProgram program{"C:\\Program Files\\Vistrel", "Vistrel"};
  shell::RemoveFolderEntry(registry);  // absent: nothing
  shell::AddFolderEntry(registry, program);
  shell::AddFolderEntry(registry, program);
  const std::string entry = "HKEY_CLASSES_ROOT\\Folder\\shell\\openwithvistrel";
  EXPECT_TRUE(shell::FolderEntryExists(registry));
  EXPECT_EQ(RegGetStringValue(registry, entry, ""), "&Open with Vistrel");
  EXPECT_EQ(RegGetStringValue(registry, entry + "\\command", ""), "\"C:\\Program Files\\Vistrel\\Vistrel.exe\" \"%1\"");
  shell::RemoveFolderEntry(registry);
  EXPECT_FALSE(shell::FolderEntryExists(registry));
  EXPECT_TRUE(shell::RegKeyExists(registry, "HKEY_CLASSES_ROOT\\Folder\\shell"));
}

// Where the extension's owner lives on each kind of Windows, and what a type given back
// leaves there.
TEST(FileTypes, TakenOverAndGivenBack) {
  struct Case {
    const char* what;
    bool xp;
    std::string previous;  // the owner before Vistrel; empty for none
    bool ownerAfterIsAValue;
  };
  const Case cases[] = {
      {"XP, another owner", true, "Photos.jpg", true}, {"XP, no owner: the value goes", true, "", false},
      {"2000, another owner", false, "jpegfile", true}, {"2000, no owner: an empty default", false, "", true}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    MemoryRegistry registry;
    const shell::ShellProgram program{"C:\\Vistrel\\", "vistrel", c.xp};
    const std::string key = c.xp ? kFileExts + "jpg" : "HKEY_CLASSES_ROOT\\.jpg";
    const std::string value = c.xp ? "ProgID" : "";
    if (!c.previous.empty()) {
      shell::RegEnsureKey(registry, key);
      shell::RegSetStringValue(registry, key, value, c.previous);
    }
    shell::RegisterFileType(registry, program, " JPG ", "Icon002.ico", "Jpeg image");
    shell::RegisterFileType(registry, program, "jpg", "Icon002.ico", "Jpeg image");  // the backup stays the first owner
    EXPECT_TRUE(shell::IsAssociated(registry, program, "jpg"));
    EXPECT_EQ(RegGetStringValue(registry, key, value), "Vistrel.jpg");
    EXPECT_EQ(RegGetStringValue(registry, key, c.xp ? "ProgIDBeforeVistrel" : "DefaultBeforeVistrel"), c.previous);
    EXPECT_EQ(RegGetStringValue(registry, "HKEY_CLASSES_ROOT\\Vistrel.jpg\\DefaultIcon", ""), "C:\\Vistrel\\Icon002.ico");
    EXPECT_EQ(RegGetStringValue(registry, "HKEY_CLASSES_ROOT\\Vistrel.jpg\\shell\\open\\command", ""),
              "\"C:\\Vistrel\\vistrel.exe\" \"%1\"");
    shell::UnregisterFileType(registry, program, "jpg");
    EXPECT_FALSE(shell::IsAssociated(registry, program, "jpg"));
    EXPECT_EQ(registry.HasValue(key, value), c.ownerAfterIsAValue);
    EXPECT_EQ(RegGetStringValue(registry, key, value), c.previous);
    EXPECT_EQ(registry.Notified(), 3);
  }
}

TEST(FileTypes, AnotherOwnersTypeIsLeftAloneAndIconsShowThemselves) {
  MemoryRegistry registry;
  const shell::ShellProgram program{"C:\\Vistrel", "Vistrel", true};
  shell::RegEnsureKey(registry, kFileExts + "png");
  shell::RegSetStringValue(registry, kFileExts + "png", "ProgID", "Paint.png");
  shell::RegSetStringValue(registry, kFileExts + "png", "ProgIDBeforeVistrel", "stale");
  shell::UnregisterFileType(registry, program, "png");
  EXPECT_EQ(RegGetStringValue(registry, kFileExts + "png", "ProgID"), "Paint.png");
  EXPECT_FALSE(registry.HasValue(kFileExts + "png", "ProgIDBeforeVistrel"));
  EXPECT_EQ(registry.Notified(), 0);
  shell::RegisterFileType(registry, program, "ico", "Icon000.ico", "Icon");
  EXPECT_EQ(RegGetStringValue(registry, "HKEY_CLASSES_ROOT\\Vistrel.ico\\DefaultIcon", ""), "%1");
}

}  // namespace
