// What drawing by keys tells of itself.
#include "editing/EditingWords.h"

#include "EditingFixture.h"
#include "editing/ElementPress.h"
#include "editing/KeyboardCursor.h"

namespace {

struct Teller : Editor {
  using Editor::Editor;

  std::string AtPixel(float x, float y) const {
    return CursorInWords(Document, Picture, Mouse, Tools.Selected(), {x, y}, ".");
  }
  std::string At(float x, float y) const { return AtPixel(Px(x), Py(y)); }

  std::optional<PixelPoint> PlaceOn(ElementKind kind, int index) const {
    return PlaceToPress(Document, Picture, Tools.Selected(), Mouse.IsDragging(), {kind, index});
  }

  KeyboardCursor Cursor{Mouse, Document, Picture};
};

Truss CornerTruss() {
  return TrussBuilder()
      .Member(2, 2, 6, 2, "AB")
      .Member(6, 2, 6, 6)
      .Clamp(2, 2, "Ax", "Ay")
      .Force(6, 6, 0, -2000)
      .Joint(2, 2, "A");
}

}  // namespace

TEST(CursorInWords, TellsThePointAndTheJointOrGridPointThere) {
  Teller teller(CornerTruss());
  EXPECT_EQ(teller.At(2, 2), "(2, 2), joint A");
  EXPECT_EQ(teller.At(6, 2), "(6, 2), joint");
  EXPECT_EQ(teller.At(8.5F, 4), "(8.5, 4), grid point");
}

TEST(CursorInWords, AJointWithoutANameIsJustAJoint) {
  Teller teller(CornerTruss());
  for (JointRec& joint : teller.Document.JointsInUse()) {
    if (joint.X != 2) continue;
    teller.Document.Labels[joint.NameLabel].Caption = "";
    EXPECT_EQ(teller.At(2, 2), "(2, 2), joint");
    joint.NameLabel = 0;
    EXPECT_EQ(teller.At(2, 2), "(2, 2), joint");
  }
}

TEST(CursorInWords, TellsWhatItWouldSnapTo) {
  Teller teller(CornerTruss());
  EXPECT_EQ(teller.AtPixel(Editor::Px(2) + 3, Editor::Py(2)), "snaps to (2, 2), joint A");
  EXPECT_EQ(teller.AtPixel(Editor::Px(8) + 3, Editor::Py(4)), "snaps to (8, 4), grid point");
  EXPECT_EQ(teller.AtPixel(Editor::Px(8), Editor::Py(4) - 3), "snaps to (8, 4), grid point");
}

TEST(CursorInWords, WithoutSnappingItIsThePlaceItself) {
  Teller teller(CornerTruss());
  teller.Document.Settings.SnapGrid = false;
  teller.Document.Settings.SnapObject = false;
  EXPECT_EQ(teller.At(8.25F, 4), "(8.25, 4)");
}

TEST(CursorInWords, TellsWhatTheToolWouldActOn) {
  Teller teller(CornerTruss());
  EXPECT_EQ(teller.At(4, 2), "(4, 2), grid point");
  teller.Use(Tool::Erase);
  EXPECT_EQ(teller.At(4, 2), "(4, 2), grid point, on member AB from (2, 2) to (6, 2)");
  EXPECT_EQ(teller.At(2, 2), "(2, 2), joint A, on clamp at (2, 2), forces Ax and Ay");
  EXPECT_EQ(teller.At(9, 9), "(9, 9), grid point");
  teller.Use(Tool::ReOrientation);
  EXPECT_EQ(teller.At(4, 2), "(4, 2), grid point");
  teller.Use(Tool::Move);
  teller.Document.Members[2].Live = false;
  EXPECT_EQ(teller.At(6, 5), "(6, 5), grid point, on force at (6, 6), 0 right, 2000 down");
}

TEST(CursorInWords, SaysNothingWhereAPressDoesNothing) {
  Teller teller;
  teller.Picture.Mapping.PixelX2 = teller.Picture.Mapping.PixelX1;
  EXPECT_EQ(teller.At(2, 2), "");
}

TEST(ChangesInWords, TellWhatWasMadeErasedAndChanged) {
  Teller teller(CornerTruss());
  const ChangesInWords before(teller.Document);
  EXPECT_EQ(before.Since(teller.Document, "."), "");
  teller.Use(Tool::Roller);
  teller.Click(6, 2);
  EXPECT_EQ(before.Since(teller.Document, "."), "made roller at (6, 2), force not named yet");
  const ChangesInWords withRoller(teller.Document);
  teller.Use(Tool::Erase);
  teller.Click(4, 2);
  EXPECT_EQ(withRoller.Since(teller.Document, "."), "erased member AB from (2, 2) to (6, 2)");
  const ChangesInWords erased(teller.Document);
  teller.Use(Tool::ReOrientation);
  teller.Click(6, 2);
  EXPECT_EQ(erased.Since(teller.Document, "."), "now roller at (6, 2), force not named yet, pushes down");
  EXPECT_EQ(ChangesInWords(teller.Document).Since(teller.Document, "."), "");
}

TEST(ChangesInWords, TellOfErasedSupportsAndForces) {
  Truss truss = CornerTruss();
  const ChangesInWords before(truss);
  truss.Supports[1].Live = false;
  truss.Forces[1].Active = false;
  EXPECT_EQ(before.Since(truss, "."),
            "erased clamp at (2, 2), forces Ax and Ay; erased force at (6, 6), 0 right, 2000 down");
  EXPECT_EQ(ChangesInWords(truss).Since(truss, "."), "");
}

TEST(ChangesInWords, OfManyChangesOnlyTheFirstAreTold) {
  Teller teller;
  const ChangesInWords before(teller.Document);
  teller.Use(Tool::Clamp);
  for (const float x : {1.0F, 3.0F, 5.0F, 7.0F, 9.0F}) teller.Click(x, 1);
  EXPECT_EQ(before.Since(teller.Document, "."),
            "made clamp at (1, 1), forces not named yet; made clamp at (3, 1), forces not named yet; "
            "made clamp at (5, 1), forces not named yet and 2 more changes");
}

TEST(ChangesInWords, AnotherTrussIsComparedToo) {
  const Truss empty = TrussBuilder();
  EXPECT_EQ(ChangesInWords(CornerTruss()).Since(empty, "."),
            "erased member AB from (2, 2) to (6, 2); erased member from (6, 2) to (6, 6); "
            "erased clamp at (2, 2), forces Ax and Ay and 1 more changes");
}

TEST(PlaceToPress, IsTheJointWithToolsThatDraw) {
  Teller teller(CornerTruss());
  EXPECT_FALSE(teller.PlaceOn(ElementKind::Joint, 1));
  for (const Tool tool : {Tool::TrussMember, Tool::Clamp, Tool::Roller, Tool::Force}) {
    teller.Use(tool);
    EXPECT_EQ(teller.PlaceOn(ElementKind::Joint, 1), (PixelPoint{Editor::Px(2), Editor::Py(2)}));
    EXPECT_FALSE(teller.PlaceOn(ElementKind::Member, 1));
    EXPECT_FALSE(teller.PlaceOn(ElementKind::Support, 1));
  }
  teller.Use(Tool::Erase);
  EXPECT_FALSE(teller.PlaceOn(ElementKind::Joint, 1));
}

TEST(PlaceToPress, ADragIsDroppedOnJointsOnly) {
  Teller teller(CornerTruss());
  teller.Use(Tool::Move);
  teller.Press(2, 2);
  ASSERT_TRUE(teller.Mouse.IsDragging());
  EXPECT_TRUE(teller.PlaceOn(ElementKind::Joint, 2));
  EXPECT_FALSE(teller.PlaceOn(ElementKind::Member, 1));
}

TEST(PlaceToPress, IsWhereAClickMeetsTheElement) {
  for (const Tool tool : {Tool::NumericalValue, Tool::Move, Tool::Erase}) {
    Teller teller(CornerTruss());
    teller.Use(tool);
    EXPECT_EQ(teller.PlaceOn(ElementKind::Member, 1), (PixelPoint{Editor::Px(4), Editor::Py(2)}));
    EXPECT_TRUE(teller.PlaceOn(ElementKind::Member, 2));
    EXPECT_EQ(teller.PlaceOn(ElementKind::Support, 1).has_value(), tool != Tool::NumericalValue);
    EXPECT_FALSE(teller.PlaceOn(ElementKind::Label, 1));
  }
}

TEST(PlaceToPress, WhereOthersCrossItAnotherPlaceIsTaken) {
  Teller teller(TrussBuilder().Member(0, 4, 8, 4).Member(4, 0, 4, 8).Force(3, 2, 2000, 0));
  teller.Use(Tool::Erase);
  const auto place = teller.PlaceOn(ElementKind::Member, 2);
  ASSERT_TRUE(place);
  EXPECT_EQ(place->X, Editor::Px(4));
  EXPECT_NE(place->Y, Editor::Py(4));
  EXPECT_EQ(teller.Hit(place->X, place->Y).Index, 2);
  const auto onForce = teller.PlaceOn(ElementKind::Force, 1);
  ASSERT_TRUE(onForce);
  EXPECT_EQ(teller.Hit(onForce->X, onForce->Y).Type, ObjectType::Force);
}

TEST(PlaceToPress, ThereIsNoneUnderOthers) {
  Teller teller(TrussBuilder().Member(0, 4, 8, 4).Member(0, 4, 8, 4));
  teller.Use(Tool::Erase);
  EXPECT_TRUE(teller.PlaceOn(ElementKind::Member, 1));
  EXPECT_FALSE(teller.PlaceOn(ElementKind::Member, 2));
}

TEST(PlaceToPress, OfAMemberIsNotOnASupport) {
  Teller teller(TrussBuilder().Member(0, 4, 8, 4).Clamp(4, 4.5F));
  teller.Use(Tool::Erase);
  const auto place = teller.PlaceOn(ElementKind::Member, 1);
  ASSERT_TRUE(place);
  EXPECT_NE(place->X, Editor::Px(4));
  teller.ClickPixel(place->X, place->Y);
  EXPECT_FALSE(teller.Document.Members[1].Live);
  EXPECT_TRUE(teller.Document.Supports[1].Live);
}

TEST(PlaceToPress, ASupportUnderAnotherHasNone) {
  Teller teller(TrussBuilder().Clamp(4, 4).Clamp(4, 4));
  teller.Use(Tool::Erase);
  EXPECT_FALSE(teller.PlaceOn(ElementKind::Support, 1));
  EXPECT_TRUE(teller.PlaceOn(ElementKind::Support, 2));
}

TEST(PlaceToPress, ASupportBesideAnotherIsMetBesideIt) {
  Teller teller(TrussBuilder().Clamp(4, 4).Clamp(4.5F, 4));
  teller.Use(Tool::Erase);
  for (const int support : {1, 2}) {
    const auto place = teller.PlaceOn(ElementKind::Support, support);
    ASSERT_TRUE(place) << support;
    teller.ClickPixel(place->X, place->Y);
    EXPECT_FALSE(teller.Document.Supports[support].Live) << support;
  }
}

TEST(KeyboardCursorMoveTo, GoesThereAndStaysInsideTheDrawingArea) {
  Teller teller;
  teller.Cursor.MoveTo({100, 150});
  EXPECT_TRUE(teller.Cursor.IsVisible());
  EXPECT_EQ(teller.Cursor.Position(), (PixelPoint{100, 150}));
  teller.Cursor.MoveTo({1e30F, -1e30F});
  EXPECT_EQ(teller.Cursor.Position(), (PixelPoint{448, 70}));
  for (const PixelPoint noPlace : {PixelPoint{NAN, 100}, {100, NAN}}) {
    teller.Cursor.MoveTo(noPlace);
    EXPECT_EQ(teller.Cursor.Position(), (PixelPoint{448, 70}));
  }
}

TEST(KeyboardCursorMoveTo, DragsWhatIsHeld) {
  Teller teller;
  teller.Cursor.ChooseTool(1);
  teller.Cursor.MoveTo({Editor::Px(2), Editor::Py(2)});
  teller.Cursor.PressOrRelease();
  teller.Cursor.MoveTo({Editor::Px(5), Editor::Py(3)});
  EXPECT_EQ(teller.Picture.Rod[1].End2(), (PixelPoint{Editor::Px(5), Editor::Py(3)}));
  teller.Cursor.PressOrRelease();
  EXPECT_THAT(EndsOf(teller.Document.Members[1]), testing::ElementsAre(2, 2, 5, 3));
}

TEST(PressInWords, TellsWhereADragBeginsAndWhatItMade) {
  Teller teller(CornerTruss());
  const ChangesInWords before(teller.Document);
  const auto told = [&](PixelPoint cursor) {
    return PressInWords(before, teller.Document, teller.Picture, teller.Mouse, teller.Tools.Selected(),
                        cursor, ".");
  };
  teller.Cursor.ChooseTool(1);
  teller.Cursor.MoveTo({Editor::Px(2) + 3, Editor::Py(2)});
  teller.Cursor.PressOrRelease();
  EXPECT_EQ(told(teller.Cursor.Position()), "from (2, 2), joint A");
  teller.Cursor.MoveTo({Editor::Px(4), Editor::Py(5)});
  teller.Cursor.PressOrRelease();
  EXPECT_EQ(told(teller.Cursor.Position()), "made member from (2, 2) to (4, 5)");
}

TEST(PressInWords, TellsWhatIsPickedOrThatNothingHappened) {
  Teller teller(CornerTruss());
  const auto toldAfter = [&](float x, float y) {
    const ChangesInWords before(teller.Document);
    teller.Click(x, y);
    return PressInWords(before, teller.Document, teller.Picture, teller.Mouse, teller.Tools.Selected(),
                        {Editor::Px(x), Editor::Py(y)}, ".");
  };
  teller.Use(Tool::Move);
  EXPECT_EQ(toldAfter(4, 2), "picked member AB from (2, 2) to (6, 2); its ends can be moved");
  EXPECT_EQ(toldAfter(9, 9), "nothing changed");
  teller.Use(Tool::NumericalValue);
  teller.Document.Members[2].Live = false;
  EXPECT_EQ(toldAfter(6, 5), "picked force at (6, 6), 0 right, 2000 down");
}

TEST(PressInWords, TheFirstEndOfAMemberIsToldLikeTheSecond) {
  Teller teller(CornerTruss());
  teller.Use(Tool::Move);
  teller.Click(6, 3);
  EXPECT_EQ(teller.At(6, 2), "(6, 2), joint, on the end (6, 2) of member from (6, 2) to (6, 6)");
  const ChangesInWords before(teller.Document);
  teller.Press(6, 2);
  EXPECT_EQ(PressInWords(before, teller.Document, teller.Picture, teller.Mouse, Tool::Move,
                         {Editor::Px(6), Editor::Py(2)}, "."),
            "moving the end (6, 2) of member from (6, 2) to (6, 6)");
}

TEST(PressInWords, TheMoveToolTellsWhatItTakesHoldOf) {
  Teller teller(CornerTruss());
  const auto press = [&](float x, float y) {
    const ChangesInWords before(teller.Document);
    teller.Cursor.MoveTo({Editor::Px(x), Editor::Py(y)});
    teller.Cursor.PressOrRelease();
    return PressInWords(before, teller.Document, teller.Picture, teller.Mouse, teller.Tools.Selected(),
                        teller.Cursor.Position(), ".");
  };
  teller.Use(Tool::Move);
  EXPECT_EQ(press(2, 2), "moving clamp at (2, 2), forces Ax and Ay");
  EXPECT_EQ(teller.At(2, 3), "(2, 3), grid point");
  press(2, 2);
  press(4, 2);
  EXPECT_EQ(teller.At(6, 2), "(6, 2), joint, on the end (6, 2) of member AB from (2, 2) to (6, 2)");
  EXPECT_EQ(press(6, 2), "moving the end (6, 2) of member AB from (2, 2) to (6, 2)");
  const ChangesInWords before(teller.Document);
  press(6, 3);
  EXPECT_EQ(teller.Document.Members[1].Y2, 3);
  teller.Document.Members[2].Live = false;
  EXPECT_EQ(press(6, 5), "picked force at (6, 6), 0 right, 2000 down; its head at (6, 4) can be moved");
  EXPECT_EQ(press(6, 4), "moving the head of force at (6, 6), 0 right, 2000 down");
}
