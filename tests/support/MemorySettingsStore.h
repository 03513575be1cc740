// A settings store that lives as long as its test.
#pragma once

#include <map>
#include <string>
#include <string_view>

#include "platform/SettingsStore.h"

class MemorySettingsStore : public SettingsStore {
 public:
  std::string Get(std::string_view application, std::string_view section, std::string_view key) override {
    const auto found = Texts.find(Path(application, section, key));
    return found == Texts.end() ? std::string() : found->second;
  }
  void Save(std::string_view application, std::string_view section, std::string_view key,
            std::string_view text) override {
    Texts[Path(application, section, key)] = text;
  }

  /// "application/section/key" to text.
  std::map<std::string, std::string> Texts;

 private:
  static std::string Path(std::string_view application, std::string_view section, std::string_view key) {
    return std::string(application) + '/' + std::string(section) + '/' + std::string(key);
  }
};
