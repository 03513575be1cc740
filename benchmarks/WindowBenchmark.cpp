// The window with the largest document: opening, redrawing, stepping, reports, and the mouse on the canvas.
// Runs on the offscreen platform unless another is asked for.
#include <benchmark/benchmark.h>

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QLocale>
#include <QMouseEvent>
#include <filesystem>
#include <fstream>
#include <memory>

#include "DrawingBenchmark.h"
#include "ReportBenchmark.h"
#include "ShapeDocument.h"
#include "app/MainForm.h"
#include "explanation/MotionView.h"
#include "explanation/forces/ForcesView.h"
#include "support/FakeFileChooser.h"
#include "support/FakeMessageBox.h"
#include "support/MemorySettingsStore.h"

namespace {

using benchmark::State;

// A file of a truss of the largest size; removed at the end.
class LargestFile {
 public:
  explicit LargestFile(const TrussShape& shape = WarrenStrip(LargestNumUnknowns))
      : path_(std::filesystem::temp_directory_path() / "orvane-window-benchmark.trs") {
    std::ofstream(path_, std::ios::binary) << FileTextOf(shape);
  }
  LargestFile(const LargestFile&) = delete;
  LargestFile& operator=(const LargestFile&) = delete;
  ~LargestFile() { std::filesystem::remove(path_); }
  std::string Path() const { return path_.string(); }

 private:
  std::filesystem::path path_;
};

// The window and the world around it.
class Window {
 public:
  Window()
      : form_(std::make_unique<MainForm>(
            MainForm::Partners{truss_, store_, messages_, chooser_, NumberFormat{}, "/"})) {
    form_->show();
    QApplication::processEvents();
  }

  void Open(const std::string& path) {
    form_->OpenAtStart(path, false);
    Paint();
  }

  void Paint() {
    Canvas()->ShowDrawing();
    Canvas()->grab();
  }

  // A resize redraws the whole truss.
  void RedrawAndPaint() {
    wide_ = !wide_;
    form_->resize(wide_ ? 900 : 901, 700);
    QApplication::processEvents();
  }

  void Click(const char* button) {
    form_->findChild<QAbstractButton*>(QString::fromLatin1(button))->click();
    QApplication::processEvents();
  }

  void Choose(const char* entry) {
    form_->findChild<QAction*>(QString::fromLatin1(entry))->trigger();
    QApplication::processEvents();
  }

  void Send(QEvent::Type type, QPointF at, bool held) {
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, at, Canvas()->mapToGlobal(at), button, held ? Qt::LeftButton : Qt::NoButton,
                      Qt::NoModifier);
    QApplication::sendEvent(Canvas(), &event);
  }

  QPointF EndOf(int member) {
    const PixelLine& rod = Canvas()->Shown().Rod[member];
    return {double{rod.X2}, double{rod.Y2}};
  }

  QPointF NearEndOf(int member) {
    const PixelLine& rod = Canvas()->Shown().Rod[member];
    return {0.2 * double{rod.X1} + 0.8 * double{rod.X2}, 0.2 * double{rod.Y1} + 0.8 * double{rod.Y2}};
  }

  CanvasWidget* Canvas() const { return form_->findChild<CanvasWidget*>(); }

 private:
  Truss truss_;
  MemorySettingsStore store_;
  FakeMessageBox messages_;
  FakeFileChooser chooser_;
  std::unique_ptr<MainForm> form_;
  bool wide_ = false;
};

template <class View>
View* ViewOnScreen() {
  for (QWidget* widget : QApplication::allWidgets()) {
    auto* view = qobject_cast<View*>(widget);
    if (view != nullptr && view->isVisible()) return view;
  }
  return nullptr;
}

void StartUp(State& state) {
  for (auto unused : state) {
    Window window;
    window.Paint();
  }
}

void OpenToPainted(State& state) {
  const LargestFile file;
  Window window;
  for (auto unused : state) window.Open(file.Path());
}

void RedrawInStep(State& state, int step) {
  const LargestFile file;
  Window window;
  window.Open(file.Path());
  if (step == 2) window.Click("cmdNext1");
  for (auto unused : state) window.RedrawAndPaint();
}

void StepForward(State& state, const char* before, const char* next, const char* back) {
  const LargestFile file;
  Window window;
  window.Open(file.Path());
  if (before != nullptr) window.Click(before);
  for (auto unused : state) {
    window.Click(next);
    state.PauseTiming();
    window.Click(back);
    state.ResumeTiming();
  }
}

void OpenReport(State& state, const char* button) {
  const LargestFile file;
  Window window;
  window.Open(file.Path());
  window.Click("cmdNext1");
  window.Click("cmdNext2");
  for (auto unused : state) window.Click(button);
}

// The widest table of a truss that has just been analysed. How sure its figures are is told when it is known.
void OpenMatrixFirst(State& state, const NamedShape& shape) {
  const LargestFile file(shape.Make(LargestNumUnknowns));
  Window window;
  window.Open(file.Path());
  window.Click("cmdNext1");
  for (auto unused : state) {
    state.PauseTiming();
    window.Click("cmdPrev3");
    window.Click("cmdNext2");
    state.ResumeTiming();
    window.Click("cmdReportRREF");
  }
}

// The same once its numbers are known.
void OpenMatrixAgain(State& state, const NamedShape& shape) {
  const LargestFile file(shape.Make(LargestNumUnknowns));
  Window window;
  window.Open(file.Path());
  window.Click("cmdNext1");
  window.Click("cmdNext2");
  window.Click("cmdReportRREF");
  for (auto unused : state) {
    state.PauseTiming();
    window.Click("cmdReportCounting");
    state.ResumeTiming();
    window.Click("cmdReportRREF");
  }
}

// Of a triangulated grid whose last joints hang in the air, so that there is something to tell.
void ExplainInWindow(State& state) {
  const LargestFile file(TriangulatedGrid(LargestNumUnknowns));
  Window window;
  window.Open(file.Path());
  window.Click("cmdNext1");
  for (auto unused : state) {
    state.PauseTiming();
    window.Click("cmdNext2");  // the explanation of the analysis before is forgotten
    state.ResumeTiming();
    window.Choose("mnuLearnWhy");
    state.PauseTiming();
    window.Click("cmdPrev3");
    state.ResumeTiming();
  }
}

void SwingInWindow(State& state) {
  const LargestFile file(TriangulatedGrid(LargestNumUnknowns));
  Window window;
  window.Open(file.Path());
  window.Click("cmdNext1");
  window.Click("cmdNext2");
  window.Choose("mnuLearnWhy");
  auto* view = ViewOnScreen<MotionView>();
  double swing = 0;
  for (auto unused : state) {
    swing = swing > 1 ? -1 : swing + 0.1;
    view->Swing(swing);
    view->repaint();
  }
}

// Zooming places all texts anew and paints. `zoom` steps in from the whole.
void ZoomForces(State& state, TrussShape (*shape)(int), int zoom) {
  const LargestFile file(shape(LargestNumUnknowns));
  Window window;
  window.Open(file.Path());
  window.Click("cmdNext1");
  window.Click("cmdNext2");
  window.Choose("mnuLearnForces");
  auto* view = ViewOnScreen<ForcesView>();
  for (int i = 0; i < zoom; ++i) view->ZoomIn();
  bool in = false;
  for (auto unused : state) {
    in = !in;
    if (in) {
      view->ZoomIn();
    } else {
      view->ZoomOut();
    }
    view->repaint();
  }
}

void CheckInWindow(State& state) {
  const LargestFile file;
  Window window;
  window.Open(file.Path());
  for (auto unused : state) window.Choose("mnuLearnCheck");
}

void FindLabel(State& state) {
  const LargestFile file;
  Window window;
  window.Open(file.Path());
  window.Click("cmdNext1");
  for (auto unused : state) benchmark::DoNotOptimize(LabelAt(window.Canvas()->Shown(), 300, 300));
}

void MoveMouse(State& state) {
  const LargestFile file;
  Window window;
  window.Open(file.Path());
  window.Click("imgTool(1)");
  double x = 100;
  for (auto unused : state) {
    x = x > 400 ? 100 : x + 1;
    window.Send(QEvent::MouseMove, QPointF(x, 300), false);
  }
}

void PressThatPicks(State& state) {
  const LargestFile file;
  Window window;
  window.Open(file.Path());
  window.Click("imgTool(7)");
  const QPointF at = window.NearEndOf(4000);
  for (auto unused : state) {
    window.Send(QEvent::MouseButtonPress, at, true);
    state.PauseTiming();
    window.Send(QEvent::MouseButtonRelease, at, false);
    window.Click("imgTool(7)");
    state.ResumeTiming();
  }
}

void DragMemberEnd(State& state) {
  const LargestFile file;
  Window window;
  window.Open(file.Path());
  window.Click("imgTool(7)");
  window.Send(QEvent::MouseButtonPress, window.NearEndOf(4000), true);
  window.Send(QEvent::MouseButtonRelease, window.NearEndOf(4000), false);
  const QPointF end = window.EndOf(4000);
  window.Send(QEvent::MouseButtonPress, end, true);
  double lift = 0;
  for (auto unused : state) {
    lift = lift > 100 ? 0 : lift + 1;
    window.Send(QEvent::MouseMove, end - QPointF(0, lift), true);
    window.Canvas()->repaint();
  }
  window.Send(QEvent::MouseButtonRelease, end, false);
}

template <class Function, class... Arguments>
void Register(const std::string& name, Function function, Arguments... arguments) {
  benchmark::RegisterBenchmark(("window, largest Warren strip/" + name).c_str(), function, arguments...)
      ->Unit(benchmark::kMillisecond)
      ->UseRealTime();
}

}  // namespace

int main(int argc, char** argv) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QLocale::setDefault(QLocale::c());
  QApplication application(argc, argv);
  Register("start-up without a file, painted", StartUp);
  Register("open to painted", OpenToPainted);
  Register("redraw and paint in Step 1", RedrawInStep, 1);
  Register("redraw and paint with names and arrows", RedrawInStep, 2);
  Register("Next to Step 2", StepForward, nullptr, "cmdNext1", "cmdPrev2");
  Register("Next to Step 3", StepForward, "cmdNext1", "cmdNext2", "cmdPrev3");
  Register("open the Counting report", OpenReport, "cmdReportCounting");
  Register("open the Equations report", OpenReport, "cmdReportSystemEqs");
  for (const NamedShape& shape : AllShapes()) {
    Register("open the RREF report first, of " + shape.Name, OpenMatrixFirst, shape);
    Register("open the RREF report again, of " + shape.Name, OpenMatrixAgain, shape);
  }
  Register("open the Solutions report", OpenReport, "cmdReportSolutions");
  Register("open Why this conclusion of the largest grid", ExplainInWindow);
  Register("a frame of a motion of the largest grid", SwingInWindow);
  Register("a zoom of the forces of the whole strip", ZoomForces, &WarrenStrip, 0);
  Register("a zoom of the forces of a part of the strip", ZoomForces, &WarrenStrip, 20);
  Register("a zoom of the forces of the whole grid", ZoomForces, &BracedGrid, 0);
  Register("a zoom of the forces of a part of the grid", ZoomForces, &BracedGrid, 8);
  Register("check the drawing", CheckInWindow);
  Register("find the label under the mouse", FindLabel);
  Register("mouse move with read-out and snapping", MoveMouse);
  Register("mouse press that picks", PressThatPicks);
  Register("drag of a member end, a frame", DragMemberEnd);
  RegisterDrawingBenchmarks();
  RegisterReportBenchmarks();
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
