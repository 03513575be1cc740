// Figures and other plain letters as bytes: nearly all of what a report has.
#pragma once

#include <QStringView>
#include <algorithm>
#include <array>

/// Appends letters of ASCII, each as one byte; `bytes` is a QByteArray or a std::string.
template <class Bytes>
void AppendAscii(Bytes& bytes, QStringView letters) {
  std::array<char, 256> buffer;  // NOLINT(cppcoreguidelines-pro-type-member-init): filled before it is read
  while (!letters.isEmpty()) {
    const qsizetype count = std::min(letters.size(), static_cast<qsizetype>(buffer.size()));
    std::transform(letters.begin(), letters.begin() + count, buffer.begin(),
                   [](QChar letter) { return static_cast<char>(letter.unicode()); });
    bytes.append(buffer.data(), static_cast<typename Bytes::size_type>(count));
    letters = letters.sliced(count);
  }
}
