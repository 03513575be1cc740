#include "app/HelpFile.h"

#include <chm_lib.h>

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>
#include <algorithm>
#include <memory>
#include <optional>

#include "app/HelpFileIdentity.h"

namespace {

constexpr qint64 LargestFile = 16 << 20;  // bytes, of one topic or picture
constexpr qint64 LargestSum = 128 << 20;  // bytes, of all of them
constexpr const char* CompilersMark = "/_#_README_#_";

struct CloseHelpFile {
  void operator()(chmFile* file) const { chm_close(file); }
};

// What the walk over the compiled file has unpacked so far.
struct Unpacked {
  QHash<QString, QByteArray> Files;
  qint64 Room = LargestSum;  // bytes that may still come
};

std::optional<QByteArray> Retrieve(chmFile* file, chmUnitInfo& unit) {
  QByteArray bytes(static_cast<qsizetype>(unit.length), '\0');
  qint64 done = 0;
  while (done < bytes.size()) {
    auto* rest = reinterpret_cast<unsigned char*>(bytes.data()) + done;
    const qint64 got =
        chm_retrieve_object(file, &unit, rest, static_cast<LONGUINT64>(done), bytes.size() - done);
    if (got <= 0 || got > bytes.size() - done) return std::nullopt;
    done += got;
  }
  return bytes;
}

int UnpackOne(chmFile* file, chmUnitInfo* unit, void* context) {
  auto& unpacked = *static_cast<Unpacked*>(context);
  if (qstrcmp(unit->path, CompilersMark) == 0) return CHM_ENUMERATOR_CONTINUE;
  const auto room = static_cast<LONGUINT64>(std::min(LargestFile, unpacked.Room));
  if (unit->length > room) return CHM_ENUMERATOR_FAILURE;
  const std::optional<QByteArray> bytes = Retrieve(file, *unit);
  if (!bytes) return CHM_ENUMERATOR_FAILURE;
  unpacked.Room -= bytes->size();
  unpacked.Files.insert(QString::fromUtf8(unit->path).mid(1), *bytes);  // without the leading slash
  return CHM_ENUMERATOR_CONTINUE;
}

// Everything in the compiled file; nothing when it cannot be read whole.
QHash<QString, QByteArray> Unpack(const QString& path) {
  const std::unique_ptr<chmFile, CloseHelpFile> file(chm_open(QFile::encodeName(path).constData()));
  if (file == nullptr) return {};
  Unpacked unpacked;
  const int all = CHM_ENUMERATE_NORMAL | CHM_ENUMERATE_FILES;
  if (chm_enumerate(file.get(), all, UnpackOne, &unpacked) == 0) return {};
  return unpacked.Files;
}

bool IsTheBuiltFile(const QByteArray& bytes) {
  const HelpFileIdentity built = BuiltHelpFile();
  return bytes.size() == built.Size &&
         QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex() == built.Sha256;
}

QString NotFound(const QString& path) {
  return QStringLiteral("The help file was not found, so help cannot be shown: %1").arg(path);
}

QString NotReadable(const QString& path, const QString& why) {
  return QStringLiteral("The help file %1 cannot be read, so help cannot be shown: %2").arg(path, why);
}

QString NotOurs(const QString& path) {
  return QStringLiteral(
             "The help file %1 is damaged or belongs to another version of the program, so help cannot be "
             "shown.  Installing the program again mends it.")
      .arg(path);
}

}  // namespace

bool HelpFile::Open(const QString& path) {
  problem_.clear();
  const QFileInfo info(path);
  if (!info.exists()) {
    problem_ = NotFound(path);
    return false;
  }
  if (!info.isFile()) {
    problem_ = NotReadable(path, QStringLiteral("it is no file"));
    return false;
  }
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) {
    problem_ = NotReadable(path, file.errorString());
    return false;
  }
  // One byte more than expected shows a file that is too long.
  const QByteArray bytes = file.read(BuiltHelpFile().Size + 1);
  if (!IsTheBuiltFile(bytes)) {
    problem_ = NotOurs(path);
    return false;
  }
  QTemporaryFile copy;
  if (!copy.open() || copy.write(bytes) != bytes.size() || !copy.flush()) {
    problem_ = NotReadable(path, copy.errorString());
    return false;
  }
  const QHash<QString, QByteArray> files = Unpack(copy.fileName());
  if (files.isEmpty()) {
    problem_ = NotOurs(path);
    return false;
  }
  files_ = files;
  return true;
}

QStringList HelpFile::Names() const {
  QStringList names = files_.keys();
  names.sort();
  return names;
}
