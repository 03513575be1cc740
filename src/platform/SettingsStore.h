// The per-user settings store: one text for each application, section and key.
#pragma once

#include <string>
#include <string_view>

class SettingsStore {
 public:
  virtual ~SettingsStore() = default;

  /// The stored text in UTF-8, empty when there is none.
  virtual std::string Get(std::string_view application, std::string_view section, std::string_view key) = 0;

  /// Stores a text in UTF-8. A store that cannot be written keeps what it had.
  virtual void Save(std::string_view application, std::string_view section, std::string_view key,
                    std::string_view text) = 0;
};
