// The settings store in the user's profile: the file NAME/NAME.conf in the directory for settings.
#pragma once

#include "platform/SettingsStore.h"

class QtSettingsStore final : public SettingsStore {
 public:
  std::string Get(std::string_view application, std::string_view section, std::string_view key) override;
  void Save(std::string_view application, std::string_view section, std::string_view key,
            std::string_view text) override;
};

/// The toolkit's own dialogs would write a file of their own into the user's profile (which folders were
/// visited, how wide the columns are). From now on they keep nothing; QtSettingsStore is not concerned.
void KeepNoSettingsOfTheToolkit();
