#include "paper/qt/ZipFile.h"

#include <zip.h>

#include <memory>

namespace {

constexpr zip_uint16_t Midnight = 0;
constexpr zip_uint16_t FirstDay = (0 << 9) | (1 << 5) | 1;  // years from 1980, month, day

struct Free {
  void operator()(zip_source_t* source) const { zip_source_free(source); }
  void operator()(zip_t* archive) const { zip_discard(archive); }
};
using Source = std::unique_ptr<zip_source_t, Free>;
using Archive = std::unique_ptr<zip_t, Free>;

bool AddTo(zip_t& archive, const QByteArray& name, const std::vector<QByteArray>& pieces,
           ZipFile::Method method) {
  std::vector<zip_buffer_fragment_t> fragments;
  for (const QByteArray& piece : pieces) {
    // It is only read.
    auto* bytes = reinterpret_cast<zip_uint8_t*>(const_cast<char*>(piece.constData()));
    fragments.push_back({bytes, static_cast<zip_uint64_t>(piece.size())});
  }
  Source source(zip_source_buffer_fragment(&archive, fragments.data(), fragments.size(), 0));
  if (source == nullptr) return false;
  const zip_int64_t added = zip_file_add(&archive, name.constData(), source.get(), ZIP_FL_ENC_GUESS);
  if (added < 0) return false;
  static_cast<void>(source.release());  // the archive's from here on
  const auto index = static_cast<zip_uint64_t>(added);
  const zip_int32_t compression = method == ZipFile::Method::Deflated ? ZIP_CM_DEFLATE : ZIP_CM_STORE;
  return zip_set_file_compression(&archive, index, compression, 0) == 0 &&
         zip_file_set_dostime(&archive, index, Midnight, FirstDay, 0) == 0;
}

QByteArray AllOf(zip_source_t& source) {
  zip_stat_t properties;
  if (zip_source_stat(&source, &properties) != 0 || (properties.valid & ZIP_STAT_SIZE) == 0) return {};
  QByteArray bytes(static_cast<qsizetype>(properties.size), Qt::Uninitialized);
  if (zip_source_open(&source) != 0) return {};
  const zip_int64_t read = zip_source_read(&source, bytes.data(), properties.size);
  zip_source_close(&source);
  return read == bytes.size() ? bytes : QByteArray();
}

}  // namespace

QByteArray ZipFile::Bytes() const {
  const Source written(zip_source_buffer_create(nullptr, 0, 0, nullptr));
  if (written == nullptr) return {};
  Archive archive(zip_open_from_source(written.get(), ZIP_TRUNCATE, nullptr));
  if (archive == nullptr) return {};
  zip_source_keep(written.get());  // closing the archive gives up one hold of it
  for (const Entry& entry : entries_) {
    if (!AddTo(*archive, entry.Name, entry.Pieces, entry.How)) return {};
  }
  if (zip_close(archive.get()) != 0) return {};
  static_cast<void>(archive.release());
  return AllOf(*written);
}
