#include "platform/qt/QtSettingsStore.h"

#include <QSettings>
#include <QString>

namespace {

QString ToQt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace

std::string QtSettingsStore::Get(std::string_view application, std::string_view section,
                                 std::string_view key) {
  QSettings settings(ToQt(application), ToQt(application));
  settings.beginGroup(ToQt(section));
  return settings.value(ToQt(key)).toString().toStdString();
}

void QtSettingsStore::Save(std::string_view application, std::string_view section, std::string_view key,
                           std::string_view text) {
  QSettings settings(ToQt(application), ToQt(application));
  settings.beginGroup(ToQt(section));
  settings.setValue(ToQt(key), ToQt(text));
}
