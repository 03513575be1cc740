// What the numerical value editor shows in each notation.
#include "ValueEditorFixture.h"

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
