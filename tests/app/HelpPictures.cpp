// Takes the pictures that the help shows; see scripts/help-pictures:
//   orvane_help_pictures DIRECTORY EXAMPLES
// The first truss of the help is drawn here with the mouse, just as its page tells it.
#include <QLineEdit>
#include <QListView>
#include <QMouseEvent>
#include <QRadioButton>
#include <QStyleFactory>
#include <QTableWidget>
#include <cmath>
#include <iostream>

#include "support/Photographer.h"

namespace {

class HelpPictures : Photographer {
 public:
  HelpPictures(QDir pictures, std::string examples)
      : Photographer(std::move(pictures)), examples_(std::move(examples)) {}

  void Run() {
    Settle();
    Take(form_, "welcome");
    Click("cmdOKInstruct1");
    TakeTools();
    TakeMenu("mnuFile", "file-menu");
    TakeModal("mnuSettings", "settings");
    DrawFirstTruss();
    UseKeyboard();
    UseValueEditor();
    NameFirstTruss();
    ReadReports();
    TakeSupports();
    TakeOutcomes();
    TakeAutoNames();
    TakeLearn();
  }

 private:
  // --- the mouse on the canvas, in world coordinates

  QPoint At(float x, float y) {
    const Graph& mapping = Canvas().Shown().Mapping;
    return {static_cast<int>(std::lround(mapping.XPixel(x))),
            static_cast<int>(std::lround(mapping.YPixel(y)))};
  }

  void Press(QPoint point) { QTest::mousePress(&Canvas(), Qt::LeftButton, Qt::NoModifier, point); }
  void Release(QPoint point) { QTest::mouseRelease(&Canvas(), Qt::LeftButton, Qt::NoModifier, point); }

  void MoveTo(QPoint point, Qt::MouseButton held = Qt::NoButton) {
    QMouseEvent move(QEvent::MouseMove, QPointF(point), Canvas().mapToGlobal(QPointF(point)), Qt::NoButton,
                     held, Qt::NoModifier);
    QApplication::sendEvent(&Canvas(), &move);
  }

  void Drag(QPoint from, QPoint to) {
    Press(from);
    MoveTo((from + to) / 2, Qt::LeftButton);
    MoveTo(to, Qt::LeftButton);
    Release(to);
  }

  void ClickAt(QPoint point) {
    Press(point);
    Release(point);
  }

  void ChooseTool(Tool tool) { Click(("imgTool(" + std::to_string(static_cast<int>(tool)) + ")").c_str()); }

  void Key(Qt::Key key) { QTest::keyClick(&Canvas(), key); }

  /// The canvas between two points of the world.
  void TakeCanvas(const char* name, QPoint leftTop, QPoint rightBottom) {
    Take(Canvas(), name, QRect(leftTop, rightBottom));
  }

  void TakeFirstTruss(const char* name) { TakeCanvas(name, At(3.5F, 11.5F), At(16.5F, 1.5F)); }

  /// The upper end of the window: menus, the panel of the step.
  void TakePanel(const char* name) {
    Take(form_, name, QRect(0, 0, form_.width(), form_.menuBar()->height() + StepPanelHeight));
  }

  // --- what stands on the pages

  void TakeTools() {
    TakePanel("tools");
    for (int tool = 1; tool <= NumTools; ++tool) {
      const std::string number = std::to_string(tool);
      Take(Find<QWidget>(("imgTool(" + number + ")").c_str()), ("tool" + number).c_str());
    }
  }

  void DrawFirstTruss() {
    ChooseTool(Tool::TrussMember);
    const QPoint a = At(6, 4);
    const QPoint b = At(14, 4);
    const QPoint c = At(10, 8);
    Drag(a, b);
    Drag(a, c);
    Press(b);
    MoveTo(At(11.5F, 6.5F), Qt::LeftButton);
    TakeFirstTruss("drawing-a-member");
    MoveTo(c, Qt::LeftButton);
    Release(c);
    TakeFirstTruss("first-members");
    ChooseTool(Tool::Clamp);
    ClickAt(a);
    ChooseTool(Tool::Roller);
    ClickAt(b);
    TakeFirstTruss("first-supports");
    ChooseTool(Tool::Force);
    Drag(c, At(10, 7));
    TakeFirstTruss("first-force");
    MoveTo(At(12.5F, 9.5F));
    Take(form_, "step1");
    const QWidget& status = Find<QWidget>("StatusBar1");
    Take(form_, "status-bar", status.geometry());
  }

  void UseKeyboard() {
    ChooseTool(Tool::TrussMember);
    form_.activateWindow();
    if (!QTest::qWaitForWindowActive(&form_)) throw std::runtime_error("the window has no focus");
    Canvas().setFocus();
    MoveTo(At(10, 8));
    for (int i = 0; i < 4; ++i) Key(Qt::Key_Right);
    TakeFirstTruss("keyboard-cursor");
    MoveTo(At(1, 1));
  }

  void UseValueEditor() {
    ChooseTool(Tool::Move);
    ClickAt(At(7, 5));
    TakeFirstTruss("handles");
    ChooseTool(Tool::NumericalValue);
    ClickAt(At(9.5F, 7.5F));
    QWidget& member = Find<QWidget>("frNewCoords(1)");
    Find<QRadioButton>("optAbsolute(1)").click();
    TakeCanvas("value-editor", At(0.2F, 18), At(17.5F, 2));
    Take(member, "value-absolute");
    Find<QRadioButton>("optRectangular(1)").click();
    Take(member, "value-rectangular");
    Find<QRadioButton>("optPolar(1)").click();
    Take(member, "value-polar");
    Click("cmdNewCoordsCancel(1)");
    ClickAt(At(10, 7.5F));
    QWidget& force = Find<QWidget>("frNewCoords(2)");
    Find<QRadioButton>("optRectangular(2)").click();
    Take(force, "value-force");
    Find<QRadioButton>("optPolar(2)").click();
    Take(force, "value-force-polar");
    Click("cmdNewCoordsCancel(2)");
  }

  void Name(LabelIndex label, const char* name, const char* picture = nullptr) {
    AwaitModal([this, name, picture](QWidget& dialog) {
      auto* text = dialog.findChild<QLineEdit*>(QStringLiteral("txtInput"));
      if (picture != nullptr) Take(dialog, picture);
      text->setText(Named(name));
      dialog.findChild<QPushButton*>(QStringLiteral("cmdOK"))->click();
    });
    ClickLabel(label);
    Settle();
  }

  void NameFirstTruss() {
    Click("cmdNext1");
    TakePanel("panel-step2");
    Name(truss_.Supports[1].NameLabel1, "Ax", "name-dialog");
    Name(truss_.Supports[1].NameLabel2, "Ay");
    Name(truss_.Supports[2].NameLabel1, "B");
    Name(truss_.Members[1].NameLabel1, "AB");
    Name(truss_.Members[2].NameLabel1, "AC");
    Name(truss_.Members[3].NameLabel1, "BC");
    Name(truss_.Joints[1].NameLabel, "A");
    Name(truss_.Joints[2].NameLabel, "B");
    Name(truss_.Joints[3].NameLabel, "C");
    form_.setFocus();
    TakeFirstTruss("first-names");
    Take(form_, "step2");
  }

  void TakePrintableReport() {
    AwaitModal([this](QWidget& report) {
      report.resize(700, 660);
      QTest::qWait(300);
      Take(report, "printable-report");
      report.close();
    });
    Trigger("mnuFilePrint");
  }

  void TakeReport(const char* button, const char* name, int width, int height) {
    Click(button);
    ReportWindow().resize(width, height);
    Take(ReportWindow(), name);
  }

  void ReadReports() {
    Click("cmdNext2");
    TakePanel("panel-step3");
    TakeReport("cmdReportCounting", "report-counting", 600, 470);
    TakeReport("cmdReportSystemEqs", "report-equations", 440, 170);
    TakeReport("cmdReportRREF", "report-rref", 440, 170);
    TakeReport("cmdReportSolutions", "report-solutions", 300, 190);
    ReportWindow().hide();
    ClickLabel(truss_.Joints[2].NameLabel);
    Take(form_, "step3");
    Take(Find<QWidget>("frNewCoords(3)"), "joint-equations");
    Click("cmdOKJointReport");
    TakePrintableReport();
    ReportWindow().hide();
  }

  void TakeSupports() {
    Trigger("mnuFileNew");
    for (int kind = 0; kind < 2; ++kind) {
      const float y = kind == 0 ? 13 : 7.5F;
      for (int turns = 0; turns < 4; ++turns) {
        const QPoint place = At(3 + 4.75F * static_cast<float>(turns), y);
        ChooseTool(kind == 0 ? Tool::Clamp : Tool::Roller);
        ClickAt(place);
        ChooseTool(Tool::ReOrientation);
        for (int i = 0; i < turns; ++i) ClickAt(place);
      }
    }
    Click("cmdNext1");
    Click("cmdAutoName(1)");
    TakeCanvas("supports", At(0.2F, 15.2F), At(19.8F, 4.2F));
  }

  // What the program says of the four kinds of trusses.
  void TakeOutcomes() {
    TakeSolutions("redundant.trs", "report-redundant", 420, 285);
    TakeSolutions("inconsistent.trs", "report-inconsistent", 420, 140);
    TakeSolutions("tie.trs", "report-notice", 560, 310);
    TakeSolutions("undetermined.trs", "report-undetermined", 300, 275);
  }

  void TakeSolutions(const char* example, const char* name, int width, int height) {
    Open(examples_ + '/' + example);
    Click("cmdNext1");
    Click("cmdNext2");
    TakeReport("cmdReportSolutions", name, width, height);
    ReportWindow().hide();
  }

  void TakeAutoNames() {
    Open(examples_ + "/unnamed.trs");
    Click("cmdNext1");
    const auto take = [this](const char* name) { TakeCanvas(name, At(-2.9F, 4.5F), At(14.9F, -2.9F)); };
    take("unnamed");
    Click("cmdAutoName(1)");
    take("autonamed");
  }

  // The two windows of the menu Learn, each on a truss that gives it something to say.
  void TakeLearn() {
    Open(examples_ + "/parallelogram.trs");
    Click("cmdNext1");
    Click("cmdNext2");
    Trigger("mnuLearnWhy");
    QWidget& why = WindowNamed("Why");
    why.resize(560, 640);
    Settle();
    Take(why, "why-window");
    why.close();
    TakeSteps();
    TakeTry();
    Open(examples_ + "/near-joint.trs");
    Trigger("mnuLearnCheck");
    QWidget& checks = WindowNamed("Checks");
    checks.resize(460, 190);
    Settle();
    Take(checks, "checks-window");
    checks.close();
  }

  // The last pivot row of the triangle is subtracted from another one.
  void TakeSteps() {
    Open(examples_ + "/triangle.trs");
    Click("cmdNext1");
    Click("cmdNext2");
    Trigger("mnuLearnSteps");
    QWidget& steps = WindowNamed("Steps");
    steps.resize(720, 500);
    auto& list = *steps.findChild<QListView*>(QStringLiteral("lstSteps"));
    list.setCurrentIndex(list.model()->index(11, 0));
    Settle();
    Take(steps, "steps-window");
    steps.close();
  }

  // A slip, a wrong sense, and a power of ten.
  void TakeTry() {
    Open(examples_ + "/triangle.trs");
    Click("cmdNext1");
    Click("cmdNext2");
    Trigger("mnuLearnTry");
    QWidget& tried = WindowNamed("Try");
    tried.resize(760, 480);
    auto& boxes = *tried.findChild<QTableWidget*>();
    int row = 0;
    for (const char* value : {"0", "500", "500", "500 T", "-707", "7071"})
      boxes.item(row++, 1)->setText(QString::fromLatin1(value));
    tried.findChild<QPushButton*>(QStringLiteral("cmdJudge"))->click();
    Settle();
    Take(tried, "try-window");
    tried.close();
  }

  std::string examples_;
};

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  const QStringList arguments = QApplication::arguments();
  if (arguments.size() != 3) {
    std::cerr << "usage: orvane_help_pictures DIRECTORY EXAMPLES\n";
    return 2;
  }
  QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
  QApplication::setCursorFlashTime(0);  // else a picture shows the text cursor and the next one does not
  try {
    HelpPictures(DirectoryFor(arguments[1]), arguments[2].toStdString()).Run();
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
  return 0;
}
