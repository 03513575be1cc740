// Where the report window opens on screens of several sizes.
#include "app/ReportPlace.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace {

constexpr ScreenBox Notebook{.Left = 0, .Top = 0, .Width = 1366, .Height = 768};
constexpr ScreenBox LargeScreen{.Left = 0, .Top = 0, .Width = 1920, .Height = 1080};
constexpr ScreenBox SmallScreen{.Left = 0, .Top = 0, .Width = 960, .Height = 540};

// The main window as it starts: 8490 twips wide, in the middle, a twentieth of the screen below its top.
ScreenBox MainWindowOn(const ScreenBox& screen) {
  return {.Left = screen.Left + (screen.Width - 566) / 2,
          .Top = screen.Top + screen.Height / 20,
          .Width = 566,
          .Height = 500};
}

int PanelBottom(const ScreenBox& mainWindow) { return mainWindow.Top + 110; }

ScreenBox PlaceBeside(const ScreenBox& screen, const ScreenBox& mainWindow) {
  return PlaceOfReport(screen, mainWindow, PanelBottom(mainWindow));
}

bool WindowsOverlap(const ScreenBox& a, const ScreenBox& b) {
  return a.Left < b.Right() && b.Left < a.Right() && a.Top < b.Bottom() && b.Top < a.Bottom();
}

bool IsInside(const ScreenBox& box, const ScreenBox& screen) {
  return box.Left >= screen.Left && box.Top >= screen.Top && box.Right() <= screen.Right() &&
         box.Bottom() <= screen.Bottom() && box.Width > 0 && box.Height > 0;
}

TEST(ReportPlace, BesideTheMainWindowWhereThatLeavesEnoughWidth) {
  EXPECT_EQ(PlaceBeside(Notebook, MainWindowOn(Notebook)), (ScreenBox{966, 38, 400, 540}));
  EXPECT_EQ(PlaceBeside(LargeScreen, MainWindowOn(LargeScreen)), (ScreenBox{1243, 54, 677, 540}));
}

TEST(ReportPlace, OnTheLeftWhenOnlyTheLeftIsFree) {
  const ScreenBox atTheRight{1300, 100, 620, 500};
  EXPECT_EQ(PlaceBeside(LargeScreen, atTheRight), (ScreenBox{540, 100, 760, 540}));
}

TEST(ReportPlace, UnderTheStepPanelOnASmallScreen) {
  const ScreenBox mainWindow = MainWindowOn(SmallScreen);
  EXPECT_EQ(PlaceBeside(SmallScreen, mainWindow), (ScreenBox{200, 137, 760, 403}));
}

TEST(ReportPlace, UnderTheStepPanelOfAMaximisedWindow) {
  EXPECT_EQ(PlaceBeside(LargeScreen, LargeScreen), (ScreenBox{1160, 110, 760, 540}));
}

TEST(ReportPlace, AboveAMainWindowAtTheFootOfTheScreen) {
  const ScreenBox atTheFoot{100, 400, 800, 140};
  EXPECT_EQ(PlaceBeside(SmallScreen, atTheFoot), (ScreenBox{200, 0, 760, 400}));
}

TEST(ReportPlace, AlwaysOnTheScreenAndNeverOverTheButtonsThatItCanLeaveFree) {
  for (const ScreenBox& screen : {Notebook, LargeScreen, SmallScreen, ScreenBox{1920, 200, 1280, 720}}) {
    for (int left = -300; left < screen.Width; left += 137) {
      for (int top = -50; top < screen.Height; top += 61) {
        const ScreenBox mainWindow{screen.Left + left, screen.Top + top, 566, 500};
        const int panelBottom = PanelBottom(mainWindow);
        const ScreenBox report = PlaceOfReport(screen, mainWindow, panelBottom);
        ASSERT_TRUE(IsInside(report, screen)) << left << ", " << top;
        const ScreenBox panel{mainWindow.Left, mainWindow.Top, mainWindow.Width, 110};
        ASSERT_FALSE(WindowsOverlap(report, panel)) << left << ", " << top;
      }
    }
  }
}

TEST(ReportPlace, AScreenWithoutRoomStillShowsIt) {
  const ScreenBox tiny{0, 0, 320, 240};
  const ScreenBox report = PlaceOfReport(tiny, {0, 12, 320, 228}, 122);
  EXPECT_EQ(report, (ScreenBox{0, 0, 320, 240}));
}

// --- the windows that explain

ScreenBox PlaceOfWhy(const ScreenBox& screen, const ScreenBox& mainWindow, const ScreenBox& report) {
  std::vector<ScreenBox> others;
  if (report.Width > 0) others.push_back(report);
  return PlaceOfExplanation(screen, mainWindow, others, PanelBottom(mainWindow), ExplanationSizes);
}

TEST(ExplanationPlace, OnTheOtherSideOfTheMainWindow) {
  for (const ScreenBox& screen : {Notebook, LargeScreen}) {
    const ScreenBox mainWindow = MainWindowOn(screen);
    const ScreenBox report = PlaceBeside(screen, mainWindow);
    const ScreenBox why = PlaceOfWhy(screen, mainWindow, report);
    EXPECT_EQ(why.Right(), mainWindow.Left);
    EXPECT_FALSE(WindowsOverlap(why, report));
    EXPECT_FALSE(WindowsOverlap(why, mainWindow));
    EXPECT_TRUE(IsInside(why, screen));
  }
}

TEST(ExplanationPlace, WhereTheReportWouldStandWhenItIsNotShown) {
  const ScreenBox mainWindow = MainWindowOn(LargeScreen);
  EXPECT_EQ(PlaceOfWhy(LargeScreen, mainWindow, {}), (ScreenBox{1243, 54, 600, 700}));
}

TEST(ExplanationPlace, AlwaysOnTheScreenAndNeverRightOverTheReport) {
  for (const ScreenBox& screen : {Notebook, LargeScreen, SmallScreen, ScreenBox{1920, 200, 1280, 720}}) {
    for (int left = -300; left < screen.Width; left += 137) {
      for (int top = -50; top < screen.Height; top += 61) {
        const ScreenBox mainWindow{screen.Left + left, screen.Top + top, 566, 500};
        const ScreenBox report = PlaceBeside(screen, mainWindow);
        const ScreenBox why = PlaceOfWhy(screen, mainWindow, report);
        ASSERT_TRUE(IsInside(why, screen)) << left << ", " << top;
        ASSERT_FALSE(why.Left <= report.Left && why.Top <= report.Top && why.Right() > report.Left &&
                     why.Bottom() > report.Top)
            << "its title bar can be got at: " << left << ", " << top;
      }
    }
  }
}

TEST(ExplanationPlace, AScreenWithoutRoomStillShowsIt) {
  const ScreenBox tiny{0, 0, 320, 240};
  const ScreenBox report = PlaceOfReport(tiny, {0, 12, 320, 228}, 122);
  EXPECT_TRUE(IsInside(PlaceOfWhy(tiny, {0, 12, 320, 228}, report), tiny));
}

// Both windows that explain can be read, or at least got at, whatever else stands there.
TEST(ExplanationPlace, TheSecondWindowIsNotRightOverTheFirst) {
  int numApart = 0;
  for (const ScreenBox& screen : {Notebook, LargeScreen, SmallScreen, ScreenBox{1920, 200, 1280, 720}}) {
    for (int left = -300; left < screen.Width; left += 137) {
      const ScreenBox mainWindow{screen.Left + left, screen.Top + 40, 566, 500};
      const ScreenBox report = PlaceBeside(screen, mainWindow);
      const ScreenBox why = PlaceOfWhy(screen, mainWindow, report);
      const ScreenBox checks =
          PlaceOfExplanation(screen, mainWindow, {report, why}, PanelBottom(mainWindow), ChecksSizes);
      ASSERT_TRUE(IsInside(checks, screen)) << left;
      for (const ScreenBox& other : {report, why}) {
        ASSERT_FALSE(checks.Left <= other.Left && checks.Top <= other.Top && WindowsOverlap(checks, other))
            << left;
      }
      numApart += WindowsOverlap(checks, why) ? 0 : 1;
    }
  }
  EXPECT_GT(numApart, 10);
}

// All windows of the menu one after the other, with the report: as a student may have them.
TEST(ExplanationPlace, EveryWindowOpensWholeAndOfAUsefulSizeWithTheTitlesOfTheOthersInSight) {
  const std::vector<ReportSizes> windows = {ExplanationSizes, ChecksSizes, ForcesSizes, ByJointSizes};
  for (const ScreenBox& screen : {Notebook, LargeScreen, ScreenBox{1920, 200, 1280, 720}}) {
    for (const bool isMaximised : {false, true}) {
      const ScreenBox mainWindow = isMaximised ? screen : MainWindowOn(screen);
      std::vector<std::size_t> order = {0, 1, 2, 3};
      do {
        std::vector<ScreenBox> shown = {PlaceBeside(screen, mainWindow)};
        for (const std::size_t which : order) {
          const ReportSizes& sizes = windows[which];
          const ScreenBox place =
              PlaceOfExplanation(screen, mainWindow, shown, PanelBottom(mainWindow), sizes);
          ASSERT_TRUE(IsInside(place, screen));
          EXPECT_GE(place.Width, sizes.SmallestWidth);
          EXPECT_GE(place.Height, std::min(sizes.Height, screen.Height) / 2);
          for (const ScreenBox& other : shown) {
            EXPECT_FALSE(WindowsOverlap(place, {other.Left, other.Top, 40, 30}))
                << "window " << which << " of " << order[0] << order[1] << order[2] << order[3] << ", screen "
                << screen.Width << (isMaximised ? ", maximised" : "");
          }
          shown.push_back(place);
        }
      } while (std::ranges::next_permutation(order).found);
    }
  }
}

// None is squeezed into a gap that others would not take.
TEST(ExplanationPlace, EveryWindowHasThreeFifthsOfTheWidthThatItAsksFor) {
  for (const ReportSizes& sizes :
       {ExplanationSizes, ForcesSizes, StepsSizes, ByJointSizes, TrySizes, ExerciseSizes, ChecksSizes}) {
    for (const ScreenBox& screen : {Notebook, LargeScreen, SmallScreen}) {
      for (int left = 0; left + 566 <= screen.Width; left += 20) {
        const ScreenBox mainWindow{left, 40, 566, 500};
        const ScreenBox report = PlaceBeside(screen, mainWindow);
        for (const std::vector<ScreenBox>& others : {std::vector<ScreenBox>{}, std::vector{report}}) {
          const ScreenBox place =
              PlaceOfExplanation(screen, mainWindow, others, PanelBottom(mainWindow), sizes);
          EXPECT_GE(place.Width, 3 * std::min(sizes.Width, screen.Width) / 5) << sizes.Width << ", " << left;
        }
      }
    }
  }
}

TEST(ExplanationPlace, AWindowThatIsCoveredAnywayLeavesTheButtonsFreeWhereItCan) {
  const ScreenBox mainWindow = MainWindowOn(Notebook);
  const ScreenBox report = PlaceBeside(Notebook, mainWindow);
  const ScreenBox why = PlaceOfWhy(Notebook, mainWindow, report);
  const ScreenBox forces =
      PlaceOfExplanation(Notebook, mainWindow, {report, why}, PanelBottom(mainWindow), ForcesSizes);
  EXPECT_FALSE(WindowsOverlap(forces, {mainWindow.Left, mainWindow.Top, mainWindow.Width, 110}));
}

}  // namespace
