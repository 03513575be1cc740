// Bytes that are packed as they come, for files that hold them packed.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <cstdint>
#include <memory>

/// Packed bytes, and what a zip file tells of them as they were.
struct Deflated {
  QByteArray Packed;
  std::uint32_t Checksum = 0;  ///< CRC-32
  std::int64_t Size = 0;       ///< bytes before they were packed
  bool IsWhole = true;         ///< false when there was no memory to pack them
};

class DeflateStream {
 public:
  DeflateStream();
  ~DeflateStream();
  DeflateStream(const DeflateStream&) = delete;
  DeflateStream& operator=(const DeflateStream&) = delete;

  void Write(QByteArrayView bytes);

  /// What the packed bytes end: all of a file, or a part to which another part is to be joined.
  enum class End { OfAll, OfPart };

  /// To be called once, at the end.
  Deflated Take(End end);

  /// The bytes of a part and then those of the rest.
  static Deflated Joined(Deflated part, const Deflated& rest);

 private:
  void Pack(QByteArrayView bytes, int flush);

  struct State;
  std::unique_ptr<State> state_;
  Deflated result_;
};
