// A user who does anything at all with the real windows: random events from a seed, and what must hold after
// them. Each kind of action has a file of its own beside this one; a new one takes a line in AllActions
// (RandomUser.cpp).
#pragma once

#include <QTimer>
#include <iterator>
#include <random>
#include <string>

#include "analysis/Analysis.h"
#include "app/randomuser/EitherPartner.h"
#include "support/WindowEditingFixture.h"

class QMessageBox;
class QFileDialog;
class QPrintDialog;

class RandomUser : public WindowEditingFixture {
 protected:
  RandomUser();
  ~RandomUser() override;

  /// Seeds the run, says how it can be repeated, and puts down the files that the user opens and drops.
  /// Returns the number of events. ORVANE_RANDOM_EVENTS and ORVANE_RANDOM_SEED choose a longer run or repeat
  /// one.
  unsigned Begin(unsigned usualEvents);

  /// A new window with an empty truss, as a start of the program makes it, past the instructions.
  void StartProgram();

  /// From now on whatever dialog opens is worked in for a while and is then left.
  void AnswerDialogs();

  /// Then the program runs: who has left it has started it again.
  void AnyEvent();

  // --- what must hold (Checks.cpp)

  /// Tables, counters, labels and arrows of the document fit together, and the window says which it is.
  void CheckDocument();

  /// What stands on the canvas is what the tables say.
  void CheckDrawing();

  /// A copy can be saved and read. Works with any drag of the window left alone.
  void CheckSaving();

  /// A copy can be analysed.
  void CheckAnalysis();

  /// In Step 3 the rows of a fresh Equations report are headed by the joints of the joint equations, in their
  /// order, and a fresh analysis of the truss says the same. The report window is left with the report that
  /// it showed.
  void CheckStep3();

  /// Gives up what is being drawn, with the right button: Escape would be the key of another window when that
  /// is active.
  void GiveUpDrawing();

  bool InStep1() const { return Widget("picToolBox")->isVisible(); }

  int Below(int bound) { return std::uniform_int_distribution<int>(0, bound - 1)(random_); }
  bool OneIn(int count) { return Below(count) == 0; }

  template <class Values>
  auto OneOf(const Values& values) {
    return *std::next(std::begin(values), Below(static_cast<int>(std::size(values))));
  }

  MessageAnswer YesOrNo() { return OneIn(2) ? MessageAnswer::Yes : MessageAnswer::No; }

  /// The separator of the numbers that the windows show and read; for windows that are started from now on.
  NumberFormat numbers_;

 private:
  struct Action {
    const char* Name;
    int Weight;  // how often, of the sum of all weights
    void (RandomUser::*Do)();
  };
  static const std::vector<Action>& AllActions();

  // On the drawing (Drawing.cpp).
  QPoint SomePoint();
  void UseMouse();
  void DoubleClickOnDrawing();
  void TurnWheel();

  // Keys.cpp.
  void PressKey();
  void PressShortcut();
  void TypeNumber();

  // Buttons and menus of the main window (Menus.cpp).
  void PressButton();
  void PressAnyButtonTwice();
  void ChooseEntry();
  void UsePopup(QWidget& popup);

  // Dialogs.cpp.
  void AnswerDialog();
  void UseDialog(QWidget& dialog);
  void AnswerMessage(QMessageBox& box);
  void AnswerChooser(QFileDialog& dialog);
  void UseSettings(QWidget& dialog);
  void TypeAndLeave(QWidget& dialog);

  // Paper.cpp.
  void UsePrintableReport(QWidget& report);
  void UsePreview(QWidget& preview);
  void AnswerPrinter(QPrintDialog& dialog);

  // Windows beside the main one (Windows.cpp).
  void ResizeMainForm();
  void ResizeAny(QWidget& window);
  void UseReport();
  void UseHelp();
  void UseOtherWindows();
  void UseAnything(QWidget& window);
  void UseArea(QWidget& window);

  // Files.cpp.
  void PutFiles();
  std::string RandomFile(int number) const {
    return directory_ / ("random" + std::to_string(number) + ".trs");
  }
  std::string SomeFile();
  void DropFiles();
  void SaveToFailingDisk();
  void SaveOverAnothersChange();
  void ChangeAFile();

  // Closing.cpp.
  void CloseProgram();
  void StartAgainIfLeft();

  // Checks.cpp.
  bool InStep3() const { return Widget("picStep3")->isVisible(); }
  bool IsDrawingAMember() const;  // it has no labels yet, and is no part of the truss
  QStringList JointsOfFreshEquations();
  void CheckJointEquations(const CountedTruss& counted, const QStringList& rows);

  std::mt19937 random_;
  QTimer dialogs_;
  EitherMessageBox eitherMessages_{messages_};
  EitherFileChooser eitherChooser_{chooser_};
  bool mouseIsDown_ = false;  // a button is pressed on the drawing
  int dialogTurns_ = 0;       // how often the dialog that is open has been worked in
};
