#include "paper/qt/SpooledBytes.h"

#include <algorithm>
#include <cerrno>
#include <utility>

namespace {

constexpr qint64 PartSize = 1 << 20;

std::string_view ViewOf(const QByteArray& bytes) {
  return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

// The last call failed; not every way to fail has a number.
int LastError() { return errno != 0 ? errno : EIO; }

}  // namespace

void SpooledBytes::Spool() {
  if (error_ == 0 && !file_) {
    file_ = std::make_unique<QTemporaryFile>();
    errno = 0;
    if (!file_->open()) error_ = LastError();
  }
  if (error_ == 0) {
    errno = 0;
    if (file_->write(kept_) != kept_.size() || !file_->flush()) error_ = LastError();
  }
  inFile_ += kept_.size();
  kept_.resize(0);
}

int SpooledBytes::Tell(const ManyBytes::Take& take) const {
  if (error_ != 0) return error_;
  if (file_) {
    errno = 0;
    if (!file_->seek(0)) return LastError();
    for (qint64 done = 0; done < inFile_;) {
      const QByteArray part = file_->read(std::min(PartSize, inFile_ - done));
      if (part.isEmpty()) return LastError();
      done += part.size();
      if (const int error = take(ViewOf(part))) return error;
    }
  }
  return kept_.isEmpty() ? 0 : take(ViewOf(kept_));
}

QByteArray Joined(const ManyBytes& bytes) {
  QByteArray joined;
  joined.reserve(static_cast<qsizetype>(bytes.Size));
  const int error = bytes.Tell([&joined](std::string_view part) {
    joined.append(part.data(), static_cast<qsizetype>(part.size()));
    return 0;
  });
  return error == 0 ? joined : QByteArray();
}

ManyBytes ManyBytesOf(QByteArray head, SpooledBytes body, QByteArray tail) {
  const qint64 size = head.size() + body.Size() + tail.size();
  const auto shared = std::make_shared<const SpooledBytes>(std::move(body));
  return {static_cast<std::uint64_t>(size),
          [head = std::move(head), shared, tail = std::move(tail)](const ManyBytes::Take& take) {
            if (const int error = take(ViewOf(head))) return error;
            if (const int error = shared->Tell(take)) return error;
            return take(ViewOf(tail));
          }};
}
