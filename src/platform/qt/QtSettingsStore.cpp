#include "platform/qt/QtSettingsStore.h"

#include <QSettings>
#include <QStandardPaths>
#include <QString>

namespace {

QString ToQt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

// Named as the toolkit would name it, and opened by its name, because the toolkit's own place is closed.
QString FileOf(std::string_view application) {
  const QString directory = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
  return QStringLiteral("%1/%2/%2.conf").arg(directory, ToQt(application));
}

}  // namespace

void KeepNoSettingsOfTheToolkit() {
  // Nothing can be put below a device, and the toolkit does without its settings.
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("/dev/null"));
}

std::string QtSettingsStore::Get(std::string_view application, std::string_view section,
                                 std::string_view key) {
  QSettings settings(FileOf(application), QSettings::IniFormat);
  settings.beginGroup(ToQt(section));
  return settings.value(ToQt(key)).toString().toStdString();
}

void QtSettingsStore::Save(std::string_view application, std::string_view section, std::string_view key,
                           std::string_view text) {
  QSettings settings(FileOf(application), QSettings::IniFormat);
  settings.beginGroup(ToQt(section));
  settings.setValue(ToQt(key), ToQt(text));
}
