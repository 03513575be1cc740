// What the numerical value editor refuses, and in which words.
#include "ValueEditorFixture.h"

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

TEST_F(ValueEditorTest, AHeightBeyondSinglePrecisionIsRefusedLikewise) {
  Use(TrussBuilder().Member(0, 3e38F, 0, 0).Force(0, 0, -1, 0));
  OpenMember(Notation::Rectangular);
  ExpectRefused(MemberKind, "0", "1e38", NotNumbers);
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
