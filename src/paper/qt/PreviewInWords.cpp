#include "paper/qt/PreviewInWords.h"

#include <QComboBox>
#include <QGraphicsView>
#include <QLineEdit>
#include <QMainWindow>
#include <utility>

#include "platform/qt/TextInWords.h"

void PutInWords(QPrintPreviewWidget& preview, const QString& name, std::function<QString()> text) {
  preview.setAccessibleName(name);
  auto* pages = preview.findChild<QGraphicsView*>();
  if (pages == nullptr) return;
  ReadAloudAs(*pages, std::move(text));
  pages->setAccessibleName(name);
}

void PutInWords(QPrintPreviewDialog& dialog, const QString& name, std::function<QString()> text) {
  if (auto* preview = dialog.findChild<QPrintPreviewWidget*>()) PutInWords(*preview, name, std::move(text));
  // The toolkit puts a window of its own into the dialog.
  for (auto* inner : dialog.findChildren<QMainWindow*>()) inner->setAccessibleName(dialog.windowTitle());
  for (auto* zoom : dialog.findChildren<QComboBox*>()) {
    zoom->setAccessibleName(QStringLiteral("Zoom"));
    if (zoom->lineEdit() != nullptr) zoom->lineEdit()->setAccessibleName(QStringLiteral("Zoom"));
  }
  for (auto* page : dialog.findChildren<QLineEdit*>()) {
    if (page->accessibleName().isEmpty()) page->setAccessibleName(QStringLiteral("Page"));
  }
}
