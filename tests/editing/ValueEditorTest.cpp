// The numerical value editor: what it shows in each notation, what it refuses and in which words, and what it
// writes.
#include "editing/ValueEditor.h"

#include <cmath>
#include <limits>

#include "canvas/RedrawTruss.h"
#include "support/FakeMessageBox.h"
#include "support/TrussBuilder.h"

using testing::ElementsAre;

namespace {

constexpr const char* NotNumbers = "Invalid input.  The components must be numbers.";
constexpr const char* EraseMember = "Invalid input.  Erase the truss member instead.";
constexpr const char* EraseForce = "Invalid input.  Erase the force instead.";
constexpr const char* NoMagnitude = "Invalid input.  The magnitude must be positive.";

constexpr float Largest = std::numeric_limits<float>::max();

struct ValueEditorTest : testing::Test {
  FakeMessageBox messages;
  Drawing drawing;
  int redraws = 0;
  Truss truss = TrussBuilder().Member(0, 0, 3, 4).Force(3, 4, -1, 0);
  ValueEditor editor = Editor(NumberFormat{});

  ValueEditor Editor(const NumberFormat& numbers) {
    Prepare();
    return ValueEditor({truss, drawing, messages, numbers, [this] { ++redraws; }});
  }

  // 10 pixels to a world unit, the origin at (100, 200).
  void Prepare() {
    drawing.Mapping.SetMapping(100, 200, 200, 100, 0, 10, 0, 10);
    FitTables(drawing, truss);
    PlaceObjects(drawing, truss);
  }

  void Use(const Truss& other) {
    truss = other;
    Prepare();
  }

  // As picking leaves things: handles shown, supports asleep.
  void Pick() {
    drawing.MoveHandleB.Visible = true;
    drawing.MoveHandleS.Visible = true;
    drawing.SupportsEnabled = false;
  }

  void OpenMember(Notation notation, float t = 1) {
    Pick();
    editor.OpenForMember(1, t);
    editor.optNotation_Click(MemberKind, notation);
  }

  void OpenForce(Notation notation) {
    Pick();
    editor.OpenForForce(1);
    editor.optNotation_Click(ForceKind, notation);
  }

  void Type(int kind, const std::string& first, const std::string& second) {
    editor.txtNewCoords_Change(kind, 1, first);
    editor.txtNewCoords_Change(kind, 2, second);
  }

  void Enter(int kind, const std::string& first, const std::string& second) {
    messages.Shown.clear();
    Type(kind, first, second);
    editor.cmdNewCoordsOK_Click(kind);
  }

  void ExpectShown(int kind, const char* label1, const char* text1, const char* label2,
                   const char* text2) const {
    EXPECT_EQ(editor.Label(kind, 1), label1);
    EXPECT_EQ(editor.Text(kind, 1), text1);
    EXPECT_EQ(editor.Label(kind, 2), label2);
    EXPECT_EQ(editor.Text(kind, 2), text2);
  }

  // Enters two texts and expects this message, and everything else as it was.
  void ExpectRefused(int kind, const std::string& first, const std::string& second, const char* text) {
    SCOPED_TRACE(testing::Message() << "\"" << first << "\", \"" << second << "\"");
    const MemberRec member = truss.Members[1];
    const PixelLine rod = drawing.Rod[1];
    Enter(kind, first, second);
    EXPECT_THAT(messages.Shown, ElementsAre(Message{.Text = text, .Icon = MessageIcon::Critical}));
    EXPECT_TRUE(editor.IsOpen(kind));
    EXPECT_TRUE(drawing.MoveHandleB.Visible);
    EXPECT_TRUE(drawing.MoveHandleS.Visible);
    EXPECT_FALSE(drawing.SupportsEnabled);
    EXPECT_EQ(redraws, 0);
    EXPECT_EQ(editor.Text(kind, 1), first);
    EXPECT_EQ(editor.Text(kind, 2), second);
    ExpectMember(member.X1, member.Y1, member.X2, member.Y2);
    EXPECT_EQ(drawing.Rod[1], rod);
    ExpectForce(-1, 0);
  }

  void ExpectAccepted() const {
    EXPECT_TRUE(messages.Shown.empty());
    EXPECT_EQ(redraws, 1);
    ExpectClosed();
  }

  void ExpectClosed() const {
    EXPECT_EQ(drawing.OpenPanel, ValuePanel::None);
    EXPECT_FALSE(drawing.MoveHandleB.Visible);
    EXPECT_FALSE(drawing.MoveHandleS.Visible);
    EXPECT_TRUE(drawing.SupportsEnabled);
  }

  void ExpectMember(float x1, float y1, float x2, float y2) const {
    const MemberRec& member = truss.Members[1];
    EXPECT_EQ(member.X1, x1);
    EXPECT_EQ(member.Y1, y1);
    EXPECT_EQ(member.X2, x2);
    EXPECT_EQ(member.Y2, y2);
  }

  void ExpectForce(float fx, float fy) const {
    EXPECT_EQ(truss.Forces[1].Fx, fx);
    EXPECT_EQ(truss.Forces[1].Fy, fy);
  }
};

}  // namespace

// --- what is shown

TEST_F(ValueEditorTest, ShowsAMembersEndInEveryNotation) {
  OpenMember(Notation::Absolute);
  ExpectShown(MemberKind, "abs. x", "3", "abs. y", "4");
  editor.optNotation_Click(MemberKind, Notation::Rectangular);
  ExpectShown(MemberKind, "rel. x", "3", "rel. y", "4");
  editor.optNotation_Click(MemberKind, Notation::Polar);
  ExpectShown(MemberKind, "rel. magnitude", "5", "rel. angle", "53.1301");
}

TEST_F(ValueEditorTest, ShowsAForceInBothNotations) {
  OpenForce(Notation::Rectangular);
  ExpectShown(ForceKind, "Fx", "-1", "Fy", "0");
  editor.optNotation_Click(ForceKind, Notation::Polar);
  ExpectShown(ForceKind, "magnitude", "1", "angle", "180");
}

TEST_F(ValueEditorTest, ShowsTheAngleOfAForceStraightDownAndDiagonal) {
  Use(TrussBuilder().Member(0, 0, 3, 4).Force(3, 4, 0, -2).Force(3, 4, -1, -1));
  OpenForce(Notation::Polar);
  ExpectShown(ForceKind, "magnitude", "2", "angle", "-90");
  editor.OpenForForce(2);
  ExpectShown(ForceKind, "magnitude", "1.414214", "angle", "-135");
}

TEST_F(ValueEditorTest, SeenFromTheOtherEndRelativeValuesTurnRound) {
  OpenMember(Notation::Rectangular, 0);
  ExpectShown(MemberKind, "rel. x", "-3", "rel. y", "-4");
  editor.optNotation_Click(MemberKind, Notation::Polar);
  ExpectShown(MemberKind, "rel. magnitude", "5", "rel. angle", "-126.8699");
}

TEST_F(ValueEditorTest, AMemberPickedAtItsMidpointEditsItsFirstEnd) {
  OpenMember(Notation::Absolute, 0.5F);
  ExpectShown(MemberKind, "abs. x", "0", "abs. y", "0");
  Enter(MemberKind, "1", "2");
  ExpectMember(1, 2, 3, 4);
}

TEST_F(ValueEditorTest, AMemberPickedPastItsMidpointEditsItsSecondEnd) {
  OpenMember(Notation::Absolute, std::nextafter(0.5F, 1.0F));
  ExpectShown(MemberKind, "abs. x", "3", "abs. y", "4");
  Enter(MemberKind, "1", "2");
  ExpectMember(0, 0, 1, 2);
}

TEST_F(ValueEditorTest, WritesSevenDigitsWhateverTheSignificantFiguresAre) {
  Use(TrussBuilder().Member(1.0F / 3, 123456.7F, 1e7F, 1e-7F));
  truss.Settings.SigFigs = 3;
  OpenMember(Notation::Absolute, 0);
  ExpectShown(MemberKind, "abs. x", "0.3333333", "abs. y", "123456.7");
  editor.OpenForMember(1, 1);
  ExpectShown(MemberKind, "abs. x", "1E+7", "abs. y", "1E-7");
}

TEST_F(ValueEditorTest, SwitchingTheNotationDiscardsWhatWasTyped) {
  OpenMember(Notation::Absolute);
  Type(MemberKind, "77", "88");
  editor.optNotation_Click(MemberKind, Notation::Rectangular);
  ExpectShown(MemberKind, "rel. x", "3", "rel. y", "4");
  Type(MemberKind, "77", "88");
  editor.optNotation_Click(MemberKind, Notation::Absolute);
  ExpectShown(MemberKind, "abs. x", "3", "abs. y", "4");
  ExpectMember(0, 0, 3, 4);
}

TEST_F(ValueEditorTest, EachVariantKeepsItsNotation) {
  EXPECT_EQ(editor.ChosenNotation(MemberKind), Notation::Absolute);
  EXPECT_EQ(editor.ChosenNotation(ForceKind), Notation::Rectangular);
  OpenForce(Notation::Polar);
  editor.cmdNewCoordsCancel_Click(ForceKind);
  editor.OpenForMember(1, 1);
  ExpectShown(MemberKind, "abs. x", "3", "abs. y", "4");
  editor.OpenForForce(1);
  ExpectShown(ForceKind, "magnitude", "1", "angle", "180");
}

TEST_F(ValueEditorTest, OnlyOnePanelIsOpen) {
  OpenMember(Notation::Absolute);
  EXPECT_TRUE(editor.IsOpen(MemberKind));
  EXPECT_FALSE(editor.IsOpen(ForceKind));
  editor.OpenForForce(1);
  EXPECT_FALSE(editor.IsOpen(MemberKind));
  EXPECT_TRUE(editor.IsOpen(ForceKind));
}

TEST_F(ValueEditorTest, ARefreshShowsTheStoredValuesAnew) {
  OpenMember(Notation::Absolute);
  Type(MemberKind, "77", "88");
  truss.Members[1].X2 = 6;
  editor.Refresh();
  ExpectShown(MemberKind, "abs. x", "6", "abs. y", "4");
}

TEST_F(ValueEditorTest, ARefreshOfAClosedPanelDoesNothing) {
  OpenMember(Notation::Absolute);
  Deselect(drawing);
  truss.Members[1].X2 = 6;
  editor.Refresh();
  ExpectShown(MemberKind, "abs. x", "3", "abs. y", "4");
  EXPECT_FALSE(editor.IsOpen(MemberKind));
}

TEST_F(ValueEditorTest, KnowsTheLineThatItsPanelKeepsOff) {
  OpenMember(Notation::Absolute);
  EXPECT_EQ(editor.EditedObject(MemberKind), (PixelLine{100, 200, 130, 160}));
  truss.Forces[1].PixX1 = 130;
  truss.Forces[1].PixY1 = 160;
  truss.Forces[1].PixX2 = 120;
  truss.Forces[1].PixY2 = 160;
  editor.OpenForForce(1);
  EXPECT_EQ(editor.EditedObject(ForceKind), (PixelLine{130, 160, 120, 160}));
}

// --- what is refused

TEST_F(ValueEditorTest, BothTextsMustBeNumbers) {
  OpenMember(Notation::Absolute);
  for (const char* text : {"", " ", "x", "1 2", "1,5", "nan", "inf", "0x10", "--1", "1e"}) {
    ExpectRefused(MemberKind, text, "1", NotNumbers);
    ExpectRefused(MemberKind, "1", text, NotNumbers);
  }
  OpenForce(Notation::Rectangular);
  ExpectRefused(ForceKind, "", "1", NotNumbers);
}

TEST_F(ValueEditorTest, BeyondSinglePrecisionIsNoNumber) {
  OpenForce(Notation::Rectangular);
  ExpectRefused(ForceKind, "1e39", "0", NotNumbers);
  ExpectRefused(ForceKind, "1", "-3.5e38", NotNumbers);
}

TEST_F(ValueEditorTest, AResultBeyondSinglePrecisionIsRefusedLikewise) {
  Use(TrussBuilder().Member(3e38F, 0, 0, 0).Force(0, 0, -1, 0));
  OpenMember(Notation::Rectangular);
  ExpectRefused(MemberKind, "1e38", "0", NotNumbers);
  editor.optNotation_Click(MemberKind, Notation::Polar);
  ExpectRefused(MemberKind, "1e38", "0", NotNumbers);
  Enter(MemberKind, "1e38", "180");
  EXPECT_TRUE(std::isfinite(truss.Members[1].X2));
  EXPECT_LT(truss.Members[1].X2, 3e38F);
}

TEST_F(ValueEditorTest, TheOtherEndpointsCoordinatesAreRefused) {
  OpenMember(Notation::Absolute, 0);
  ExpectRefused(MemberKind, "3", "4", EraseMember);
  ExpectRefused(MemberKind, "3.0", "0.4e1", EraseMember);
}

TEST_F(ValueEditorTest, ARoundingStepBesideTheOtherEndpointIsAccepted) {
  OpenMember(Notation::Absolute, 0);
  Enter(MemberKind, "3.0000002", "4");
  ExpectAccepted();
  ExpectMember(std::nextafter(3.0F, 4.0F), 4, 3, 4);
}

TEST_F(ValueEditorTest, OneEqualCoordinateIsAccepted) {
  OpenMember(Notation::Absolute, 0);
  Enter(MemberKind, "3", "0");
  ExpectAccepted();
}

TEST_F(ValueEditorTest, NoRelativeDistanceIsRefused) {
  OpenMember(Notation::Rectangular);
  ExpectRefused(MemberKind, "0", "0", EraseMember);
  ExpectRefused(MemberKind, "-0.0", "0e5", EraseMember);
  ExpectRefused(MemberKind, "1e-60", "0", EraseMember);
}

TEST_F(ValueEditorTest, ADistanceThatRoundingSwallowsIsRefused) {
  Use(TrussBuilder().Member(16777216, 0, 0, 0).Force(0, 0, -1, 0));
  OpenMember(Notation::Rectangular);
  ExpectRefused(MemberKind, "0.5", "0", EraseMember);
  editor.optNotation_Click(MemberKind, Notation::Polar);
  ExpectRefused(MemberKind, "0.5", "0", EraseMember);
  Enter(MemberKind, "2", "0");
  ExpectAccepted();
  EXPECT_EQ(truss.Members[1].X2, 16777218.0F);
}

TEST_F(ValueEditorTest, NoForceIsRefused) {
  OpenForce(Notation::Rectangular);
  ExpectRefused(ForceKind, "0", "0", EraseForce);
}

TEST_F(ValueEditorTest, APolarMagnitudeMustBePositive) {
  OpenForce(Notation::Polar);
  ExpectRefused(ForceKind, "0", "45", NoMagnitude);
  ExpectRefused(ForceKind, "-5", "45", NoMagnitude);
  OpenMember(Notation::Polar);
  ExpectRefused(MemberKind, "0", "0", NoMagnitude);
  ExpectRefused(MemberKind, "-5", "45", NoMagnitude);
  ExpectRefused(MemberKind, "-3e38", "45", NoMagnitude);
}

TEST_F(ValueEditorTest, WhatIsNoNumberIsSaidFirst) {
  OpenForce(Notation::Polar);
  ExpectRefused(ForceKind, "0", "east", NotNumbers);
}

// --- what is written

TEST_F(ValueEditorTest, AbsoluteStoresTheTypedPointAndItsLine) {
  OpenMember(Notation::Absolute);
  Enter(MemberKind, "6", "-2.5");
  ExpectAccepted();
  ExpectMember(0, 0, 6, -2.5F);
  EXPECT_EQ(drawing.Rod[1], (PixelLine{100, 200, 160, 225}));
}

TEST_F(ValueEditorTest, RectangularStoresTheOtherEndpointPlusTheVector) {
  Use(TrussBuilder().Member(1, 2, 3, 4).Force(3, 4, -1, 0));
  OpenMember(Notation::Rectangular);
  Enter(MemberKind, "0.5", "0");
  ExpectAccepted();
  ExpectMember(1, 2, 1.5F, 2);
  EXPECT_EQ(drawing.Rod[1], (PixelLine{110, 180, 115, 180}));
}

TEST_F(ValueEditorTest, PolarStoresTheOtherEndpointPlusTheVector) {
  OpenMember(Notation::Polar, 0);
  Enter(MemberKind, "2", "0");
  ExpectAccepted();
  ExpectMember(5, 4, 3, 4);
  EXPECT_EQ(drawing.Rod[1], (PixelLine{150, 160, 130, 160}));
}

TEST_F(ValueEditorTest, PolarAnglesAreDegrees) {
  OpenMember(Notation::Polar);
  Enter(MemberKind, "10", "30");
  ExpectAccepted();
  EXPECT_FLOAT_EQ(truss.Members[1].X2, 8.660254F);
  EXPECT_FLOAT_EQ(truss.Members[1].Y2, 5);
}

TEST_F(ValueEditorTest, RectangularStoresTheForce) {
  OpenForce(Notation::Rectangular);
  Enter(ForceKind, "12.5", "-7");
  ExpectAccepted();
  ExpectForce(12.5F, -7);
}

TEST_F(ValueEditorTest, PolarStoresTheForce) {
  OpenForce(Notation::Polar);
  Enter(ForceKind, "5", "53.1301");
  ExpectAccepted();
  EXPECT_FLOAT_EQ(truss.Forces[1].Fx, 3);
  EXPECT_FLOAT_EQ(truss.Forces[1].Fy, 4);
}

TEST_F(ValueEditorTest, OnlyTheEditedMemberChanges) {
  Use(TrussBuilder().Member(0, 0, 3, 4).Member(3, 4, 6, 0).Force(3, 4, -1, 0));
  OpenMember(Notation::Absolute);
  Enter(MemberKind, "2", "2");
  EXPECT_EQ(truss.Members[2].X1, 3);
  EXPECT_EQ(truss.Members[2].Y1, 4);
  ExpectForce(-1, 0);
}

TEST_F(ValueEditorTest, TheExponentFormIsANumber) {
  OpenForce(Notation::Rectangular);
  Enter(ForceKind, "1e3", " -2.5E-1 ");
  ExpectAccepted();
  ExpectForce(1000, -0.25F);
}

TEST_F(ValueEditorTest, TheLargestSingleIsANumber) {
  OpenForce(Notation::Rectangular);
  Enter(ForceKind, "3.4028235e38", "1");
  ExpectAccepted();
  ExpectForce(Largest, 1);
}

TEST_F(ValueEditorTest, TextsFollowTheLocalesSeparator) {
  ValueEditor comma = Editor(NumberFormat{","});
  truss.Forces[1].Fx = 0.25F;
  comma.OpenForForce(1);
  EXPECT_EQ(comma.Text(ForceKind, 1), "0,25");
  comma.txtNewCoords_Change(ForceKind, 1, "1,5");
  comma.txtNewCoords_Change(ForceKind, 2, "1.500");
  comma.cmdNewCoordsOK_Click(ForceKind);
  EXPECT_THAT(messages.Shown, ElementsAre(Message{.Text = NotNumbers, .Icon = MessageIcon::Critical}));
  comma.txtNewCoords_Change(ForceKind, 2, "-2");
  comma.cmdNewCoordsOK_Click(ForceKind);
  ExpectForce(1.5F, -2);
}

TEST_F(ValueEditorTest, EverythingIsClosedAndStoredBeforeTheRedraw) {
  ValueEditor watched({truss, drawing, messages, NumberFormat{}, [this] {
                         ++redraws;
                         ExpectClosed();
                         ExpectMember(0, 0, 9, 9);
                       }});
  Pick();
  watched.OpenForMember(1, 1);
  watched.txtNewCoords_Change(MemberKind, 1, "9");
  watched.txtNewCoords_Change(MemberKind, 2, "9");
  watched.cmdNewCoordsOK_Click(MemberKind);
  EXPECT_EQ(redraws, 1);
}

TEST_F(ValueEditorTest, CancelClosesWithoutAChange) {
  OpenMember(Notation::Absolute);
  Type(MemberKind, "7", "7");
  editor.cmdNewCoordsCancel_Click(MemberKind);
  ExpectClosed();
  EXPECT_EQ(redraws, 0);
  ExpectMember(0, 0, 3, 4);
}

TEST_F(ValueEditorTest, AClosedPanelCannotBeConfirmed) {
  OpenMember(Notation::Absolute);
  Type(MemberKind, "7", "7");
  Deselect(drawing);  // as a redraw or another tool does
  editor.cmdNewCoordsOK_Click(MemberKind);
  ExpectMember(0, 0, 3, 4);
  EXPECT_EQ(redraws, 0);
}

TEST_F(ValueEditorTest, BoxesThatWereNotTypedIntoLeaveTheEndExactlyAsItWas) {
  const float third = 1.0F / 3;
  Use(TrussBuilder().Member(0.1F, 0.7F, third, 2 * third));
  for (const Notation notation : {Notation::Absolute, Notation::Rectangular, Notation::Polar}) {
    OpenMember(notation);
    editor.cmdNewCoordsOK_Click(MemberKind);
    EXPECT_EQ(truss.Members[1].X2, third);
    EXPECT_EQ(truss.Members[1].Y2, 2 * third);
  }
}

TEST_F(ValueEditorTest, OneTypedBoxLeavesTheOtherComponentExactlyAsItWas) {
  const float third = 1.0F / 3;
  Use(TrussBuilder().Member(0, 0, third, 1));
  OpenMember(Notation::Absolute);
  editor.txtNewCoords_Change(MemberKind, 2, "5");
  editor.cmdNewCoordsOK_Click(MemberKind);
  EXPECT_EQ(truss.Members[1].X2, third);
  EXPECT_EQ(truss.Members[1].Y2, 5);
}
