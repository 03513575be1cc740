// Batch after batch, so that only so many results wait for their turn.
#include "app/JsonAhead.h"

#include <algorithm>
#include <atomic>
#include <filesystem>
#include <new>
#include <sstream>
#include <system_error>
#include <utility>

#include "analysis/Parallel.h"

namespace {

constexpr std::size_t FilesInABatch = 256;
constexpr std::uintmax_t LargestFile = 8192;  // bytes; some 200 unknowns

bool IsSmallFile(const std::string& argument) {
  if (argument == "-") return false;
  std::error_code error;
  const bool isFile = std::filesystem::is_regular_file(argument, error);
  return isFile && std::filesystem::file_size(argument, error) <= LargestFile && !error;
}

}  // namespace

std::optional<FileJson> JsonAhead::Take(std::size_t index) {
  if (index >= begin_ + batch_.size()) MakeBatch(index);
  return std::exchange(batch_[index - begin_], std::nullopt);
}

void JsonAhead::MakeBatch(std::size_t begin) {
  begin_ = begin;
  batch_.assign(std::min(FilesInABatch, commandLine_.Files.size() - begin), std::nullopt);
  std::atomic<std::size_t> next = 0;
  RunInParallel(batch_.size() > 1 ? 0 : 1, [&] {
    for (std::size_t i = next++; i < batch_.size(); i = next++)
      batch_[i] = Made(commandLine_.Files[begin + i]);
  });
}

std::optional<FileJson> JsonAhead::Made(const std::string& argument) const try {
  if (!IsSmallFile(argument)) return std::nullopt;
  AnalysedFile file = ReadForAnalysis(argument, commandLine_.AutoName, environment_.In);
  Analyse(file);
  std::ostringstream object;
  environment_.Json(object, file, commandLine_.Json, {file.Document.Settings.SigFigs, environment_.Numbers});
  return FileJson{std::move(file.Error), std::move(file.Remarks), std::move(object).str()};
} catch (const std::bad_alloc&) {
  return std::nullopt;
}
