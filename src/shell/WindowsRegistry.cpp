#include "shell/WindowsRegistry.h"

#include <windows.h>
#include <shlobj.h>

#include <vector>

namespace shell {

namespace {

constexpr REGSAM kAllAccess = 0xF003F;
constexpr REGSAM kWrite = 0x20006;

std::wstring Wide(const std::string& text) {
  if (text.empty()) return {};
  const int size = MultiByteToWideChar(CP_UTF8, 0, text.data(), int(text.size()), nullptr, 0);
  std::wstring wide(size_t(size), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, text.data(), int(text.size()), wide.data(), size);
  return wide;
}

std::string Narrow(const std::wstring& wide) {
  if (wide.empty()) return {};
  const int size = WideCharToMultiByte(CP_UTF8, 0, wide.data(), int(wide.size()), nullptr, 0, nullptr, nullptr);
  std::string text(size_t(size), '\0');
  WideCharToMultiByte(CP_UTF8, 0, wide.data(), int(wide.size()), text.data(), size, nullptr, nullptr);
  return text;
}

HKEY Root(const KeyPath& key) { return reinterpret_cast<HKEY>(static_cast<ULONG_PTR>(static_cast<LONG>(key.Root))); }

// The key opened with `access`, closed with the object.
class OpenedKey {
 public:
  OpenedKey(const KeyPath& key, REGSAM access) {
    if (RegOpenKeyExW(Root(key), Wide(key.SubKey).c_str(), 0, access, &handle_) != ERROR_SUCCESS) handle_ = nullptr;
  }
  ~OpenedKey() {
    if (handle_) RegCloseKey(handle_);
  }
  OpenedKey(const OpenedKey&) = delete;
  OpenedKey& operator=(const OpenedKey&) = delete;
  HKEY Handle() const { return handle_; }

 private:
  HKEY handle_ = nullptr;
};

}  // namespace

bool WindowsRegistry::OpenKey(const KeyPath& key) { return OpenedKey(key, kAllAccess).Handle() != nullptr; }

bool WindowsRegistry::CreateKey(const KeyPath& key) {
  HKEY handle = nullptr;
  if (RegCreateKeyExW(Root(key), Wide(key.SubKey).c_str(), 0, nullptr, 0, kAllAccess, nullptr, &handle, nullptr) !=
      ERROR_SUCCESS) {
    return false;
  }
  RegCloseKey(handle);
  return true;
}

bool WindowsRegistry::DeleteKey(const KeyPath& parent, const std::string& name) {
  const OpenedKey opened(parent, kAllAccess);
  return opened.Handle() && RegDeleteKeyW(opened.Handle(), Wide(name).c_str()) == ERROR_SUCCESS;
}

bool WindowsRegistry::DeleteValue(const KeyPath& key, const std::string& name) {
  const OpenedKey opened(key, kAllAccess);
  return opened.Handle() && RegDeleteValueW(opened.Handle(), Wide(name).c_str()) == ERROR_SUCCESS;
}

bool WindowsRegistry::SetString(const KeyPath& key, const std::string& name, const std::string& text) {
  const OpenedKey opened(key, kWrite);
  if (!opened.Handle()) return false;
  const std::wstring data = Wide(text);
  const auto bytes = DWORD((data.size() + 1) * sizeof(wchar_t));
  return RegSetValueExW(opened.Handle(), Wide(name).c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(data.c_str()), bytes) ==
         ERROR_SUCCESS;
}

std::optional<std::string> WindowsRegistry::GetString(const KeyPath& key, const std::string& name) {
  const OpenedKey opened(key, KEY_READ);
  if (!opened.Handle()) return std::nullopt;
  DWORD type = 0, bytes = 0;
  const std::wstring value = Wide(name);
  if (RegQueryValueExW(opened.Handle(), value.c_str(), nullptr, &type, nullptr, &bytes) != ERROR_SUCCESS || type != REG_SZ) {
    return std::nullopt;
  }
  std::vector<wchar_t> buffer(bytes / sizeof(wchar_t) + 1, L'\0');
  if (RegQueryValueExW(opened.Handle(), value.c_str(), nullptr, nullptr, reinterpret_cast<BYTE*>(buffer.data()), &bytes) !=
      ERROR_SUCCESS) {
    return std::nullopt;
  }
  return Narrow(std::wstring(buffer.data(), wcsnlen(buffer.data(), buffer.size())));  // cut at its length
}

void WindowsRegistry::NotifyAssociationsChanged() { SHChangeNotify(SHCNE_ASSOCCHANGED, SHCNF_IDLIST, nullptr, nullptr); }

bool IsWindowsXpOrLater() {
  OSVERSIONINFOA version{};
  version.dwOSVersionInfoSize = sizeof version;  // 148
  if (!GetVersionExA(&version)) return false;
  return version.dwPlatformId == VER_PLATFORM_WIN32_NT &&
         (version.dwMajorVersion >= 6 || (version.dwMajorVersion == 5 && version.dwMinorVersion >= 1));
}

void SetWindowsWallpaper(const std::string& path) {
  std::wstring wide = Wide(path);
  SystemParametersInfoW(SPI_SETDESKWALLPAPER, 0, wide.data(), SPIF_UPDATEINIFILE | SPIF_SENDWININICHANGE);
}

}  // namespace shell
