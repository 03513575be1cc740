#include "paper/qt/ZipFile.h"

#include <zip.h>

#include <algorithm>
#include <memory>
#include <utility>

namespace {

constexpr zip_uint16_t Midnight = 0;
constexpr zip_uint16_t FirstDay = (0 << 9) | (1 << 5) | 1;  // years from 1980, month, day

struct Free {
  void operator()(zip_source_t* source) const { zip_source_free(source); }
  void operator()(zip_t* archive) const { zip_discard(archive); }
};
using Source = std::unique_ptr<zip_source_t, Free>;
using Archive = std::unique_ptr<zip_t, Free>;

// Packed bytes as the library reads them, one after the other; it copies them into the file as they are.
class PackedSource {
 public:
  static Source Of(zip_t& archive, const Deflated& contents) {
    auto* source = new PackedSource(contents);  // its own until the library says that it is done
    Source made(zip_source_function(&archive, &PackedSource::Answer, source));
    if (made == nullptr) delete source;
    return made;
  }

 private:
  explicit PackedSource(const Deflated& contents) : contents_(contents) {}

  static zip_int64_t Answer(void* self, void* data, zip_uint64_t length, zip_source_cmd_t command) {
    auto& source = *static_cast<PackedSource*>(self);
    switch (command) {
      case ZIP_SOURCE_OPEN:
        source.read_ = 0;
        return 0;
      case ZIP_SOURCE_READ:
        return source.Read(static_cast<char*>(data), length);
      case ZIP_SOURCE_CLOSE:
        return 0;
      case ZIP_SOURCE_STAT:
        return source.Describe(*static_cast<zip_stat_t*>(data));
      case ZIP_SOURCE_ERROR:
        return zip_error_to_data(&source.none_, data, length);
      case ZIP_SOURCE_FREE:
        delete &source;
        return 0;
      case ZIP_SOURCE_SUPPORTS:
        return zip_source_make_command_bitmap(ZIP_SOURCE_OPEN, ZIP_SOURCE_READ, ZIP_SOURCE_CLOSE,
                                              ZIP_SOURCE_STAT, ZIP_SOURCE_ERROR, ZIP_SOURCE_FREE, -1);
      default:
        return -1;
    }
  }

  zip_int64_t Read(char* to, zip_uint64_t length) {
    const qsizetype count =
        static_cast<qsizetype>(std::min(length, static_cast<zip_uint64_t>(contents_.Packed.size() - read_)));
    std::copy_n(contents_.Packed.constData() + read_, count, to);
    read_ += count;
    return count;
  }

  zip_int64_t Describe(zip_stat_t& stat) const {
    zip_stat_init(&stat);
    stat.valid = ZIP_STAT_SIZE | ZIP_STAT_COMP_SIZE | ZIP_STAT_COMP_METHOD | ZIP_STAT_CRC;
    stat.size = static_cast<zip_uint64_t>(contents_.Size);
    stat.comp_size = static_cast<zip_uint64_t>(contents_.Packed.size());
    stat.comp_method = ZIP_CM_DEFLATE;
    stat.crc = contents_.Checksum;
    return static_cast<zip_int64_t>(sizeof stat);
  }

  const Deflated contents_;
  qsizetype read_ = 0;
  zip_error_t none_{};
};

Source SourceOf(zip_t& archive, const QByteArray& contents) {
  return Source(
      zip_source_buffer(&archive, contents.constData(), static_cast<zip_uint64_t>(contents.size()), 0));
}

bool AddTo(zip_t& archive, const QByteArray& name, Source source, ZipFile::Method method) {
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
    Source source =
        entry.Packed ? PackedSource::Of(*archive, *entry.Packed) : SourceOf(*archive, entry.Contents);
    if (!AddTo(*archive, entry.Name, std::move(source), entry.How)) return {};
  }
  if (zip_close(archive.get()) != 0) return {};
  static_cast<void>(archive.release());
  return AllOf(*written);
}
