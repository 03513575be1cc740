#include "platform/qt/ReadOnlyText.h"

#include <QPlainTextEdit>
#include <algorithm>

QPlainTextEdit* MakeReadOnlyText(const QString& name, const QString& accessibleName, int margin,
                                 QWidget* parent) {
  auto* text = new QPlainTextEdit(parent);
  text->setObjectName(name);
  text->setAccessibleName(accessibleName);
  text->setReadOnly(true);
  text->setTabChangesFocus(true);
  text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  text->document()->setDocumentMargin(margin);
  return text;
}

QFont LettersAt96(const QWidget& widget, float points) {
  QFont font = widget.font();
  font.setPointSizeF(static_cast<double>(points) * 96 / std::max(1, widget.logicalDpiY()));
  return font;
}
