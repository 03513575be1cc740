// Takes pictures of every window on its way through the three steps, so that people can look at them:
//   orvane_screenshots DIRECTORY TRUSS light|dark POINTS
// POINTS is the size of the desktop's letters. The scale comes from QT_SCALE_FACTOR. It proves nothing by
// itself and is no test.
#include <QComboBox>
#include <QListView>
#include <QListWidget>
#include <QStyleFactory>
#include <QTableWidget>
#include <QTextEdit>
#include <algorithm>
#include <iostream>

#include "app/HelpTopics.h"
#include "app/HelpViewer.h"
#include "support/Photographer.h"

namespace {

QPalette DarkPalette() {
  const QColor window(0x2b, 0x2b, 0x2e);
  QPalette dark(QColor(0x3a, 0x3a, 0x3e), window);
  const QColor text(0xe8, 0xe8, 0xe8);
  dark.setColor(QPalette::Base, QColor(0x1e, 0x1e, 0x20));
  dark.setColor(QPalette::AlternateBase, window);
  dark.setColor(QPalette::ToolTipBase, window);
  dark.setColor(QPalette::Highlight, QColor(0x2f, 0x6f, 0xb7));
  for (const auto role :
       {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
    dark.setColor(role, text);
    dark.setColor(QPalette::Disabled, role, QColor(0x80, 0x80, 0x80));
  }
  dark.setColor(QPalette::HighlightedText, Qt::white);
  dark.setColor(QPalette::PlaceholderText, QColor(0x90, 0x90, 0x90));
  return dark;
}

class Walk : Photographer {
 public:
  using Photographer::Photographer;

  void Run(const std::string& truss) {
    Settle();
    Take(form_, "1-instructions");
    Click("cmdOKInstruct1");
    Take(form_, "2-step1-empty");
    Open(truss);
    Take(form_, "3-step1");
    TakeValuePanel();
    TakeMenu("mnuFile", "4-file-menu");
    TakeModal("mnuSettings", "5-settings");
    TakeModal("mnuHelpAbout", "6-about");
    Click("cmdNext1");
    Take(form_, "7-step2");
    AwaitModal([this](QWidget& dialog) {
      Take(dialog, "8-name");
      dialog.close();
    });
    ClickLabel(truss_.Joints[1].NameLabel);
    Click("cmdNext2");
    Take(form_, "9-step3");
    int number = 0;
    for (const char* button :
         {"cmdReportCounting", "cmdReportSystemEqs", "cmdReportRREF", "cmdReportSolutions"}) {
      Click(button);
      Take(ReportWindow(), QStringLiteral("10-report%1").arg(++number));
    }
    ReportWindow().hide();
    TakeLearning();
    ClickLabel(truss_.Joints[2].NameLabel);
    Take(form_, "11-joint");
    form_.resize(900, 700);
    Settle();
    Take(form_, "12-larger");
    AwaitModal([this](QWidget& window) { TakePrintableReport(window); });
    Trigger("mnuFilePrint");
    TakeHelp();
  }

 private:
  void TakeValuePanel() {
    Click("imgTool(5)");
    const PixelLine& member = Canvas().Shown().Rod[1];
    const QPointF nearItsEnd(member.X1 + 0.8 * (member.X2 - member.X1),
                             member.Y1 + 0.8 * (member.Y2 - member.Y1));
    QTest::mouseClick(&Canvas(), Qt::LeftButton, Qt::NoModifier, nearItsEnd.toPoint());
    Take(form_, "3-value-panel");
    Click("cmdNewCoordsCancel(1)");
  }

  // Of motions and states of self-stress the first few.
  void TakeLearning() {
    TakeMenu("mnuLearn", "16-learn-menu");
    Trigger("mnuLearnWhy");
    QWidget& why = WindowNamed("Why");
    auto* choice = why.findChild<QComboBox*>(Named("cmbMotion"));
    for (int i = 0; i < std::clamp(choice->count(), 1, 4); ++i) {
      choice->setCurrentIndex(i);
      Take(why, QStringLiteral("16-why%1").arg(i + 1));
    }
    why.resize(380, 400);
    Take(why, "16-why-narrow");
    why.close();
    TakePractice();
    Trigger("mnuLearnForces");
    QWidget& forces = WindowNamed("Forces");
    Take(forces, "16-forces");
    for (int i = 0; i < 5; ++i) forces.findChild<QPushButton*>(QStringLiteral("cmdZoomIn"))->click();
    forces.findChild<QTableWidget*>()->selectRow(12);
    Take(forces, "16-forces-zoomed");
    TakeJointByJoint();
    Trigger("mnuLearnSteps");
    QWidget& steps = WindowNamed("Steps");
    Take(steps, "16-steps-begin");
    auto& operations = *steps.findChild<QListView*>(QStringLiteral("lstSteps"));
    for (int step = 8; step < std::min(16, operations.model()->rowCount()); ++step) {
      operations.setCurrentIndex(operations.model()->index(step, 0));
      Take(steps, QStringLiteral("16-steps%1").arg(step));
    }
    steps.findChild<QPushButton*>(QStringLiteral("cmdLast"))->click();
    Take(steps, "16-steps-last");
    steps.resize(460, 340);
    Take(steps, "16-steps-narrow");
    steps.close();
    Trigger("mnuLearnCheck");
    QWidget& checks = WindowNamed("Checks");
    checks.findChild<QListWidget*>()->setCurrentRow(0);
    Take(checks, "17-checks");
    Take(form_, "17-checks-place");
    checks.close();
  }

  // Of each kind of step the first one.
  void TakeJointByJoint() {
    Trigger("mnuLearnByJoint");
    QWidget& window = WindowNamed("ByJoint");
    auto& steps = *window.findChild<QListWidget*>(QStringLiteral("lstSteps"));
    QStringList taken;
    for (int row = 0; row < steps.count(); ++row) {
      const QString kind = steps.item(row)->text().section(u' ', 2, 2).toLower();
      if (taken.contains(kind)) continue;
      taken.append(kind);
      steps.setCurrentRow(row);
      Take(window, QStringLiteral("16-byjoint-") + kind);
    }
    window.resize(420, 400);
    steps.setCurrentRow(std::min(3, steps.count() - 1));
    Take(window, "16-byjoint-narrow");
    window.close();
  }

  void TakePractice() {
    Trigger("mnuLearnTry");
    QWidget& tried = WindowNamed("Try");
    auto* boxes = tried.findChild<QTableWidget*>();
    const char* values[] = {"0", "1000", "2.5", "300 T", "-5 T"};
    for (int row = 0; row < std::min<int>(boxes->rowCount(), std::size(values)); ++row)
      boxes->item(row, 1)->setText(QString::fromLatin1(values[row]));
    tried.findChild<QPushButton*>(QStringLiteral("cmdJudge"))->click();
    Take(tried, "16-try");
    tried.findChild<QPushButton*>(QStringLiteral("cmdHint"))->click();
    tried.resize(460, 340);
    Take(tried, "16-try-narrow");
    tried.close();
    Trigger("mnuLearnExercise");
    QWidget& exercise = WindowNamed("Exercise");
    QTest::qWait(800);
    Take(exercise, "16-exercise");
    exercise.close();
  }

  void TakeHelp() {
    HelpViewer help(messages_);
    const QString program = QCoreApplication::applicationDirPath() + QStringLiteral("/..");
    if (help.ShowTopic(program.toStdString() + ProgramHelpTopic)) Take(help, "15-help");
  }

  void TakePrintableReport(QWidget& window) {
    Take(window, "13-printable-report");
    auto* text = window.findChild<QTextEdit*>();
    for (const char* part : {"Counting the number", "The augmented matrix for", "The solution"}) {
      text->moveCursor(QTextCursor::End);
      text->setTextCursor(text->document()->find(Named(part)));
      Take(window, QStringLiteral("13-%1").arg(Named(part).replace(u' ', u'-').toLower()));
    }
    window.resize(window.minimumSize());
    Take(window, "13-smallest");
    AwaitModal([this](QWidget& preview) {
      Take(preview, "14-print-preview");
      preview.close();
    });
    window.findChild<QPushButton*>(Named("cmdReportPrint"))->click();
    window.close();
  }
};

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  const QStringList arguments = QApplication::arguments();
  const double points = arguments.size() == 5 ? arguments[4].toDouble() : 0;
  if (points <= 0) {
    std::cerr << "usage: orvane_screenshots DIRECTORY TRUSS light|dark POINTS\n";
    return 2;
  }
  QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
  if (arguments[3] == QStringLiteral("dark")) QApplication::setPalette(DarkPalette());
  QFont letters = QApplication::font();
  letters.setPointSizeF(points);
  QApplication::setFont(letters);
  try {
    Walk(DirectoryFor(arguments[1])).Run(arguments[2].toStdString());
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
  return 0;
}
