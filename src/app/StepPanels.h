// The panels of steps 2 and 3 and what all three panels have in common: a caption that says which step this
// is, and the buttons to the neighbouring steps at the right end. Positions follow the main window's width.
#pragma once

#include <QFrame>
#include <QLabel>
#include <QPushButton>
#include <initializer_list>

/// Pixels. The panels lie over the strip of the canvas above the drawing area.
inline constexpr int StepPanelHeight = 46;

/// A step's caption and step buttons on a panel; `captionLeft` is the fixed left edge of the space in which
/// the caption is centred.
struct StepNavigation {
  QLabel* Caption = nullptr;
  QPushButton* Prev = nullptr;  ///< absent in Step 1
  QPushButton* Next = nullptr;  ///< absent in Step 3
  int CaptionLeft = 0;

  /// Places them for a window of this inner width. The caption is set in the largest font up to `wanted` that
  /// fits the space; in a window that is too narrow for any it is hidden.
  void Layout(int windowWidth, const QFont& wanted) const;
};

QPushButton* AddStepButton(QWidget* panel, const QString& objectName, const QString& text,
                           const QString& toolTip);
QLabel* AddStepCaption(QWidget* panel, const QString& objectName, const QString& text);

/// A push button in the panel's row of buttons.
QPushButton* AddPanelButton(QWidget* panel, const QString& objectName, const QString& text,
                            const QString& toolTip, int left, int width);

/// Sets all push buttons of the panels in one font, the largest up to `wanted` in which every caption fits,
/// and gives them the height that it asks for.
void FitStepButtons(std::initializer_list<QWidget*> panels, const QFont& wanted);
