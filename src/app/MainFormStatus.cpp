// What the main window's status bar says.
#include "app/DrawingNote.h"
#include "app/MainForm.h"
#include "app/StatusPanel.h"
#include "app/Step2Findings.h"
#include "app/StepTexts.h"
#include "canvas/Rulers.h"
#include "text/CodePage.h"

std::string MainForm::StepText() const {
  if (steps_.Current() == 2) {
    return ToUtf8(steps_.StatusText() + Step2Findings(on_.Document, NumNamesOutOfReach(), on_.Numbers)) +
           DrawingNote({.TicksAreLeftOut = TicksAreLeftOut()});
  }
  return steps_.StatusText().empty() ? Step1StatusText : ToUtf8(steps_.StatusText());
}

// In Step 2 the text of the step itself tells what was found.
void MainForm::NoteDrawing(bool jointsAreNumbered) {
  const bool isStep1 = steps_.Current() == 1;
  const bool isOutside =
      isStep1 &&
      IsTrussOutside(drawing_, on_.Document, {0, static_cast<float>(StepPanelHeight)},
                     {static_cast<float>(picDraw_->width()), static_cast<float>(picDraw_->height())});
  Note(StatusNote::Drawing, DrawingNote({.JointsAreNumbered = jointsAreNumbered,
                                         .TrussIsOutside = isOutside,
                                         .TicksAreLeftOut = isStep1 && TicksAreLeftOut()}));
}

bool MainForm::TicksAreLeftOut() const {
  return on_.Document.Settings.RulersOn && ::TicksAreLeftOut(drawing_.Mapping, on_.Document.View);
}

// Names under the panel of the step cannot be clicked either.
int MainForm::NumNamesOutOfReach() const {
  return NumLabelsOutside(drawing_, {0, static_cast<float>(StepPanelHeight)},
                          {static_cast<float>(picDraw_->width()), static_cast<float>(picDraw_->height())});
}

void MainForm::ShowStatus() {
  const QString text = QString::fromStdString(status_.Shown());
  // Every redraw comes here, and choosing the font that fits takes time.
  if (text == statusPanels_[0]->text()) return;
  statusPanels_[0]->ShowText(text);
}

void MainForm::ShowHint(StatusHint from, const std::string& hint) {
  status_.ShowHint(from, hint);
  ShowStatus();
}

void MainForm::EndHint(StatusHint from) {
  status_.EndHint(from);
  ShowStatus();
}

void MainForm::Note(StatusNote about, const std::string& text) {
  status_.Note(about, text);
  ShowStatus();
}
