#include "naming/CustomInputBox.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QShowEvent>
#include <QStyle>
#include <QVBoxLayout>
#include <QValidator>
#include <algorithm>
#include <limits>

#include "platform/MessageBox.h"
#include "platform/qt/FittedText.h"
#include "platform/qt/OnPress.h"
#include "platform/qt/QtText.h"
#include "platform/qt/ScreenRoom.h"

namespace {

constexpr int PreferredTextWidth = 300;

// A pasted line break becomes a blank: a name is one line, wherever the text comes from.
class SingleLine final : public QValidator {
 public:
  using QValidator::QValidator;

  State validate(QString& text, int& cursor) const override {
    QString before = WithoutBreaks(text.left(cursor));
    const QString behind = WithoutBreaks(text.mid(cursor));
    cursor = static_cast<int>(before.size());
    text = before.append(behind);
    return Acceptable;
  }

 private:
  static QString WithoutBreaks(QString text) {
    text.replace(QLatin1String("\r\n"), QLatin1String(" "));
    for (QChar& character : text) {
      if (IsBreak(character)) character = QLatin1Char(' ');
    }
    return text;
  }

  static bool IsBreak(QChar character) {
    return character == QLatin1Char('\n') || character == QLatin1Char('\r') ||
           character == QChar(QChar::LineSeparator) || character == QChar(QChar::ParagraphSeparator);
  }
};

QFont Arial() {
  QFont font = QApplication::font();
  font.setFamily(QStringLiteral("Arial"));
  return font;
}

const QScreen* ScreenAt(QPoint point, const QWidget& dialog) {
  if (const QScreen* screen = QGuiApplication::screenAt(point)) return screen;
  return dialog.parentWidget() != nullptr ? dialog.parentWidget()->screen() : dialog.screen();
}

}  // namespace

CustomInputBox::CustomInputBox(const std::string& prompt, const std::string& defaultText, QWidget* parent,
                               const std::string& about)
    : QDialog(parent),
      Label1(new QLabel(this)),
      txtInput(new QLineEdit(this)),
      cmdOK(new QPushButton(QStringLiteral("OK"), this)),
      cmdCancel(new QPushButton(QStringLiteral("Cancel"), this)) {
  setObjectName(QStringLiteral("CustomInputBox"));
  setWindowTitle(QString::fromUtf8(MessageTitle));
  setFont(Arial());

  Label1->setObjectName(QStringLiteral("Label1"));
  Label1->setTextFormat(Qt::PlainText);
  Label1->setWordWrap(true);
  Label1->setText(ToQt(prompt));

  txtInput->setObjectName(QStringLiteral("txtInput"));
  txtInput->setAccessibleName(ToQt(prompt));
  txtInput->setAccessibleDescription(OneLineText(ToQt(about)));
  txtInput->setMaxLength(std::numeric_limits<int>::max());
  txtInput->setMinimumWidth(PreferredTextWidth);
  // Only typed and pasted text is kept to one line: a name that came from a file stays as it is until edited.
  txtInput->setText(ToQt(defaultText));
  txtInput->setValidator(new SingleLine(txtInput));

  cmdOK->setObjectName(QStringLiteral("cmdOK"));
  cmdOK->setDefault(true);
  cmdOK->setShortcut(Qt::ALT | Qt::Key_O);
  cmdCancel->setObjectName(QStringLiteral("cmdCancel"));
  cmdCancel->setAutoDefault(false);
  cmdCancel->setShortcut(Qt::ALT | Qt::Key_C);
  OnPress(cmdOK, this, &QDialog::accept);
  OnPress(cmdCancel, this, &QDialog::reject);

  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(cmdOK);
  buttons->addWidget(cmdCancel);
  auto* rows = new QVBoxLayout(this);
  rows->addWidget(Label1);
  rows->addWidget(txtInput);
  rows->addSpacing(6);
  rows->addLayout(buttons);
  rows->setSizeConstraint(QLayout::SetFixedSize);
  FitWidget(*this, font(), WindowRoom(*this));
}

std::string CustomInputBox::Text() const { return FromQt(txtInput->text()); }

void CustomInputBox::MoveOnScreen(QPoint leftTop) {
  const QScreen* screen = ScreenAt(leftTop, *this);
  if (screen == nullptr) return;
  // The window system adds the title bar only when the dialog is shown, so its height is an estimate.
  const QRect room = screen->availableGeometry();
  const int titleBar = style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, this);
  const QSize needed = sizeHint() + QSize(0, titleBar);
  const int right = std::max(room.left(), room.right() + 1 - needed.width());
  const int bottom = std::max(room.top(), room.bottom() + 1 - needed.height());
  move(std::clamp(leftTop.x(), room.left(), right), std::clamp(leftTop.y(), room.top(), bottom));
}

void CustomInputBox::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  if (event->spontaneous()) return;
  txtInput->setFocus(Qt::OtherFocusReason);
  txtInput->selectAll();
}

std::string InputBox2(const std::string& prompt, const std::string& defaultText, int left, int top,
                      QWidget* parent, const std::string& about) {
  CustomInputBox dialog(prompt, defaultText, parent, about);
  dialog.MoveOnScreen(QPoint(left / TwipsPerPixel, top / TwipsPerPixel));
  return dialog.exec() == QDialog::Accepted ? dialog.Text() : std::string();
}
