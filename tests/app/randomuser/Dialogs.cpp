// Dialogs that wait for an answer: each is worked in for a few turns of the timer, and then left.
#include <QAbstractButton>
#include <QComboBox>
#include <QFileDialog>
#include <QMessageBox>
#include <QPrintDialog>
#include <array>

#include "RandomUser.h"

namespace {

constexpr int MostTurns = 12;  // after that a dialog is left without more ado

constexpr std::array TypedTexts = {"7", "A1", "-3", "1e3", "", "0", "x,y\"z", "20", "0.5", "2,5", "<b>&amp;"};

}  // namespace

void RandomUser::AnswerDialogs() {
  QObject::connect(&dialogs_, &QTimer::timeout, &dialogs_, [this] { AnswerDialog(); });
  dialogs_.start(1);
}

// What it does there may open another dialog, which the timer must be free to answer: so it is done later.
void RandomUser::AnswerDialog() {
  QWidget* popup = QApplication::activePopupWidget();
  QWidget* dialog = popup != nullptr ? popup : QApplication::activeModalWidget();
  if (dialog == nullptr) {
    dialogTurns_ = 0;
    return;
  }
  QTimer::singleShot(0, dialog, [this, dialog, popup] {
    if (popup != nullptr && dialog == QApplication::activePopupWidget()) UsePopup(*dialog);
    if (popup == nullptr && dialog == QApplication::activeModalWidget()) UseDialog(*dialog);
  });
}

void RandomUser::UseDialog(QWidget& dialog) {
  ++dialogTurns_;
  if (dialog.objectName() == QStringLiteral("frmReport")) return UsePrintableReport(dialog);
  if (dialog.objectName() == QStringLiteral("printPreview")) return UsePreview(dialog);
  if (dialog.objectName() == QStringLiteral("OptionsDialog")) return UseSettings(dialog);
  if (dialog.objectName() == QStringLiteral("progress")) {
    if (OneIn(3)) QTest::keyClick(&dialog, Qt::Key_Escape);
    return;
  }
  if (auto* box = qobject_cast<QMessageBox*>(&dialog)) return AnswerMessage(*box);
  if (auto* chooser = qobject_cast<QFileDialog*>(&dialog)) return AnswerChooser(*chooser);
  if (auto* printer = qobject_cast<QPrintDialog*>(&dialog)) return AnswerPrinter(*printer);
  TypeAndLeave(dialog);
}

// One of its buttons; where it has a way out, sometimes that.
void RandomUser::AnswerMessage(QMessageBox& box) {
  if (OneIn(4)) return QTest::keyClick(&box, OneIn(2) ? Qt::Key_Return : Qt::Key_Escape);
  const QList<QAbstractButton*> buttons = box.buttons();
  if (!buttons.isEmpty()) QTest::mouseClick(OneOf(buttons), Qt::LeftButton);
}

// A path or a part of one, typed, or a file of the list; then opened or saved, or called off.
void RandomUser::AnswerChooser(QFileDialog& dialog) {
  auto* name = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
  if (name == nullptr || dialogTurns_ > MostTurns || OneIn(5))
    return QTest::keyClick(&dialog, Qt::Key_Escape);
  if (OneIn(6)) return UseArea(dialog);
  static constexpr std::array odd = {"", "..", "no such folder/x.trs", "folder.trs", "a\"b", "new"};
  name->selectAll();
  QTest::keyClicks(name, OneIn(3) ? QString::fromLatin1(OneOf(odd)) : QString::fromStdString(SomeFile()));
  QTest::keyClick(name, OneIn(6) ? Qt::Key_Tab : Qt::Key_Return);
}

// Boxes, lists and switches, then one of the buttons.
void RandomUser::UseSettings(QWidget& dialog) {
  for (int i = Below(4); i > 0; --i) {
    const auto boxes = dialog.findChildren<QLineEdit*>();
    const auto lists = dialog.findChildren<QComboBox*>();
    const auto buttons = dialog.findChildren<QAbstractButton*>();
    if (OneIn(3)) {
      QTest::keyClick(OneOf(lists), OneIn(2) ? Qt::Key_Down : Qt::Key_Up);
    } else if (OneIn(2)) {
      OneOf(boxes)->selectAll();
      QTest::keyClicks(OneOf(boxes), QString::fromLatin1(OneOf(TypedTexts)));
    } else if (QAbstractButton* button = OneOf(buttons); button->isCheckable()) {
      QTest::mouseClick(button, Qt::LeftButton);
    }
  }
  static constexpr std::array leaving = {"cmdClose", "cmdClose", "cmdCancel", "cmdFactory"};
  auto* button = dialog.findChild<QAbstractButton*>(QString::fromLatin1(OneOf(leaving)));
  if (dialogTurns_ > MostTurns || OneIn(6) || button == nullptr)
    return QTest::keyClick(&dialog, Qt::Key_Escape);
  QTest::mouseClick(button, Qt::LeftButton);
}

// Whatever dialog it is.
void RandomUser::TypeAndLeave(QWidget& dialog) {
  const QPointer<QWidget> stillThere(&dialog);
  QWidget* target = dialog.focusWidget() != nullptr ? dialog.focusWidget() : &dialog;
  QTest::keyClicks(target, QString::fromLatin1(OneOf(TypedTexts)));
  if (!stillThere) return;
  QTest::keyClick(target, OneIn(2) ? Qt::Key_Return : Qt::Key_Escape);
  if (stillThere && QApplication::activeModalWidget() == stillThere)
    QTest::keyClick(stillThere, Qt::Key_Escape);
}
