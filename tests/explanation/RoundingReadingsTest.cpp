// What is told of rounding where the reduced matrix reads as it seldom does: of values made for it.
#include <gmock/gmock.h>

#include "ExplanationFixture.h"
#include "explanation/RoundingText.h"
#include "support/HandTrusses.h"

namespace {

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

// Those of a panel, whose unknowns are Ax, Ay, Bx, By, AB ..., with a reading of our own.
struct ReadPanel {
  ReadPanel() {
    Truss truss = LeaningPanel(1, 6, 3);
    Graph = GraphOf(truss, SolveTruss(truss));
  }

  std::string Notice(int figures = 4) const { return RoundingNotice(Graph, Read, {figures, {}}); }
  std::string Paragraphs() const {
    std::string text;
    for (const std::string& paragraph : RoundingParagraphs(Graph, Read, {})) text += paragraph + '\n';
    return text;
  }

  TrussGraph Graph;
  Rounding Read;
};

TEST(RoundingNotice, ALargeNumberForAnOpenForceComesFromDividingByARemnant) {
  ReadPanel panel;
  panel.Read.ShownThoughOpen = {5};
  panel.Read.ShownMagnification = 5000;
  EXPECT_EQ(
      panel.Notice(),
      "The equations leave AB open; the number shown for it is not determined: with up to 5000 times the "
      "largest load it comes from dividing by a remnant of rounding.");
  panel.Read.ShownThoughOpen = {2, 5};
  EXPECT_THAT(panel.Notice(), HasSubstr("with up to 5000 times the largest load they come from"));
}

TEST(RoundingNotice, AForceThatIsHiddenWithoutALostPivotAndWithoutARemnantIsNamedAlone) {
  ReadPanel panel;
  panel.Read.Figures.Hidden = {{.Unknown = 2, .Value = 250, .Remnant = 0}};
  EXPECT_EQ(
      panel.Notice(),
      "Exactly, the equations determine Ay = 250, but the reduced matrix leaves it open because directions "
      "are rounded to single precision.");
  EXPECT_THAT(DifferentReadings(panel.Graph, panel.Read, {}),
              HasSubstr("exactly, Ay is determined, but the reduced matrix leaves it open."));
}

TEST(RoundingNotice, TellsOfOneFigureAndOfNone) {
  ReadPanel panel;
  panel.Read.Figures.Forces = {{2, 500, 510}};
  EXPECT_EQ(panel.Notice(),
            "Only the first figure of the forces is sure: with directions that are not rounded "
            "Ay is 510 in place of 500.");
  EXPECT_THAT(FiguresRemark(panel.Read, {}), StartsWith("Only the first figure of these forces is sure,"));
  panel.Read.Figures.Forces = {{2, 500, 200}};
  EXPECT_EQ(panel.Notice(),
            "No figure of the forces is sure: with directions that are not rounded Ay is 200 in "
            "place of 500.");
  EXPECT_THAT(FiguresRemark(panel.Read, {}), StartsWith("No figure of these forces is sure,"));
  panel.Read.Figures.Forces = {{2, 500, 500}, {5, 0.3, 0.31}};
  EXPECT_EQ(panel.Notice(), "Of AB, small beside the others, only the first figure is sure.");
  panel.Read.Figures.Forces = {{2, 1e-14, 1e-14}};
  EXPECT_EQ(panel.Notice(), "Ay is not 0, but so small that it is shown as 0.");
}

TEST(RoundingNotice, OfANearMechanismItTellsTheOneFigureThatIsShownAndSure) {
  ReadPanel panel;
  panel.Read.Figures.Forces = {{2, 500, 510}};
  panel.Read.Figures.Magnification = 2000;
  panel.Read.Figures.NearlyFree = Motion{.Joints = {{.Joint = 1, .Dx = 1}}};
  EXPECT_THAT(panel.Notice(1), HasSubstr("Of the forces the first figure is sure."));
  EXPECT_THAT(panel.Paragraphs(), Not(HasSubstr("The loads drive it."))) << "they do no work on it";
  panel.Read.Figures.NearlyFree->Work = 1;
  EXPECT_THAT(panel.Paragraphs(), HasSubstr("The loads drive it."));
}

TEST(RoundingNotice, NamesWhatCountsAsNothingInTheMatrix) {
  ReadPanel panel;
  panel.Read.Shown = Outcome::Inconsistent;
  panel.Read.Figures.Within = Outcome::Neither;
  panel.Read.Remnant = 500;
  panel.Read.RemnantShare = 0.5;
  EXPECT_THAT(
      panel.Notice(),
      HasSubstr("because what is smaller than 1E-10 counts as nothing in it: the coefficients of a row "
                "cancel down to that, which leaves 500 on the right of a row without coefficients."));
  panel.Read.Vanished = {{5, Axis::X}, {6, Axis::Y}};
  EXPECT_THAT(panel.Notice(),
              HasSubstr("counts as nothing in it: so vanish the horizontal components of AB and the vertical "
                        "components of "));
}

TEST(Rounding, NumbersFromDividingByARemnantHoldNothingThoughThereAreSomeWithinTheFigures) {
  Rounding rounding;
  rounding.Verdict.AugmentedRank = 1;
  rounding.Figures.Within = Outcome::Redundant;
  EXPECT_FALSE(rounding.HoldsNoNumber());
  rounding.ShownMagnification = 2 * NearlyAMechanism;
  EXPECT_TRUE(rounding.HoldsNoNumber());
}

}  // namespace
