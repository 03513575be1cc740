// The settings dialog: what it shows, what it refuses in which order, and what Close stores.
#include "app/Settings.h"

#include "document/TrussChanged.h"
#include "document/TrussFile.h"
#include "support/FakeMessageBox.h"
#include "support/TemporaryDirectory.h"
#include "support/TrussBuilder.h"

namespace {

using enum SettingsBox;
using testing::ElementsAre;

const NumberFormat Period{"."};
const NumberFormat Comma{","};

std::vector<std::string> Texts(const SettingsInput& input) {
  std::vector<std::string> texts;
  for (const SettingsBox box : SettingsBoxes) texts.push_back(input.Text(box));
  return texts;
}

// The factory settings with the texts of some boxes changed.
struct Typed {
  SettingsInput Input = FactorySettings(Period);
  Typed& With(SettingsBox box, const std::string& text) {
    Input.Text(box) = text;
    return *this;
  }
  std::string Message() const {
    const auto problem = BadSettings(Input, Period);
    return problem ? problem->Message : "";
  }
  SettingsBox Box() const { return BadSettings(Input, Period).value().Box; }
};

constexpr const char* NotNumbers = "Invalid input.  The setting must be numbers.";
constexpr const char* MaximumXTooSmall =
    "The maximum x coordinate must be bigger than the minimum x coordinate.";
constexpr const char* HatchNotPositive = "The hatch mark spacing must be a positive number.";
constexpr const char* GridXNotPositive = "The grid spacing in the x direction must be a positive number.";
constexpr const char* GridYNotPositive = "The grid spacing in the y direction must be a positive number.";
constexpr const char* ForceNotPositive = "One unit on the ruler must represent a positive force.";

TEST(Settings, EachSwitchIsItsOwn) {
  using Shown = bool SettingsInput::*;
  using Stored = bool DocumentSettings::*;
  const std::vector<std::pair<Shown, Stored>> switches = {
      {&SettingsInput::ShowRulers, &DocumentSettings::RulersOn},
      {&SettingsInput::SnapGrid, &DocumentSettings::SnapGrid},
      {&SettingsInput::ShowGrid, &DocumentSettings::GridOn},
      {&SettingsInput::SnapObject, &DocumentSettings::SnapObject}};
  for (const auto& [shown, stored] : switches) {
    DocumentSettings settings;
    settings.*stored = false;
    Typed typed;
    typed.Input.*shown = false;
    Truss truss;
    ASSERT_FALSE(CloseSettings(typed.Input, Period, CanvasBounds{}, truss));
    for (const auto& [otherShown, otherStored] : switches) {
      EXPECT_EQ(LoadSettings(settings, Period).*otherShown, otherShown != shown);
      EXPECT_EQ(truss.Settings.*otherStored, otherStored != stored);
    }
  }
}

TEST(Settings, TextBoxesKeepTheirIndices) {
  EXPECT_THAT(SettingsBoxes, ElementsAre(static_cast<SettingsBox>(1), static_cast<SettingsBox>(2),
                                         static_cast<SettingsBox>(3), static_cast<SettingsBox>(4),
                                         static_cast<SettingsBox>(5), static_cast<SettingsBox>(8),
                                         static_cast<SettingsBox>(9)));
}

TEST(Settings, TheDialogShowsNumbersInTheirShortestForm) {
  DocumentSettings settings;
  settings.XMin = -12.5F;
  settings.XMax = 1e7F;
  settings.HatchSpacing = 0.1;  // a double, as a file gives it
  settings.GridX = 0.1F;
  settings.YMin = 0;
  settings.GridY = 1e-6F;
  settings.ForceScale = 250;
  EXPECT_THAT(Texts(LoadSettings(settings, Period)),
              ElementsAre("-12.5", "1E+7", "0.1", "0.1", "0", "1E-6", "250"));
}

TEST(Settings, TheDialogShowsTheSeparatorOfTheLocale) {
  EXPECT_THAT(Texts(LoadSettings(DocumentSettings{}, Comma)),
              ElementsAre("0", "20", "2", "0,5", "0", "0,5", "1000"));
}

TEST(Settings, TheDialogSelectsTheItemsAndChecksTheSwitches) {
  DocumentSettings settings;
  settings.SigFigs = 7;
  settings.ReportFontSize = 14;
  settings.RulersOn = false;
  settings.SnapObject = false;
  const SettingsInput input = LoadSettings(settings, Period);
  EXPECT_EQ(input.SigFigsItem, 4U);
  EXPECT_EQ(input.FontSizeItem, 2U);
  EXPECT_FALSE(input.ShowRulers);
  EXPECT_TRUE(input.SnapGrid);
  EXPECT_TRUE(input.ShowGrid);
  EXPECT_FALSE(input.SnapObject);
}

TEST(Settings, FiguresAndFontSizesOutsideTheListsSelectTheNearestItem) {
  DocumentSettings settings;
  settings.SigFigs = -32768;
  settings.ReportFontSize = 1e30F;
  EXPECT_EQ(LoadSettings(settings, Period).SigFigsItem, 0U);
  EXPECT_EQ(LoadSettings(settings, Period).FontSizeItem, 3U);
  settings.SigFigs = 32767;
  settings.ReportFontSize = 11.9F;
  EXPECT_EQ(LoadSettings(settings, Period).SigFigsItem, 4U);
  EXPECT_EQ(LoadSettings(settings, Period).FontSizeItem, 1U);
}

TEST(Settings, FactorySettingsAreThoseTheProgramStartsWith) {
  const SettingsInput input = FactorySettings(Period);
  EXPECT_THAT(Texts(input), ElementsAre("0", "20", "2", "0.5", "0", "0.5", "1000"));
  EXPECT_EQ(SigFigsItems[input.SigFigsItem], 4);
  EXPECT_EQ(FontSizeItems[input.FontSizeItem], 10);
  EXPECT_TRUE(input.ShowRulers && input.SnapGrid && input.ShowGrid && input.SnapObject);
}

TEST(Settings, FactorySettingsAreAccepted) {
  EXPECT_EQ(Typed().Message(), "");
  EXPECT_EQ(BadSettings(FactorySettings(Comma), Comma), std::nullopt);
}

TEST(Settings, ABlankTextBoxIsRefusedAsNoNumber) {
  for (const SettingsBox box : SettingsBoxes) {
    EXPECT_EQ(Typed().With(box, "").Message(), NotNumbers);
    EXPECT_EQ(Typed().With(box, "").Box(), box);
  }
}

TEST(Settings, TheFirstTextThatIsNoNumberGetsTheFocus) {
  EXPECT_EQ(Typed().With(ForceScale, "much").With(GridX, "wide").Box(), GridX);
}

TEST(Settings, TextsThatAreNoNumbersAreFoundBeforeEverythingElse) {
  EXPECT_EQ(Typed().With(MaximumX, "-5").With(ForceScale, "x").Message(), NotNumbers);
}

TEST(Settings, MaximumXEqualToMinimumXIsRefused) {
  EXPECT_EQ(Typed().With(MinimumX, "20").Message(), MaximumXTooSmall);
  EXPECT_EQ(Typed().With(MinimumX, "20").Box(), MaximumX);
}

TEST(Settings, RangesThatAreEmptyInSinglePrecisionAreRefused) {
  EXPECT_EQ(Typed().With(MinimumX, "16777216").With(MaximumX, "16777217").Message(), MaximumXTooSmall);
}

TEST(Settings, SpacingsAndTheForceScaleMustBePositive) {
  for (const char* text : {"0", "-1", "1e-60"}) {
    EXPECT_EQ(Typed().With(HatchSpacing, text).Message(), HatchNotPositive);
    EXPECT_EQ(Typed().With(HatchSpacing, text).Box(), HatchSpacing);
    EXPECT_EQ(Typed().With(GridX, text).Message(), GridXNotPositive);
    EXPECT_EQ(Typed().With(GridX, text).Box(), GridX);
    EXPECT_EQ(Typed().With(GridY, text).Message(), GridYNotPositive);
    EXPECT_EQ(Typed().With(GridY, text).Box(), GridY);
    EXPECT_EQ(Typed().With(ForceScale, text).Message(), ForceNotPositive);
    EXPECT_EQ(Typed().With(ForceScale, text).Box(), ForceScale);
  }
}

TEST(Settings, MaximumXBelowMinimumXAndANegativeHatchSpacingReportTheMaximumOnly) {
  EXPECT_EQ(Typed().With(MaximumX, "-5").With(HatchSpacing, "-2").Message(), MaximumXTooSmall);
}

TEST(Settings, ANegativeHatchSpacingAndAZeroGridSpacingInYReportTheHatchSpacingOnly) {
  EXPECT_EQ(Typed().With(HatchSpacing, "-2").With(GridY, "0").Message(), HatchNotPositive);
}

TEST(Settings, OfSeveralProblemsTheFirstInTheOrderOfTheChecksIsReported) {
  EXPECT_EQ(Typed().With(GridX, "0").With(GridY, "0").With(ForceScale, "0").Message(), GridXNotPositive);
  EXPECT_EQ(Typed().With(GridY, "0").With(ForceScale, "0").Message(), GridYNotPositive);
}

TEST(Settings, ANegativeMinimumYIsAccepted) {
  Truss truss;
  EXPECT_EQ(CloseSettings(Typed().With(MinimumY, "-7.5").Input, Period, CanvasBounds{}, truss), std::nullopt);
  EXPECT_EQ(truss.Settings.YMin, -7.5F);
}

TEST(Settings, ThousandsGroupedUnderACommaLocaleAreNoNumber) {
  SettingsInput input = FactorySettings(Comma);
  input.Text(ForceScale) = "1.500";
  EXPECT_EQ(BadSettings(input, Comma), (SettingsProblem{NotNumbers, ForceScale}));
  input.Text(ForceScale) = "1.5";
  EXPECT_EQ(BadSettings(input, Comma), std::nullopt);
}

TEST(Settings, CloseStoresEverything) {
  SettingsInput input =
      Typed().With(MinimumX, "-1").With(MaximumX, "9").With(HatchSpacing, "0.5").With(GridX, "0.25").Input;
  input.Text(MinimumY) = "1";
  input.Text(GridY) = "0.125";
  input.Text(ForceScale) = "1e3";
  input.SigFigsItem = 2;
  input.FontSizeItem = 3;
  input.ShowGrid = false;
  input.SnapGrid = false;

  Truss truss;
  EXPECT_EQ(CloseSettings(input, Period, CanvasBounds{}, truss), std::nullopt);
  DocumentSettings expected;
  expected.XMin = -1;
  expected.XMax = 9;
  expected.HatchSpacing = 0.5F;
  expected.GridX = 0.25F;
  expected.YMin = 1;
  expected.GridY = 0.125F;
  expected.ForceScale = 1000;
  expected.SigFigs = 5;
  expected.ReportFontSize = 16;
  expected.GridOn = false;
  expected.SnapGrid = false;
  EXPECT_EQ(truss.Settings, expected);
}

TEST(Settings, EachSwitchGoesToItsOwnSetting) {
  Truss truss;
  SettingsInput input = FactorySettings(Period);
  input.ShowRulers = false;
  ASSERT_FALSE(CloseSettings(input, Period, CanvasBounds{}, truss));
  EXPECT_FALSE(truss.Settings.RulersOn);
  EXPECT_TRUE(truss.Settings.GridOn && truss.Settings.SnapGrid && truss.Settings.SnapObject);

  input = FactorySettings(Period);
  input.SnapObject = false;
  ASSERT_FALSE(CloseSettings(input, Period, CanvasBounds{}, truss));
  EXPECT_FALSE(truss.Settings.SnapObject);
  EXPECT_TRUE(truss.Settings.GridOn && truss.Settings.SnapGrid && truss.Settings.RulersOn);
}

TEST(Settings, CloseDerivesTheViewFromTheCanvas) {
  Truss truss;
  const CanvasBounds twiceAsWideAsHigh{.PixL = 0, .PixR = 400, .PixT = 0, .PixB = 200};
  ASSERT_FALSE(CloseSettings(Typed().With(MaximumX, "30").With(MinimumY, "5").Input, Period,
                             twiceAsWideAsHigh, truss));
  EXPECT_EQ(truss.View.YMax, 20);
  EXPECT_EQ(truss.View.HatchCountX, 15);
  EXPECT_EQ(truss.View.HatchCountY, 7.5F);
}

TEST(Settings, TheHatchSpacingBecomesASingle) {
  Truss truss;
  ASSERT_FALSE(CloseSettings(FactorySettings(Period), Period, CanvasBounds{}, truss));
  EXPECT_EQ(truss.Settings.HatchSpacing, TaggedNumber(2.0F));
}

TEST(Settings, ARejectedCloseStoresNothing) {
  Truss truss;
  truss.View.YMax = 99;
  SettingsInput input = Typed().With(MinimumX, "1").With(ForceScale, "0").Input;
  input.SigFigsItem = 4;
  input.ShowGrid = false;
  EXPECT_EQ(CloseSettings(input, Period, CanvasBounds{}, truss),
            (SettingsProblem{ForceNotPositive, ForceScale}));
  EXPECT_EQ(truss.Settings, DocumentSettings{});
  EXPECT_EQ(truss.View.YMax, 99);
}

TEST(Settings, FactorySettingsFollowedByCancelChangeNothing) {
  Truss truss;
  ASSERT_FALSE(CloseSettings(Typed().With(MaximumX, "50").Input, Period, CanvasBounds{}, truss));
  const DocumentSettings before = truss.Settings;
  SettingsInput controls = LoadSettings(truss.Settings, Period);
  controls = FactorySettings(Period);  // Cancel: the controls go away, and nothing else happens
  EXPECT_EQ(controls.Text(MaximumX), "20");
  EXPECT_EQ(truss.Settings, before);
}

TEST(Settings, OpeningAndClosingKeepsEveryValue) {
  Truss truss;
  truss.Settings.XMin = -0.1F;
  truss.Settings.XMax = 1.2345678e10F;
  truss.Settings.HatchSpacing = 1.0F / 3;
  truss.Settings.GridX = 0.125F;
  truss.Settings.GridY = 1234.567F;
  truss.Settings.ForceScale = 3.4e38F;
  const DocumentSettings before = truss.Settings;
  for (const NumberFormat& format : {Period, Comma}) {
    ASSERT_FALSE(CloseSettings(LoadSettings(truss.Settings, format), format, CanvasBounds{}, truss));
    EXPECT_EQ(truss.Settings, before);
  }
}

TEST(Settings, ChangingSettingsDoesNotCountAsChangingTheTruss) {
  const TemporaryDirectory directory;
  Truss truss = TrussBuilder().Member(0, 0, 4, 0, "A");
  truss.FileName = directory / "a.trs";
  ASSERT_EQ(WriteTruss(truss), "");
  ASSERT_FALSE(CloseSettings(Typed().With(MaximumX, "50").Input, Period, CanvasBounds{}, truss));
  EXPECT_FALSE(TrussChanged(truss));
}

TEST(Settings, OpenInStep1AndStep2) {
  FakeMessageBox messages;
  EXPECT_TRUE(SettingsMayOpen(1, messages));
  EXPECT_TRUE(SettingsMayOpen(2, messages));
  EXPECT_THAT(messages.Shown, testing::IsEmpty());
}

TEST(Settings, InStep3AMessageIsShownInstead) {
  FakeMessageBox messages;
  EXPECT_FALSE(SettingsMayOpen(3, messages));
  EXPECT_THAT(messages.Shown,
              ElementsAre(Message{.Text = "You must go back to Step 2 to change the settings.",
                                  .Title = "Orvane",
                                  .Buttons = MessageButtons::Ok,
                                  .Icon = MessageIcon::None}));
}

}  // namespace
