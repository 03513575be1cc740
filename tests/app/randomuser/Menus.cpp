// The buttons and the menus of the main window.
#include <QAbstractButton>
#include <array>

#include "RandomUser.h"

namespace {

// Named ones rather than all of a panel, so that each step has its share.
constexpr std::array MainButtons = {"imgTool(1)",        "imgTool(2)",
                                    "imgTool(3)",        "imgTool(4)",
                                    "imgTool(5)",        "imgTool(6)",
                                    "imgTool(7)",        "imgTool(8)",
                                    "cmdNext1",          "cmdPrev2",
                                    "cmdNext2",          "cmdPrev3",
                                    "cmdAutoName(1)",    "cmdAutoName(2)",
                                    "cmdReportCounting", "cmdReportSystemEqs",
                                    "cmdReportRREF",     "cmdReportSolutions",
                                    "cmdNewCoordsOK(1)", "cmdNewCoordsCancel(1)",
                                    "cmdNewCoordsOK(2)", "cmdNewCoordsCancel(2)",
                                    "cmdOKJointReport"};

// Everything below an entry of the menu bar, without what only holds others.
void AddEntries(const QList<QAction*>& actions, QList<QAction*>& entries) {
  for (QAction* action : actions) {
    if (action->menu() != nullptr) {
      AddEntries(action->menu()->actions(), entries);
    } else if (!action->isSeparator()) {
      entries.append(action);
    }
  }
}

}  // namespace

void RandomUser::PressButton() {
  QList<QWidget*> shown;
  for (const char* name : MainButtons) {
    auto* button = form_->findChild<QWidget*>(QString::fromLatin1(name));
    if (button != nullptr && button->isVisible()) shown.append(button);
  }
  if (!shown.isEmpty()) QTest::mouseClick(OneOf(shown), Qt::LeftButton);
}

void RandomUser::PressAnyButtonTwice() {
  const QList<QAbstractButton*> buttons = form_->findChildren<QAbstractButton*>();
  QAbstractButton* button = OneOf(buttons);
  if (!button->isVisible() || !button->isEnabled()) return;
  const QPoint point = button->rect().center();
  QTest::mouseClick(button, Qt::LeftButton, Qt::NoModifier, point);
  QTest::mouseDClick(button, Qt::LeftButton, Qt::NoModifier, point);
}

void RandomUser::ChooseEntry() {
  QList<QAction*> entries;
  AddEntries(form_->menuBar()->actions(), entries);
  QAction* entry = OneOf(entries);
  const QString name = entry->objectName();
  // Now and then only: a new truss, so that there is something to work on, and the printable report, whose
  // files take longest and which has a test of its own. Leaving is an action of its own.
  const bool isRare = name == QStringLiteral("mnuFileNew") || name == QStringLiteral("mnuFilePrint");
  if ((isRare && !OneIn(4)) || name == QStringLiteral("mnuFileExit")) return;
  chooser_.Choice = SomeFile();
  messages_.Answers = {YesOrNo(), YesOrNo()};
  if (entry->isEnabled() && entry->isVisible()) entry->trigger();
}

// A menu that waits for a choice: some way down it, and Return, or away.
void RandomUser::UsePopup(QWidget& popup) {
  for (int i = Below(6); i > 0; --i) QTest::keyClick(&popup, OneIn(4) ? Qt::Key_Up : Qt::Key_Down);
  const QPointer<QWidget> stillThere(&popup);
  if (OneIn(2)) QTest::keyClick(&popup, Qt::Key_Return);
  if (stillThere) stillThere->close();
}
