// Makes a help file the same bytes whenever it is compiled: the help compiler writes the time of day in two
// places, the header of the file and its entry of system values; here both become zero. And mends a fault of
// the compiler: where the list of files fills more than one chunk, it names the last chunk as the first, and
// who goes through the list would miss all files of the others.
//   orvane_clear_times FILE.chm
#include <chm_lib.h>

#include <algorithm>
#include <cstdint>
#include <exception>
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>
#include <string>

namespace {

constexpr std::size_t HeaderTime = 0x10;      // 4 bytes
constexpr std::size_t ContentOffset = 0x58;   // 8 bytes: where the content begins in the file
constexpr std::uint64_t SystemTimeCode = 10;  // the system value that is a time

constexpr std::size_t ListOffset = 0x48;  // 8 bytes: where the list of files begins in the file
// In the list's header, 4 bytes each:
constexpr std::size_t ListHeaderLength = 0x08;
constexpr std::size_t ChunkLength = 0x10;
constexpr std::size_t FirstChunk = 0x20;
// In a chunk, 4 bytes: the number of the chunk before.
constexpr std::size_t ChunkBefore = 0x0C;
constexpr std::uint64_t NoChunk = 0xFFFFFFFF;

// The number whose `size` bytes stand at `at`, the lowest first.
std::uint64_t NumberAt(const std::string& bytes, std::size_t at, std::size_t size) {
  std::uint64_t number = 0;
  for (std::size_t i = size; i-- > 0;) {
    number = number << 8 | static_cast<unsigned char>(bytes.at(at + i));
  }
  return number;
}

void Clear(std::string& bytes, std::size_t at, std::size_t size) {
  if (at > bytes.size() || size > bytes.size() - at)
    throw std::runtime_error("a value lies outside the file");
  std::fill_n(bytes.begin() + static_cast<std::ptrdiff_t>(at), size, '\0');
}

chmUnitInfo SystemValues(const std::string& path) {
  chmFile* file = chm_open(path.c_str());
  if (file == nullptr) throw std::runtime_error("it is no help file");
  chmUnitInfo values{};
  const bool found = chm_resolve_object(file, "/#SYSTEM", &values) == CHM_RESOLVE_SUCCESS;
  chm_close(file);
  if (!found || values.space != CHM_UNCOMPRESSED) throw std::runtime_error("it has no plain system values");
  return values;
}

// The system values are a version of 4 bytes, then records: code and length of 2 bytes each, and the value.
void ClearSystemTime(std::string& bytes, const chmUnitInfo& values) {
  std::size_t at = NumberAt(bytes, ContentOffset, 8) + values.start;
  const std::size_t end = at + values.length;
  at += 4;
  while (at + 4 <= end) {
    const std::uint64_t code = NumberAt(bytes, at, 2);
    const std::uint64_t length = NumberAt(bytes, at + 2, 2);
    at += 4;
    if (code == SystemTimeCode) return Clear(bytes, at, length);
    at += length;
  }
  throw std::runtime_error("it has no time among its system values");
}

// Goes from the chunk that is named back to the first one, and names that.
void NameFirstChunk(std::string& bytes) {
  const std::size_t list = NumberAt(bytes, ListOffset, 8);
  const std::size_t chunks = list + NumberAt(bytes, list + ListHeaderLength, 4);
  std::uint64_t first = NumberAt(bytes, list + FirstChunk, 4);
  for (std::size_t most = bytes.size(); most > 0; --most) {
    const std::size_t chunk = chunks + first * NumberAt(bytes, list + ChunkLength, 4);
    const std::uint64_t before = NumberAt(bytes, chunk + ChunkBefore, 4);
    if (before == NoChunk) break;
    first = before;
  }
  for (std::size_t i = 0; i < 4; ++i)
    bytes.at(list + FirstChunk + i) = static_cast<char>(first >> (8 * i) & 0xFF);
}

void ClearTimes(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::string bytes{std::istreambuf_iterator<char>(in), {}};
  if (!in.is_open()) throw std::runtime_error("it cannot be read");
  in.close();
  ClearSystemTime(bytes, SystemValues(path));
  Clear(bytes, HeaderTime, 4);
  NameFirstChunk(bytes);
  std::ofstream out(path, std::ios::binary);
  out << bytes;
  if (!out.flush()) throw std::runtime_error("it cannot be written");
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: orvane_clear_times FILE.chm\n";
    return 2;
  }
  try {
    ClearTimes(argv[1]);
  } catch (const std::exception& error) {
    std::cerr << argv[1] << ": " << error.what() << '\n';
    return 1;
  }
  return 0;
}
