#include "app/AboutForm.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/Icons.h"
#include "platform/MessageBox.h"
#include "platform/qt/FittedText.h"
#include "platform/qt/OnPress.h"
#include "platform/qt/ScreenRoom.h"

namespace {

constexpr QSize PictureSize(320, 120);
constexpr double TitleSize = 1.8;  // times the size of the other letters

QLabel* MakeLabel(const char* name, const QString& text) {
  auto* label = new QLabel(text);
  label->setObjectName(QString::fromUtf8(name));
  label->setTextFormat(Qt::PlainText);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  return label;
}

}  // namespace

AboutForm::AboutForm(QWidget* parent) : QDialog(parent) {
  setObjectName(QStringLiteral("AboutForm"));
  setWindowTitle(QStringLiteral("About Orvane"));

  auto* picture = new QLabel;
  picture->setObjectName(QStringLiteral("Picture1"));
  picture->setAccessibleName(QStringLiteral("A truss on a clamp and a roller, with a load"));
  picture->setPixmap(AboutPicture(PictureSize, devicePixelRatioF()));

  auto* Command1 = new QPushButton(QStringLiteral("OK"));
  Command1->setObjectName(QStringLiteral("Command1"));
  Command1->setShortcut(Qt::ALT | Qt::Key_O);
  Command1->setDefault(true);
  OnPress(Command1, this, &QDialog::accept);

  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(16, 16, 16, 14);
  rows->setSpacing(4);
  rows->addWidget(picture, 0, Qt::AlignHCenter);
  rows->addSpacing(10);
  QLabel* title = MakeLabel("lblName", QString::fromUtf8(MessageTitle));
  rows->addWidget(title);
  rows->addWidget(MakeLabel("lblVersion", QStringLiteral("Version " ORVANE_VERSION)));
  rows->addSpacing(6);
  rows->addWidget(
      MakeLabel("lblPurpose", QStringLiteral("Teaches the statics of plane, pin-jointed trusses.")));
  rows->addSpacing(6);
  rows->addWidget(MakeLabel("lblLicence", QStringLiteral("Free software under the MIT License.")));
  rows->addWidget(
      MakeLabel("lblToolkit",
                QStringLiteral("Built with the Qt toolkit, version %1.").arg(QString::fromUtf8(qVersion()))));
  rows->addSpacing(12);
  rows->addWidget(Command1, 0, Qt::AlignRight);
  rows->setSizeConstraint(QLayout::SetFixedSize);
  Command1->setFocus();
  FitWidget(*this, font(), WindowRoom(*this), [title](const QFont& font) {
    QFont larger = ScaledFont(font, TitleSize);
    larger.setBold(true);
    title->setFont(larger);
  });
}
