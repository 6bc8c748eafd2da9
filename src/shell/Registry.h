#pragma once
// The registry access layer, written once in plain C++ over a small registry interface
// (the Windows registry through advapi32, or an in-memory one). Keys are named by full
// textual paths, "HKEY_CLASSES_ROOT\Folder"; a path whose root is unknown makes every
// operation do nothing. Failures are never reported: a failed write changes nothing.

#include <cstdint>
#include <optional>
#include <string>

namespace shell {

// The predefined root handles, 0x80000000 for HKEY_CLASSES_ROOT onwards.
using RootKey = std::uint32_t;

struct KeyPath {
  RootKey Root = 0;
  std::string SubKey;
};

// Splits at the first backslash; the part before it must be a known "HKEY_" root name.
std::optional<KeyPath> SplitKeyPath(const std::string& fullPath);

// What a registry offers: the operations advapi32 has, on a root and a subkey path.
class Registry {
 public:
  virtual ~Registry() = default;
  virtual bool OpenKey(const KeyPath& key) = 0;    // true when the key exists and opens with all access
  virtual bool CreateKey(const KeyPath& key) = 0;  // creates the key and the keys above it, or opens it
  virtual bool DeleteKey(const KeyPath& parent, const std::string& name) = 0;  // fails while it has subkeys
  virtual bool DeleteValue(const KeyPath& key, const std::string& name) = 0;
  virtual bool SetString(const KeyPath& key, const std::string& name, const std::string& text) = 0;  // the key must exist
  virtual std::optional<std::string> GetString(const KeyPath& key, const std::string& name) = 0;
  // Tells the shell that file associations changed.
  virtual void NotifyAssociationsChanged() = 0;
};

bool RegKeyExists(Registry& registry, const std::string& path);
void RegEnsureKey(Registry& registry, const std::string& path);
void RegDeleteSubKey(Registry& registry, const std::string& parentPath, const std::string& name);
void RegDeleteNamedValue(Registry& registry, const std::string& path, const std::string& name);
void RegSetStringValue(Registry& registry, const std::string& path, const std::string& name, const std::string& text);
// The string stored there; empty when the key or the value is missing.
std::string RegGetStringValue(Registry& registry, const std::string& path, const std::string& name);

}  // namespace shell
