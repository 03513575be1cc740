#include "platform/qt/QtSettingsStore.h"

#include <QSettings>
#include <QStandardPaths>
#include <QString>

namespace {

QString FromUtf8Text(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

// Named as the toolkit would name it, and opened by its name, because the toolkit's own place is closed.
QString FileOf(std::string_view application) {
  const QString directory = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
  return QStringLiteral("%1/%2/%2.conf").arg(directory, FromUtf8Text(application));
}

}  // namespace

void KeepNoSettingsOfTheToolkit() {
  // Nothing can be put below a device, and the toolkit does without its settings.
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("/dev/null"));
}

std::string QtSettingsStore::Get(std::string_view application, std::string_view section,
                                 std::string_view key) {
  QSettings settings(FileOf(application), QSettings::IniFormat);
  settings.beginGroup(FromUtf8Text(section));
  return settings.value(FromUtf8Text(key)).toString().toStdString();
}

void QtSettingsStore::Save(std::string_view application, std::string_view section, std::string_view key,
                           std::string_view text) {
  QSettings settings(FileOf(application), QSettings::IniFormat);
  settings.beginGroup(FromUtf8Text(section));
  settings.setValue(FromUtf8Text(key), FromUtf8Text(text));
}
