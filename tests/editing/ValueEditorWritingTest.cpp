// What the numerical value editor writes into the truss.
#include "ValueEditorFixture.h"

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
  EXPECT_THAT(messages.Shown,
              testing::ElementsAre(Message{.Text = NotNumbers, .Icon = MessageIcon::Critical}));
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
