#include "platform/qt/QtFileChooser.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QRegularExpression>

#include "platform/qt/QtMessageBox.h"
#include "platform/qt/WindowInFront.h"

namespace {

// A kind of files that the dialog offers.
struct NameFilter {
  QString Description;  // all that is shown
  QStringList Patterns;

  // As the toolkit takes it, with the patterns in brackets behind the description.
  QString Text() const {
    return Description + QStringLiteral(" (") + Patterns.join(QLatin1Char(' ')) + QLatin1Char(')');
  }
};

// "*.*" means every file, also one without a period; the toolkit takes it by the letter.
QVector<NameFilter> NameFilters(const std::string& filter) {
  const QStringList parts = QString::fromStdString(filter).split(QLatin1Char('|'));
  QVector<NameFilter> filters;
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
    QStringList patterns = parts[i + 1].split(QLatin1Char(';'), Qt::SkipEmptyParts);
    patterns.replaceInStrings(QStringLiteral("*.*"), QStringLiteral("*"));
    filters.append({parts[i], patterns});
  }
  return filters;
}

// The extension of a filter's only pattern, "trs" for "*.trs"; empty when the pattern names none.
QString ExtensionOf(const NameFilter& filter) {
  static const QRegularExpression extension(QStringLiteral(R"(^\*\.([^*?\[\]\s()]+)$)"));
  return filter.Patterns.size() == 1 ? extension.match(filter.Patterns.first()).captured(1) : QString();
}

// The extension of the filter that is chosen in the dialog. Some versions of the toolkit name the filter as
// it was given, others as it is shown.
QString ChosenExtension(const QFileDialog& dialog, const FileChooserRequest& request) {
  const QString chosen = dialog.selectedNameFilter();
  for (const NameFilter& filter : NameFilters(request.Filter)) {
    if (chosen == filter.Text() || chosen == filter.Description) return ExtensionOf(filter);
  }
  return {};
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
  QStringList filters;
  for (const NameFilter& filter : NameFilters(request.Filter)) filters.append(filter.Text());
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

QString WithExtension(const QString& path, const QString& extension) {
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
  if (!request.ProposedName.empty()) dialog.selectFile(QString::fromStdString(request.ProposedName));
  while (const std::optional<QString> typed = Run(dialog)) {
    const std::string path = WithExtension(*typed, ChosenExtension(dialog, request)).toStdString();
    if (MayReplace(path)) return path;
  }
  return std::nullopt;
}
