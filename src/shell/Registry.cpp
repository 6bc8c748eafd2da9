#include "shell/Registry.h"

#include <array>
#include <utility>

namespace shell {

namespace {

const std::array<std::pair<const char*, RootKey>, 7> kRoots = {{
    {"HKEY_CLASSES_ROOT", 0x80000000},
    {"HKEY_CURRENT_USER", 0x80000001},
    {"HKEY_LOCAL_MACHINE", 0x80000002},
    {"HKEY_USERS", 0x80000003},
    {"HKEY_PERFORMANCE_DATA", 0x80000004},
    {"HKEY_CURRENT_CONFIG", 0x80000005},
    {"HKEY_DYN_DATA", 0x80000006},
}};

}  // namespace

std::optional<KeyPath> SplitKeyPath(const std::string& fullPath) {
  const std::size_t slash = fullPath.find('\\');
  const std::string root = fullPath.substr(0, slash);
  if (root.rfind("HKEY_", 0) != 0) return std::nullopt;
  for (const auto& [name, handle] : kRoots) {
    if (root == name) return KeyPath{handle, slash == std::string::npos ? std::string() : fullPath.substr(slash + 1)};
  }
  return std::nullopt;
}

bool RegKeyExists(Registry& registry, const std::string& path) {
  const auto key = SplitKeyPath(path);
  return key && registry.OpenKey(*key);
}

void RegEnsureKey(Registry& registry, const std::string& path) {
  if (const auto key = SplitKeyPath(path)) registry.CreateKey(*key);
}

void RegDeleteSubKey(Registry& registry, const std::string& parentPath, const std::string& name) {
  if (const auto parent = SplitKeyPath(parentPath); parent && registry.OpenKey(*parent)) registry.DeleteKey(*parent, name);
}

void RegDeleteNamedValue(Registry& registry, const std::string& path, const std::string& name) {
  if (const auto key = SplitKeyPath(path)) registry.DeleteValue(*key, name);
}

void RegSetStringValue(Registry& registry, const std::string& path, const std::string& name, const std::string& text) {
  if (const auto key = SplitKeyPath(path)) registry.SetString(*key, name, text);
}

std::string RegGetStringValue(Registry& registry, const std::string& path, const std::string& name) {
  const auto key = SplitKeyPath(path);
  if (!key) return {};
  return registry.GetString(*key, name).value_or(std::string());
}

}  // namespace shell
