#pragma once
// A registry in memory with the rules of the real one that the algorithms depend on: a
// value needs its key, and a key that still has subkeys cannot be deleted.
#include "shell/Registry.h"

#include <map>
#include <set>
#include <string>

namespace testing_support {

class MemoryRegistry : public shell::Registry {
 public:
  using Name = std::pair<shell::RootKey, std::string>;

  bool OpenKey(const shell::KeyPath& key) override { return keys_.count(Of(key)) != 0; }
  bool CreateKey(const shell::KeyPath& key) override {
    std::string path;
    for (std::size_t start = 0; start <= key.SubKey.size();) {
      const std::size_t end = std::min(key.SubKey.find('\\', start), key.SubKey.size());
      path = key.SubKey.substr(0, end);
      keys_.insert({key.Root, path});
      start = end + 1;
    }
    return true;
  }
  bool DeleteKey(const shell::KeyPath& parent, const std::string& name) override {
    const Name key{parent.Root, parent.SubKey + '\\' + name};
    if (!keys_.count(key)) return false;
    for (const Name& other : keys_) {
      if (other.first == key.first && other.second.rfind(key.second + '\\', 0) == 0) return false;
    }
    keys_.erase(key);
    std::erase_if(values_, [&](const auto& entry) { return entry.first.first == key; });
    return true;
  }
  bool DeleteValue(const shell::KeyPath& key, const std::string& name) override { return values_.erase({Of(key), name}) != 0; }
  bool SetString(const shell::KeyPath& key, const std::string& name, const std::string& text) override {
    if (!OpenKey(key)) return false;
    values_[{Of(key), name}] = text;
    return true;
  }
  std::optional<std::string> GetString(const shell::KeyPath& key, const std::string& name) override {
    const auto found = values_.find({Of(key), name});
    return found == values_.end() ? std::nullopt : std::optional(found->second);
  }
  void NotifyAssociationsChanged() override { ++notified_; }

  bool HasValue(const std::string& path, const std::string& name) {
    const auto key = shell::SplitKeyPath(path);
    return key && values_.count({Of(*key), name});
  }
  int Notified() const { return notified_; }
  std::size_t KeyCount() const { return keys_.size(); }

 private:
  static Name Of(const shell::KeyPath& key) { return {key.Root, key.SubKey}; }
  std::set<Name> keys_;
  std::map<std::pair<Name, std::string>, std::string> values_;
  int notified_ = 0;
};

}  // namespace testing_support
