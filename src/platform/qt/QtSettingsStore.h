// The settings store in the user's profile, through QSettings (organisation and application have one name).
#pragma once

#include "platform/SettingsStore.h"

class QtSettingsStore final : public SettingsStore {
 public:
  std::string Get(std::string_view application, std::string_view section, std::string_view key) override;
  void Save(std::string_view application, std::string_view section, std::string_view key,
            std::string_view text) override;
};
