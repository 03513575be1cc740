// Where the report window opens. Both windows are worked with at the same time: one reads a report, clicks a
// joint in the drawing, and presses the button of the next report.
#pragma once

#include <vector>

/// A rectangle on the screen, pixels, y downward.
struct ScreenBox {
  int Left = 0, Top = 0, Width = 0, Height = 0;

  int Right() const { return Left + Width; }
  int Bottom() const { return Top + Height; }

  friend bool operator==(const ScreenBox&, const ScreenBox&) = default;
};

struct ReportSizes {
  int Width = 760, Height = 540;                  ///< what the window asks for, with its frame
  int SmallestWidth = 380, SmallestHeight = 200;  ///< less is of no use to a reader
};

/// The report window's place with its frame, inside `screen`: beside the main window where that leaves it
/// enough width, so that nothing is covered; else under the main window's step panel (which ends at
/// `panelBottom`), so that its buttons stay free, and at the screen's right edge, so that most of the drawing
/// does; else above the main window. Where the screen has room for none of this, in the lower right corner.
ScreenBox PlaceOfReport(const ScreenBox& screen, const ScreenBox& mainWindow, int panelBottom,
                        const ReportSizes& sizes = {});

/// What the window that explains asks for, the one with the forces, and the one with the checks: less width
/// than a report.
inline constexpr ReportSizes ExplanationSizes{
    .Width = 600, .Height = 700, .SmallestWidth = 340, .SmallestHeight = 200};
inline constexpr ReportSizes ForcesSizes{
    .Width = 680, .Height = 720, .SmallestWidth = 360, .SmallestHeight = 260};
inline constexpr ReportSizes StepsSizes{
    .Width = 780, .Height = 680, .SmallestWidth = 460, .SmallestHeight = 320};
inline constexpr ReportSizes ByJointSizes{
    .Width = 700, .Height = 640, .SmallestWidth = 420, .SmallestHeight = 260};
inline constexpr ReportSizes TrySizes{
    .Width = 760, .Height = 600, .SmallestWidth = 460, .SmallestHeight = 340};
inline constexpr ReportSizes ExerciseSizes{
    .Width = 780, .Height = 640, .SmallestWidth = 480, .SmallestHeight = 420};
inline constexpr ReportSizes ChecksSizes{
    .Width = 480, .Height = 320, .SmallestWidth = 300, .SmallestHeight = 160};

/// The place of a window that is read beside the main window and `others` (the report window and its like,
/// those that are shown), with its frame, inside `screen` and never of less than three fifths of what it
/// asks for, as far as the screen has it: on a side of the main window where none of them stands, if there is
/// enough width; else below one of them; else as the report would stand; and where that would cover one of
/// them, where least is covered: above all the beginning of no title, then buttons, drawing and texts.
ScreenBox PlaceOfExplanation(const ScreenBox& screen, const ScreenBox& mainWindow,
                             const std::vector<ScreenBox>& others, int panelBottom, const ReportSizes& sizes);
