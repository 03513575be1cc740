#include "paper/qt/DeflateStream.h"

#include <zlib.h>

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

namespace {

// Without a header of its own, which the zip file has.
constexpr int RawWindow = -MAX_WBITS;
constexpr int UsualMemory = 8;

}  // namespace

struct DeflateStream::State {
  z_stream Stream{};
};

DeflateStream::DeflateStream() : state_(std::make_unique<State>()) {
  result_.IsWhole = deflateInit2(&state_->Stream, Z_DEFAULT_COMPRESSION, Z_DEFLATED, RawWindow, UsualMemory,
                                 Z_DEFAULT_STRATEGY) == Z_OK;
}

DeflateStream::~DeflateStream() { deflateEnd(&state_->Stream); }

void DeflateStream::Write(QByteArrayView bytes) {
  constexpr qsizetype most = std::numeric_limits<int>::max();
  for (; bytes.size() > most; bytes = bytes.sliced(most)) Pack(bytes.first(most), Z_NO_FLUSH);
  Pack(bytes, Z_NO_FLUSH);
}

void DeflateStream::Pack(QByteArrayView bytes, int flush) {
  if (!result_.IsWhole) return;
  // It is only read.
  auto* begin = reinterpret_cast<Bytef*>(const_cast<char*>(bytes.data()));
  const auto size = static_cast<uInt>(bytes.size());
  if (size > 0) result_.Checksum = static_cast<std::uint32_t>(crc32(result_.Checksum, begin, size));
  result_.Size += bytes.size();
  z_stream& stream = state_->Stream;
  stream.next_in = begin;
  stream.avail_in = size;
  std::array<char, 1 << 15> room;  // NOLINT(cppcoreguidelines-pro-type-member-init): filled before it is read
  do {
    stream.next_out = reinterpret_cast<Bytef*>(room.data());
    stream.avail_out = static_cast<uInt>(room.size());
    if (deflate(&stream, flush) == Z_STREAM_ERROR) result_.IsWhole = false;
    result_.Packed.append(room.data(), static_cast<qsizetype>(room.size() - stream.avail_out));
  } while (stream.avail_out == 0 && result_.IsWhole);
}

Deflated DeflateStream::Take(End end) {
  Pack({}, end == End::OfAll ? Z_FINISH : Z_FULL_FLUSH);
  return std::move(result_);
}

Deflated DeflateStream::Joined(Deflated part, const Deflated& rest) {
  part.Packed += rest.Packed;
  part.Checksum = static_cast<std::uint32_t>(
      crc32_combine(part.Checksum, rest.Checksum, static_cast<z_off_t>(rest.Size)));
  part.Size += rest.Size;
  part.IsWhole = part.IsWhole && rest.IsWhole;
  return part;
}
