#include "paper/FileFormats.h"

#include <algorithm>
#include <array>
#include <utility>

namespace {

// Only the letters of ASCII have a small and a capital form here.
bool EndsWith(std::string_view path, std::string_view ending) {
  const auto small = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
  return path.size() >= ending.size() &&
         std::ranges::equal(path.substr(path.size() - ending.size()), ending, {}, small);
}

template <class Format, std::size_t Size>
std::optional<Format> Find(const std::array<std::pair<std::string_view, Format>, Size>& endings,
                           std::string_view path) {
  for (const auto& [ending, format] : endings) {
    if (EndsWith(path, ending)) return format;
  }
  return std::nullopt;
}

}  // namespace

bool IsTrussFileName(std::string_view path) { return EndsWith(path, ".trs"); }

std::optional<PictureFileFormat> PictureFormatOf(std::string_view path) {
  using enum PictureFileFormat;
  static constexpr std::array<std::pair<std::string_view, PictureFileFormat>, 3> endings = {
      {{".png", Png}, {".svg", Svg}, {".pdf", Pdf}}};
  return Find(endings, path);
}

std::optional<DocumentFileFormat> DocumentFormatOf(std::string_view path) {
  using enum DocumentFileFormat;
  static constexpr std::array<std::pair<std::string_view, DocumentFileFormat>, 4> endings = {
      {{".rtf", Rtf}, {".pdf", Pdf}, {".odt", Odt}, {".html", Html}}};
  return Find(endings, path);
}
