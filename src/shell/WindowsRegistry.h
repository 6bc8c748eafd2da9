#pragma once
// The registry interface on the Windows registry (advapi32), the shell's change
// notification, the system version check and the desktop wallpaper. Windows only.

#include "shell/Registry.h"

namespace shell {

class WindowsRegistry : public Registry {
 public:
  bool OpenKey(const KeyPath& key) override;
  bool CreateKey(const KeyPath& key) override;
  bool DeleteKey(const KeyPath& parent, const std::string& name) override;
  bool DeleteValue(const KeyPath& key, const std::string& name) override;
  bool SetString(const KeyPath& key, const std::string& name, const std::string& text) override;
  std::optional<std::string> GetString(const KeyPath& key, const std::string& name) override;
  void NotifyAssociationsChanged() override;
};

// NT 5.1 or later (major 6 and up, or 5 with minor 1 and up).
bool IsWindowsXpOrLater();

// The desktop wallpaper from a bitmap file (UTF-8 path); an empty path removes it.
void SetWindowsWallpaper(const std::string& path);

}  // namespace shell
