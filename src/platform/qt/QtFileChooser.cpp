// See the header.
#include "platform/qt/QtFileChooser.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QRegularExpression>

#include "platform/qt/QtMessageBox.h"
#include "platform/qt/WindowInFront.h"

namespace {

// "*.*" means every file, also one without a period; the toolkit takes it by the letter. Each filter keeps
// its description, which is all that is shown, and gets its patterns behind it in brackets.
QStringList NameFilters(const std::string& filter) {
  const QStringList parts = QString::fromStdString(filter).split(QLatin1Char('|'));
  QStringList filters;
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
    QStringList patterns = parts[i + 1].split(QLatin1Char(';'), Qt::SkipEmptyParts);
    patterns.replaceInStrings(QStringLiteral("*.*"), QStringLiteral("*"));
    filters += parts[i] + QStringLiteral(" (") + patterns.join(QLatin1Char(' ')) + QLatin1Char(')');
  }
  return filters;
}

// The extension of a filter's only pattern, "trs" for "*.trs"; empty when the pattern names none.
QString ExtensionOf(const QString& nameFilter) {
  static const QRegularExpression onlyPattern(QStringLiteral(R"(\(\*\.([^*?\[\]\s()]+)\)$)"));
  return onlyPattern.match(nameFilter).captured(1);
}

// A directory that is gone would leave the dialog nowhere; its nearest surviving parent is as close as can
// be.
QString ExistingDirectory(const std::string& wanted) {
  QString path = QString::fromStdString(wanted);
  if (path.isEmpty()) return QDir::currentPath();
  path = QDir::cleanPath(QDir(path).absolutePath());
  while (!QFileInfo(path).isDir()) {
    const QString parent = QFileInfo(path).path();
    if (parent == path) return QDir::homePath();
    path = parent;
  }
  return path;
}

void Prepare(QFileDialog& dialog, const FileChooserRequest& request) {
  const QStringList filters = NameFilters(request.Filter);
  dialog.setOption(QFileDialog::HideNameFilterDetails);
  dialog.setNameFilters(filters);
  if (request.FilterIndex >= 1 && request.FilterIndex <= filters.size()) {
    dialog.selectNameFilter(filters[request.FilterIndex - 1]);
  }
  dialog.setDirectory(ExistingDirectory(request.InitialDirectory));
}

std::optional<QString> Run(QFileDialog& dialog) {
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  const QStringList chosen = dialog.selectedFiles();
  if (chosen.isEmpty() || chosen.first().isEmpty()) return std::nullopt;
  return QDir::toNativeSeparators(chosen.first());
}

QString WithExtension(const QString& path, const QString& nameFilter) {
  const QString extension = ExtensionOf(nameFilter);
  const bool typed = QFileInfo(path).fileName().contains(QLatin1Char('.'));
  return extension.isEmpty() || typed ? path : path + QLatin1Char('.') + extension;
}

bool MayReplace(const std::string& path) {
  const QFileInfo file(QString::fromStdString(path));
  if (!file.exists()) return true;
  const Message question{
      .Text = file.fileName().toStdString() + " already exists.\nDo you want to replace it?",
      .Buttons = MessageButtons::YesNo,
      .Icon = MessageIcon::Exclamation};
  return QtMessageBox().Show(question) == MessageAnswer::Yes;
}

}  // namespace

std::optional<std::string> QtFileChooser::ChooseForOpening(const FileChooserRequest& request) {
  QFileDialog dialog(WindowInFront(), QStringLiteral("Open"));
  dialog.setAcceptMode(QFileDialog::AcceptOpen);
  dialog.setFileMode(QFileDialog::ExistingFile);
  Prepare(dialog, request);
  const std::optional<QString> path = Run(dialog);
  return path ? std::optional(path->toStdString()) : std::nullopt;
}

std::optional<std::string> QtFileChooser::ChooseForSaving(const FileChooserRequest& request) {
  QFileDialog dialog(WindowInFront(), QStringLiteral("Save As"));
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setFileMode(QFileDialog::AnyFile);
  // The dialog would ask for the name as typed; what counts is the file that is written in the end.
  dialog.setOption(QFileDialog::DontConfirmOverwrite);
  Prepare(dialog, request);
  while (const std::optional<QString> typed = Run(dialog)) {
    const std::string path = WithExtension(*typed, dialog.selectedNameFilter()).toStdString();
    if (MayReplace(path)) return path;
  }
  return std::nullopt;
}
