// See the header. The compressed form is the toolkit's own, without what it puts around it: four bytes of
// length and two of header before, and a checksum of four behind.
#include "platform/qt/ZipFile.h"

#include <array>
#include <cstdint>

namespace {

constexpr quint16 Version = 20;  // what a reader needs for compressed files
constexpr quint16 FirstDay = (0 << 9) | (1 << 5) | 1;

std::uint32_t Crc32(const QByteArray& bytes) {
  static const auto table = [] {
    std::array<std::uint32_t, 256> entries{};
    for (std::uint32_t i = 0; i < entries.size(); ++i) {
      std::uint32_t remainder = i;
      for (int bit = 0; bit < 8; ++bit)
        remainder = (remainder >> 1) ^ ((remainder & 1) != 0 ? 0xEDB88320U : 0U);
      entries[i] = remainder;
    }
    return entries;
  }();
  std::uint32_t crc = 0xFFFFFFFFU;
  for (const char byte : bytes) crc = table[(crc ^ static_cast<unsigned char>(byte)) & 0xFFU] ^ (crc >> 8);
  return ~crc;
}

QByteArray Deflated(const QByteArray& contents) {
  const QByteArray wrapped = qCompress(contents);
  return wrapped.mid(6, wrapped.size() - 10);
}

// Numbers are little-endian.
void Put16(QByteArray& bytes, std::uint32_t number) {
  bytes += static_cast<char>(number & 0xFFU);
  bytes += static_cast<char>((number >> 8) & 0xFFU);
}

void Put32(QByteArray& bytes, qsizetype number) {
  const auto bits = static_cast<std::uint32_t>(number);
  Put16(bytes, bits & 0xFFFFU);
  Put16(bytes, bits >> 16);
}

}  // namespace

void ZipFile::Add(const QByteArray& name, const QByteArray& contents, Method method) {
  const QByteArray packed = method == Method::Deflated ? Deflated(contents) : contents;
  QByteArray description;  // the same in the directory and before the file
  Put16(description, Version);
  Put16(description, 0);  // no flags
  Put16(description, method == Method::Deflated ? 8 : 0);
  Put16(description, 0);  // midnight
  Put16(description, FirstDay);
  Put32(description, Crc32(contents));
  Put32(description, packed.size());
  Put32(description, contents.size());
  Put16(description, static_cast<std::uint32_t>(name.size()));
  Put16(description, 0);  // nothing extra

  directory_ += "PK\x01\x02";
  Put16(directory_, Version);
  directory_ += description;
  directory_ += QByteArray(10, '\0');  // no comment, first disk, no attributes
  Put32(directory_, bytes_.size());
  directory_ += name;

  bytes_ += "PK\x03\x04" + description + name + packed;
  ++numFiles_;
}

QByteArray ZipFile::Finish() {
  const qsizetype start = bytes_.size();
  bytes_ += directory_;
  bytes_ += "PK\x05\x06";
  Put32(bytes_, 0);  // first disk
  Put16(bytes_, static_cast<std::uint32_t>(numFiles_));
  Put16(bytes_, static_cast<std::uint32_t>(numFiles_));
  Put32(bytes_, directory_.size());
  Put32(bytes_, start);
  Put16(bytes_, 0);  // no comment
  return bytes_;
}
