// A user who does anything at all with the real window: random events from a seed, and what must hold after
// them.
#pragma once

#include <QTimer>
#include <iterator>
#include <random>
#include <string>

#include "analysis/Analysis.h"
#include "support/WindowEditingFixture.h"

class RandomUser : public WindowEditingFixture {
 protected:
  /// Seeds the run, says how it can be repeated, and puts down the files that the user opens and drops.
  /// Returns the number of events. ORVANE_RANDOM_EVENTS and ORVANE_RANDOM_SEED choose a longer run or repeat
  /// one.
  unsigned Begin(unsigned usualEvents);

  /// From now on whatever dialog opens gets a few keys and is then closed.
  void AnswerDialogs();

  void AnyEvent();

  // --- what must hold

  /// Tables, labels and arrows of the document fit together.
  void CheckDocument();

  /// A copy can be saved, read and analysed. Works with any drag of the window left alone.
  void CheckSavingAndAnalysis();

  /// In Step 3 the rows of a fresh Equations report are headed by the joints of the joint equations, in their
  /// order, and a fresh analysis of the truss says the same. The report window is left with the report that
  /// it showed.
  void CheckStep3();

  /// Gives up what is being drawn, with the right button: Escape would be the key of another window when that
  /// is active.
  void GiveUpDrawing();

  int Below(int bound) { return std::uniform_int_distribution<int>(0, bound - 1)(random_); }

  template <class Values>
  auto OneOf(const Values& values) {
    return *std::next(std::begin(values), Below(static_cast<int>(std::size(values))));
  }

  MessageAnswer YesOrNo() { return Below(2) == 0 ? MessageAnswer::Yes : MessageAnswer::No; }

 private:
  // On the drawing, with the mouse; keys; buttons; menus (RandomUserEvents.cpp).
  QPoint SomePoint();
  void MouseEvent();
  void KeyEvent();
  void ButtonEvent();
  void MenuEvent();
  void AnswerDialog();
  void UsePrintableReport(QWidget& report);

  // Windows and files (RandomUserWindows.cpp).
  void PutFiles();
  std::string RandomFile(int number) const {
    return directory_ / ("random" + std::to_string(number) + ".trs");
  }
  void WindowEvent(QWidget& window);
  void DoubleClick();
  void DropFiles();
  void SaveToFailingDisk();
  void ReportWindowEvent();
  void UseShownReport(QWidget& report);
  void UseLearning();
  void UseForces(QWidget& drawing);

  // Checks (RandomUserChecks.cpp).
  bool InStep1() const { return Widget("picToolBox")->isVisible(); }
  bool InStep3() const { return Widget("picStep3")->isVisible(); }
  QStringList JointsOfFreshEquations();
  void CheckJointEquations(const CountedTruss& counted, const QStringList& rows);

  std::mt19937 random_;
  QTimer dialogs_;
};
