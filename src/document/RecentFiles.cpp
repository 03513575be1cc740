#include "document/RecentFiles.h"

#include <algorithm>

#include "text/ControlCharacters.h"

namespace {

constexpr const char* Application = "Orvane";
constexpr const char* Section = "Recent Files";

std::string KeyOf(std::size_t index) { return "RecentFile" + std::to_string(index + 1); }

}  // namespace

void RecentFiles::Load() {
  for (std::size_t i = 0; i < captions_.size(); ++i)
    captions_[i] = store_.Get(Application, Section, KeyOf(i));
}

void RecentFiles::AddRecent(const std::string& path) {
  if (!IsUtf8(path)) return;
  Load();
  // A path that is not in the list takes the place of the oldest entry; then it goes to the head.
  auto place = std::ranges::find(captions_, path);
  if (place == captions_.end()) {
    place = captions_.end() - 1;
    *place = path;
  }
  std::rotate(captions_.begin(), place, place + 1);
  for (std::size_t i = 0; i < captions_.size(); ++i)
    store_.Save(Application, Section, KeyOf(i), captions_[i]);
}

bool RecentFiles::IsShown(int entry) const { return !Caption(std::max(entry, 1)).empty(); }
