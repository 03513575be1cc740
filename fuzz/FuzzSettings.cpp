// Any bytes as the file of settings: they are read, the recent files among them; what is stored then is read
// again as it was, and what stood beside it stays.
#include <QFile>
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <utility>

#include "InputBytes.h"
#include "MemoryFolder.h"
#include "Require.h"
#include "document/RecentFiles.h"
#include "platform/SettingsStore.h"
#include "platform/qt/QtSettingsStore.h"
#include "text/CodePage.h"
#include "text/ControlCharacters.h"

namespace {

constexpr int NumNames = 97;  // more than the toolkit keeps in mind of files that it has read

// The store under another name each time, for the toolkit keeps files in mind by their names.
class NamedStore final : public SettingsStore {
 public:
  explicit NamedStore(std::string name) : name_(std::move(name)) {}

  std::string Get(std::string_view, std::string_view section, std::string_view key) override {
    return store_.Get(name_, section, key);
  }
  void Save(std::string_view, std::string_view section, std::string_view key,
            std::string_view text) override {
    store_.Save(name_, section, key, text);
  }

 private:
  QtSettingsStore store_;
  std::string name_;
};

const MemoryFolder& Folder() {
  static const MemoryFolder folder;
  return folder;
}

std::string PutSettings(std::string_view bytes) {
  static int number = 0;
  number = (number + 1) % NumNames;
  std::string name = "settings" + std::to_string(number);
  std::filesystem::create_directories(Folder().Path() / name);
  QFile file(QString::fromStdString(Folder().Path() / name / (name + ".conf")));
  const auto length = static_cast<qint64>(bytes.size());
  Require(file.open(QIODevice::WriteOnly) && file.write(bytes.data(), length) == length, "settings are put");
  return name;
}

void CheckRecentFiles(SettingsStore& store, const std::string& path) {
  RecentFiles recent(store);
  recent.Load();
  std::array<std::string, RecentFiles::Count> before;
  for (int i = 1; i <= RecentFiles::Count; ++i) before[static_cast<std::size_t>(i - 1)] = recent.Caption(i);
  recent.AddRecent(path);
  Require(recent.Caption(1) == path, "the file that was used last comes first");
  RecentFiles again(store);
  again.Load();
  for (int i = 1; i <= RecentFiles::Count; ++i) {
    Require(again.Caption(i) == recent.Caption(i), "recent files are read as they were stored");
    const bool wasThere = std::ranges::count(before, recent.Caption(i)) > 0;
    Require(i == 1 || wasThere, "no other file comes into the list");
  }
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  qputenv("XDG_CONFIG_HOME", QByteArray::fromStdString(Folder().Path()));
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  InputBytes input(data, size);
  const bool hasRecent = input.Below(2) == 0;
  const std::string text = ToUtf8(input.TextUpTo('\n'));
  const std::string key = "Key" + std::to_string(input.Below(3));
  NamedStore store(PutSettings(input.Rest()));
  Require(IsUtf8(store.Get("", "Recent Files", "RecentFile1")), "texts are UTF-8, whatever stands there");
  if (hasRecent) {
    CheckRecentFiles(store, text);
    return 0;
  }
  const std::string other = store.Get("", "Recent Files", "RecentFile2");
  store.Save("", "Section", key, text);
  Require(store.Get("", "Section", key) == text, "what is stored is read again");
  Require(store.Get("", "Recent Files", "RecentFile2") == other, "what stands beside it stays");
  return 0;
}
