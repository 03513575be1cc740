#include "platform/FileBytes.h"

#include <fcntl.h>

#include <array>
#include <optional>
#include <string_view>

namespace {

constexpr std::size_t MaxFileSize = std::size_t{256} << 20U;
constexpr std::size_t LargeFileSize = std::size_t{16} << 20U;

constexpr const char* CannotBeOpened = "the file cannot be opened for reading";
constexpr const char* NotReadToItsEnd = "the file could not be read to its end";

using Buffer = std::array<char, 65536>;

FileBytes Failed(const char* problem) { return FileBytes{.Bytes = {}, .Problem = problem}; }

// False, with the problem, when the file has become too large.
bool Append(FileBytes& result, std::string_view piece) {
  if (result.Bytes.size() + piece.size() > MaxFileSize) {
    result = Failed("the file is larger than any truss");
    return false;
  }
  // Growing twofold would need the largest size one and a half times; room that is not used takes no memory.
  const bool isLarge = result.Bytes.size() + piece.size() > LargeFileSize;
  if (isLarge && result.Bytes.capacity() < MaxFileSize) result.Bytes.reserve(MaxFileSize);
  result.Bytes += piece;
  return true;
}

// Opening alone can already be too much (a pipe lets its writer go on, a tape rewinds), so the path is asked
// first; and as something else may stand there a moment later, opening does not wait and the file is asked
// too.
SystemFile OpenForReading(const std::string& path, PipesAndDevices others, const char*& problem) {
  struct stat status {};
  problem = stat(path.c_str(), &status) == 0 ? WhyNoFile(status.st_mode, others) : CannotBeOpened;
  if (problem) return {};
  SystemFile file(path, O_RDONLY | (others == PipesAndDevices::Refused ? O_NONBLOCK : 0));
  const std::optional<struct stat> opened = file.Status();
  problem = opened ? WhyNoFile(opened->st_mode, others) : CannotBeOpened;
  return file;
}

}  // namespace

FileBytes ReadWholeFile(const std::string& path, PipesAndDevices others) {
  const char* problem = nullptr;
  const SystemFile file = OpenForReading(path, others, problem);
  return problem ? Failed(problem) : ReadWholeFile(file);
}

FileBytes ReadWholeFile(const SystemFile& file) {
  FileBytes result;
  Buffer buffer{};
  for (;;) {
    const ssize_t count = file.Read(buffer.data(), buffer.size());
    if (count == 0) return result;
    if (count < 0) {
      result.Problem = NotReadToItsEnd;
      return result;
    }
    if (!Append(result, {buffer.data(), static_cast<std::size_t>(count)})) return result;
  }
}

FileBytes ReadWholeStream(std::istream& stream) {
  FileBytes result;
  Buffer buffer{};
  while (stream) {
    stream.read(buffer.data(), static_cast<std::streamsize>(buffer.size()));
    if (!Append(result, {buffer.data(), static_cast<std::size_t>(stream.gcount())})) return result;
  }
  if (stream.bad()) result.Problem = NotReadToItsEnd;
  return result;
}

bool FileExists(const std::string& path) {
  const char* problem = nullptr;
  OpenForReading(path, PipesAndDevices::Refused, problem);
  return problem == nullptr;
}
