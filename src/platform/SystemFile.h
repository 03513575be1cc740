// An open file of the system. What the program wants of files (nothing that hangs, nothing half written,
// nothing lost of what the old file had) is beyond the standard streams, so files are spoken to in the words
// of POSIX, and extended attributes in those of Linux: here, in FileBytes and in the files that FileWriting
// is made of.
#pragma once

#include <sys/stat.h>
#include <sys/types.h>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

class SystemFile {
 public:
  SystemFile() = default;

  /// `flags` as for open(2); the file is closed when another program is started.
  SystemFile(const std::string& path, int flags, mode_t mode = 0);
  SystemFile(SystemFile&& other) noexcept;
  SystemFile& operator=(SystemFile&& other) noexcept;
  SystemFile(const SystemFile&) = delete;
  SystemFile& operator=(const SystemFile&) = delete;
  ~SystemFile();

  bool IsOpen() const { return descriptor_ >= 0; }
  int Descriptor() const { return descriptor_; }

  /// The system's number for why it could not be opened; 0 when it is open.
  int Error() const { return error_; }

  /// Nothing when it is not open.
  std::optional<struct stat> Status() const;

  /// Reads on from where the last read ended, up to `size` bytes; 0 at the end, -1 on an error.
  ssize_t Read(char* buffer, std::size_t size) const;

  /// Writes all bytes, or as many as the system takes. `written` is their number; returns 0 or the error's
  /// number.
  int Write(std::string_view bytes, std::size_t& written) const;

  /// Returns when the bytes are where a power failure leaves them. File systems that know no such thing are
  /// believed. Returns 0 or the error's number.
  int Synchronise() const;

 private:
  int descriptor_ = -1;
  int error_ = 0;
};

/// Why a file cannot be written, from the system's number; begins with a small letter, without a full stop.
std::string WhyFailed(int error);

/// A path may lead to things that are no files: what to do with pipes, devices and sockets.
enum class PipesAndDevices { Refused, Taken };

/// Why a thing of this kind cannot be read or written as a file; nullptr when it can.
const char* WhyNoFile(mode_t mode, PipesAndDevices others);
