// The main window with stand-ins for message boxes, file choosers and the settings store, driven with the
// events that a mouse and a keyboard send.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <functional>
#include <string>
#include <vector>

#include "app/InstructionFrame.h"
#include "app/MainForm.h"
#include "document/TrussFile.h"
#include "support/FakeFileChooser.h"
#include "support/FakeMessageBox.h"
#include "support/LoadedTriangle.h"
#include "support/MemorySettingsStore.h"
#include "support/TemporaryDirectory.h"

class MainFormTest : public testing::Test {
 protected:
  // The window of this size on the inside, menu bar apart, without the instructions.
  MainForm& Started(int width = 566, int height = 500) {
    Shown();
    ResizeInside(width, height);
    Click("cmdOKInstruct1");
    return *form_;
  }

  // The window as it starts.
  MainForm& Shown() {
    form_ = std::make_unique<MainForm>(
        MainForm::Partners{truss_, store_, messages_, chooser_, NumberFormat{}, programDirectory_});
    form_->show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(form_.get()));
    return *form_;
  }

  void ResizeInside(int width, int height) {
    form_->resize(width, height + form_->menuBar()->height());
    QApplication::processEvents();
  }

  // Opens the truss from a file through the menu.
  void OpenTruss(Truss truss, const std::string& name = "a.trs") {
    chooser_.Choice = directory_.Put(name, TrussText(truss));
    Trigger("mnuFileOpen");
  }

  // A truss as if it had just been drawn, in the view of the window.
  void Draw(const Truss& truss) {
    const DerivedView view = truss_.View;
    truss_ = truss;
    truss_.View = view;
  }

  void OpenInStep2(const Truss& truss) {
    OpenTruss(truss);
    Click("cmdNext1");
  }

  void OpenInStep3(const Truss& truss) {
    OpenInStep2(truss);
    Click("cmdNext2");
  }

  template <class Object>
  Object* Find(const char* name) const {
    auto* found = form_->findChild<Object*>(QString::fromUtf8(name));
    EXPECT_NE(found, nullptr) << name;
    return found;
  }

  QWidget* Widget(const char* name) const { return Find<QWidget>(name); }
  QAction* Entry(const char* name) const { return Find<QAction>(name); }
  CanvasWidget* Canvas() const { return Find<CanvasWidget>("picDraw"); }
  QMenu* FileMenu() const { return Find<QMenu>("mnuFile"); }

  void Click(const char* button) { QTest::mouseClick(Find<QPushButton>(button), Qt::LeftButton); }

  // A disabled entry does nothing, like one that is clicked on.
  void Trigger(const char* entry) { Entry(entry)->trigger(); }

  QString Status(int panel = 1) const {
    return Find<QLabel>(panel == 1 ? "StatusBar1(1)" : "StatusBar1(2)")->text();
  }

  QString Caption(const char* entry) const { return Entry(entry)->text(); }

  static QWidget* Report() {
    for (QWidget* window : QApplication::topLevelWidgets()) {
      if (window->objectName() == QStringLiteral("Report")) return window;
    }
    return nullptr;
  }

  // --- the drawing

  void MoveMouse(const QPoint& point) {
    QMouseEvent move(QEvent::MouseMove, QPointF(point), Canvas()->mapToGlobal(QPointF(point)), Qt::NoButton,
                     Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(Canvas(), &move);
  }

  const Drawing& Shapes() const { return Canvas()->Shown(); }

  LabelIndex JointLabel(const std::string& name) const {
    for (const JointRec& joint : truss_.JointsInUse()) {
      if (truss_.Name(joint.NameLabel) == name) return joint.NameLabel;
    }
    ADD_FAILURE() << "no joint is named " << name;
    return 1;
  }

  // A point of the label, near its left top corner, that no other label covers in the trusses used here.
  QPoint PointOf(LabelIndex label) const {
    const LabelPlace& place = Shapes().lblRodJoint[label];
    return {static_cast<int>(place.Left) + 3, static_cast<int>(place.Top) + 3};
  }

  void ClickLabel(LabelIndex label) {
    QTest::mouseClick(Canvas(), Qt::LeftButton, Qt::NoModifier, PointOf(label));
  }

  int NumVisibleLabels() const {
    int count = 0;
    for (const LabelPlace& place : Shapes().lblRodJoint.First(Shapes().lblRodJoint.Size()))
      count += place.Visible;
    return count;
  }

  int NumVisibleArrowLines() const {
    int count = 0;
    for (const ArrowSegment& line : Shapes().ArLin.First(Shapes().ArLin.Size())) count += line.Visible;
    return count;
  }

  // The canvas as it stands on the screen.
  QImage Picture() const { return Canvas()->grab().toImage(); }
  QColor Pixel(int x, int y) const { return Picture().pixelColor(x, y); }

  // --- windows that wait for an answer

  // Runs `act` in the modal window that opens next; on a slow machine the progress of its making comes before
  // it. Call it before what opens the window.
  void InModalWindow(const std::function<void(QWidget&)>& act) {
    auto* timer = new QTimer(form_.get());
    QObject::connect(timer, &QTimer::timeout, timer, [this, timer, act] {
      QWidget* window = QApplication::activeModalWidget();
      if (window == nullptr || window->objectName() == QStringLiteral("progress")) return;
      timer->deleteLater();
      ++modalWindows_;
      act(*window);
      if (window->isVisible()) {
        ADD_FAILURE() << "the modal window was not closed";
        window->close();
      }
    });
    timer->start(5);
  }

  // Types into the input dialog that opens next, over the text that it holds, and presses a key.
  void AnswerInputBox(const QString& typed, Qt::Key key = Qt::Key_Return) {
    InModalWindow([this, typed, key](QWidget& window) {
      auto* box = window.findChild<QWidget*>(QStringLiteral("txtInput"));
      offeredName_ = box->property("text").toString();
      inputBoxCorner_ = window.pos();
      QTest::keyClicks(box, typed);
      QTest::keyClick(box, key);
    });
  }

  TemporaryDirectory directory_;
  MemorySettingsStore store_;
  FakeMessageBox messages_;
  FakeFileChooser chooser_;
  Truss truss_;
  std::string programDirectory_ = "/program";
  std::unique_ptr<MainForm> form_;
  int modalWindows_ = 0;
  QString offeredName_;
  QPoint inputBoxCorner_;
};
