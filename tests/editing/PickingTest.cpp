// What is under the mouse, and where a joint may go.
#include "editing/Picking.h"

#include <cmath>
#include <limits>

#include "EditingFixture.h"

namespace {

// A flat member from pixel (108, 210) to (308, 210): world (3, 3) to (13, 3).
Truss Flat() { return TrussBuilder().Member(3, 3, 13, 3); }

constexpr Selection Nothing{};

}  // namespace

TEST(IdentifyObject, FourPointNinePixelsBesideAFlatMemberIsAHitFiveIsNot) {
  const Editor editor(Flat());
  EXPECT_EQ(editor.Hit(208, 214.9F), (Selection{ObjectType::Member, 1, 0.5F}));
  EXPECT_EQ(editor.Hit(208, 205.1F).Type, ObjectType::Member);
  EXPECT_EQ(editor.Hit(208, 215), Nothing);
  EXPECT_EQ(editor.Hit(208, 205), Nothing);
}

TEST(IdentifyObject, NothingBeyondTheEndsAndTheirPinsCounts) {
  const Editor editor(Flat());
  EXPECT_EQ(editor.Hit(108, 210).T, 0);
  EXPECT_EQ(editor.Hit(308, 210).T, 1);
  EXPECT_EQ(editor.Hit(104, 210), Nothing);
  EXPECT_EQ(editor.Hit(312, 210), Nothing);
  EXPECT_EQ(editor.Hit(106, 214.9F), Nothing);
  EXPECT_EQ(editor.Hit(110, 214.9F).Type, ObjectType::Member);
}

TEST(IdentifyObject, EveryPixelOfAPinPicksItsMember) {
  // Ends at all kinds of places between pixels; the members lie in all directions.
  for (int i = 0; i < 40; ++i) {
    const float x = 6 + 0.0137F * static_cast<float>(i);
    const float y = 5 + 0.0071F * static_cast<float>(i);
    const double direction = 0.3 * i;
    const Editor editor(TrussBuilder().Member(x, y, x + static_cast<float>(3 * std::cos(direction)),
                                              y + static_cast<float>(3 * std::sin(direction))));
    for (const bool isEnd1 : {true, false}) {
      const PixelLine& rod = editor.Picture.Rod[1];
      const PixelPoint end = isEnd1 ? rod.End1() : rod.End2();
      const PixelPoint middle{std::floor(end.X), std::floor(end.Y)};
      for (float column = middle.X - 2; column <= middle.X + 3; ++column) {
        for (float row = middle.Y - 2; row <= middle.Y + 3; ++row) {
          const Selection hit = editor.Hit(column, row);
          EXPECT_EQ(hit.Index, 1) << "(" << column << ", " << row << ") beside (" << end.X << ", " << end.Y
                                  << ")";
          EXPECT_EQ(hit.IsEnd2Big(), !isEnd1);
        }
      }
    }
  }
}

TEST(IdentifyObject, APinEndsWhereItsMarkEnds) {
  const Editor editor(Flat());
  EXPECT_EQ(editor.Hit(105, 207), (Selection{ObjectType::Member, 1, 0}));
  EXPECT_EQ(editor.Hit(105, 213), (Selection{ObjectType::Member, 1, 0}));
  EXPECT_EQ(editor.Hit(311, 213), (Selection{ObjectType::Member, 1, 1}));
  EXPECT_EQ(editor.Hit(104.4F, 210), Nothing);
  EXPECT_EQ(editor.Hit(106, 206.4F), Nothing);
  EXPECT_EQ(editor.Hit(311.6F, 210), Nothing);
}

TEST(IdentifyObject, ALineWinsOverPinsAndAPinOverAForce) {
  // The first member ends where the second and the force begin.
  const Editor editor(TrussBuilder().Member(3, 3, 8, 3).Member(8, 3, 13, 3).Force(8, 3, 0, 3000));
  EXPECT_EQ(editor.Hit(206, 210).Index, 1);
  EXPECT_EQ(editor.Hit(208, 210).Index, 1);
  EXPECT_EQ(editor.Hit(210, 210), (Selection{ObjectType::Member, 2, 0.02F}));
  const Editor tip(TrussBuilder().Force(8, 3, 3000, 0).Member(3, 3, 8, 3));
  EXPECT_EQ(tip.Hit(210, 210), (Selection{ObjectType::Member, 1, 1}));
  EXPECT_EQ(tip.Hit(212, 210), (Selection{ObjectType::Force, 1, 0}));
}

TEST(IdentifyObject, OfTwoPinsTheLowestMembersIsPicked) {
  const Editor editor(TrussBuilder().Member(8, 3, 8, 8).Member(8, 3, 4, 8));
  EXPECT_EQ(editor.Hit(208, 212), (Selection{ObjectType::Member, 1, 0}));
}

TEST(IdentifyObject, OnAMemberShorterThanItsPinsTheNearerEndIsBig) {
  const Editor editor(TrussBuilder().Member(8, 3, 8.1F, 3));  // 208 to 210
  EXPECT_EQ(editor.Hit(206, 210).T, 0);
  EXPECT_EQ(editor.Hit(212, 210).T, 1);
  const Editor shorter(TrussBuilder().Member(8, 3, 8.05F, 3));  // 208 to 209, each on both pins
  EXPECT_EQ(shorter.Hit(206, 210).T, 0);
  EXPECT_EQ(shorter.Hit(211, 210).T, 1);
}

TEST(IdentifyObject, AMemberThatIsStillBeingDrawnHasNoPinsToPick) {
  Editor editor;
  editor.Use(Tool::TrussMember);
  editor.Press(5, 5);
  EXPECT_EQ(editor.Hit(Editor::Px(5), Editor::Py(5)), Nothing);
}

TEST(IdentifyObject, ASteepMemberIsMeasuredSideways) {
  const Editor editor(TrussBuilder().Member(3, 1, 3, 9));
  EXPECT_EQ(editor.Hit(112.9F, 170).Type, ObjectType::Member);
  EXPECT_EQ(editor.Hit(113, 170), Nothing);
  EXPECT_EQ(editor.Hit(108, 254), Nothing);
  EXPECT_EQ(editor.Hit(108, 86), Nothing);
}

TEST(IdentifyObject, TheToleranceIsMeasuredAlongTheMinorAxisNotAcrossTheLine) {
  // At 45 degrees 4.9 pixels downward are only 3.5 across; the line counts as flat.
  const Editor editor(TrussBuilder().Member(0, 0, 10, 10));
  EXPECT_EQ(editor.Hit(148, 174.9F).Type, ObjectType::Member);
  EXPECT_EQ(editor.Hit(148, 175), Nothing);
}

TEST(IdentifyObject, AtFortyFiveDegreesAMemberCountsAsFlat) {
  // 4 pixels below the line: halfway from left to right, but not from top to bottom.
  const Editor editor(TrussBuilder().Member(0, 0, 10, 10));
  EXPECT_EQ(editor.Hit(148, 174), (Selection{ObjectType::Member, 1, 0.5F}));
}

TEST(IdentifyObject, OnASlopeTheLongerAxisTellsHowFarAlongAndTheShorterOneHowFarBeside) {
  const Editor flat(TrussBuilder().Member(0, 0, 10, 5));  // (48, 270) to (248, 170)
  EXPECT_EQ(flat.Hit(148, 224), (Selection{ObjectType::Member, 1, 0.5F}));
  EXPECT_EQ(flat.Hit(148, 224.9F).Type, ObjectType::Member);
  EXPECT_EQ(flat.Hit(148, 225), Nothing);
  EXPECT_EQ(flat.Hit(148, 215), Nothing);
  const Editor steep(TrussBuilder().Member(0, 0, 5, 10));  // (48, 270) to (148, 70)
  EXPECT_EQ(steep.Hit(102, 170), (Selection{ObjectType::Member, 1, 0.5F}));
  EXPECT_EQ(steep.Hit(102.9F, 170).Type, ObjectType::Member);
  EXPECT_EQ(steep.Hit(103, 170), Nothing);
  EXPECT_EQ(steep.Hit(93, 170), Nothing);
}

TEST(IdentifyObject, JustAtTheEndsOfALineIsOnIt) {
  // Four pixels beside the line no pin is met.
  const Editor flat(Flat());
  EXPECT_EQ(flat.Hit(108, 214), (Selection{ObjectType::Member, 1, 0}));
  EXPECT_EQ(flat.Hit(308, 206), (Selection{ObjectType::Member, 1, 1}));
  EXPECT_EQ(flat.Hit(107, 214), Nothing);
  EXPECT_EQ(flat.Hit(309, 206), Nothing);
  const Editor steep(TrussBuilder().Member(3, 1, 3, 9));  // (108, 250) to (108, 90)
  EXPECT_EQ(steep.Hit(112, 250), (Selection{ObjectType::Member, 1, 0}));
  EXPECT_EQ(steep.Hit(104, 90), (Selection{ObjectType::Member, 1, 1}));
  EXPECT_EQ(steep.Hit(112, 251), Nothing);
  EXPECT_EQ(steep.Hit(104, 89), Nothing);
  const Editor force(TrussBuilder().Force(3, 3, 5000, 0));  // (108, 210) to (208, 210)
  EXPECT_EQ(force.Hit(108, 214), (Selection{ObjectType::Force, 1, 0}));
  EXPECT_EQ(force.Hit(208, 206), (Selection{ObjectType::Force, 1, 0}));
  EXPECT_EQ(force.Hit(107, 210), Nothing);
}

TEST(IdentifyObject, AMemberDrawnBackwardsCountsFromItsOwnEnd1) {
  const Editor editor(TrussBuilder().Member(13, 3, 3, 3));
  EXPECT_FLOAT_EQ(editor.Hit(258, 210).T, 0.25F);
}

TEST(IdentifyObject, AMemberWinsOverAForceAndTheLowestIndexWins) {
  const Editor editor(TrussBuilder().Force(3, 3, 10000, 0).Member(5, 0, 5, 6).Member(3, 3, 13, 3));
  EXPECT_EQ(editor.Hit(148, 210).Index, 1);
  EXPECT_EQ(editor.Hit(208, 210), (Selection{ObjectType::Member, 2, 0.5F}));
}

TEST(IdentifyObject, AForceIsPickedOnItsArrow) {
  const Editor editor(TrussBuilder().Force(3, 3, 5000, 0));
  EXPECT_EQ(editor.Hit(150, 214.9F), (Selection{ObjectType::Force, 1, 0}));
  EXPECT_EQ(editor.Hit(150, 215), Nothing);
  EXPECT_EQ(editor.Hit(209, 210), Nothing);
}

TEST(IdentifyObject, ErasedElementsAreNeverHit) {
  const Editor editor(TrussBuilder().Member(3, 3, 13, 3).ThenErased().Force(3, 3, 5000, 0).ThenErased());
  EXPECT_EQ(editor.Hit(150, 210), Nothing);
}

TEST(IdentifyObject, AForceThatWasErasedIsNotHitWhereItWasDrawnLast) {
  Editor editor(TrussBuilder().Force(3, 3, 5000, 0));
  editor.Use(Tool::Erase);
  editor.ClickPixel(150, 210);
  EXPECT_FALSE(editor.Document.Forces[1].Active);
  EXPECT_EQ(editor.Hit(150, 210), Nothing);
}

TEST(IdentifyObject, AnArrowOfNoLengthIsNeverHit) {
  const Editor editor(TrussBuilder().Force(3, 3, 0, 0));
  EXPECT_EQ(editor.Hit(108, 210), Nothing);
}

TEST(IdentifyObject, ExactlyTheMiddleMakesEnd1Big) {
  Editor editor(Flat());
  IdentifyObject(editor.Document, editor.Picture, 208, 210);
  EXPECT_EQ(editor.BigHandle(), (PixelPoint{108, 210}));
  EXPECT_EQ(editor.SmallHandle(), (PixelPoint{308, 210}));
}

TEST(IdentifyObject, OfASteepMemberTooTheMiddleMakesEnd1Big) {
  Editor editor(TrussBuilder().Member(3, 1, 3, 9));
  IdentifyObject(editor.Document, editor.Picture, 108, 170);
  EXPECT_EQ(editor.BigHandle(), (PixelPoint{108, 250}));
  IdentifyObject(editor.Document, editor.Picture, 108, 169);
  EXPECT_EQ(editor.BigHandle(), (PixelPoint{108, 90}));
}

TEST(IdentifyObject, TheHandlesAreSquaresOfEightAndOfSixPixels) {
  Editor editor(Flat());
  IdentifyObject(editor.Document, editor.Picture, 110, 210);
  EXPECT_EQ(editor.Picture.MoveHandleB.Left, 108 - 4);
  EXPECT_EQ(editor.Picture.MoveHandleB.Top, 210 - 4);
  EXPECT_EQ(editor.Picture.MoveHandleS.Left, 308 - 3);
  EXPECT_EQ(editor.Picture.MoveHandleS.Top, 210 - 3);
}

TEST(IdentifyObject, TheNearerEndIsBig) {
  Editor editor(Flat());
  IdentifyObject(editor.Document, editor.Picture, 209, 210);
  EXPECT_EQ(editor.BigHandle(), (PixelPoint{308, 210}));
  EXPECT_EQ(editor.SmallHandle(), (PixelPoint{108, 210}));
  EXPECT_TRUE(editor.HandlesAreShown());
  EXPECT_FALSE(editor.Picture.SupportsEnabled);
}

TEST(IdentifyObject, AForcesBigHandleIsAtItsHead) {
  Editor editor(TrussBuilder().Force(3, 3, 5000, 0));
  IdentifyObject(editor.Document, editor.Picture, 110, 210);
  EXPECT_EQ(editor.BigHandle(), (PixelPoint{208, 210}));
  EXPECT_EQ(editor.SmallHandle(), (PixelPoint{108, 210}));
}

TEST(OKLocation, AnObjectWithinTenPixelsWinsOverTheGrid) {
  const Editor editor(TrussBuilder().Member(3.23F, 3.11F, 13, 3));
  const auto near = editor.Snap(48 + 20 * 3.23F + 9.9F, 270 - 20 * 3.11F - 9.9F);
  EXPECT_EQ(near->X, 3.23F);
  EXPECT_EQ(near->Y, 3.11F);
  EXPECT_EQ(near->Pixel, editor.Picture.Rod[1].End1());
  EXPECT_EQ(editor.Snap(48 + 20 * 3.23F + 10.1F, 207.8F)->X, 3.5F);
  EXPECT_EQ(editor.Snap(112.6F, 207.8F + 10.1F)->Y, 2.5F);
}

TEST(OKLocation, TheToleranceIsTenPixelsOnEachAxisOfItsOwn) {
  Truss truss = Flat();
  truss.Settings.SnapGrid = false;
  truss.Settings.XMax = 40;  // 10 pixels to the unit; the corner of the square is 14 pixels away
  const Editor editor(truss);
  const PixelPoint end = editor.Picture.Rod[1].End1();
  EXPECT_EQ(editor.Snap(end.X + 9.9F, end.Y + 9.9F)->X, 3);
  EXPECT_NE(editor.Snap(end.X + 10.1F, end.Y)->X, 3);
  EXPECT_NE(editor.Snap(end.X, end.Y - 10.1F)->Y, 3);
}

TEST(OKLocation, WhatIsJustTenPixelsAwayIsNotNear) {
  Truss truss = TrussBuilder().Member(4, 4, 13, 3);
  truss.Settings.SnapGrid = false;
  truss.Settings.XMax = 25;  // 16 pixels to the unit: all of it is exact
  const Editor editor(truss);
  for (const float away : {-10.0F, 10.0F}) {
    EXPECT_EQ(editor.Snap(112 + away, 206), (SnappedPoint{{112 + away, 206}, 4 + away / 16, 4}));
    EXPECT_EQ(editor.Snap(112, 206 + away), (SnappedPoint{{112, 206 + away}, 4, 4 - away / 16}));
    const float near = away * 0.99F;
    EXPECT_EQ(editor.Snap(112 + near, 206)->X, 4);
    EXPECT_EQ(editor.Snap(112, 206 + near)->Y, 4);
  }
}

TEST(OKLocation, WhereTheAxesDifferInScaleEachHasItsOwnTolerance) {
  // 10 pixels are 0.5 along one axis and 0.25 along the other.
  for (const bool isWide : {true, false}) {
    Truss truss = TrussBuilder().Clamp(4, 4);
    truss.Settings.SnapGrid = false;
    Editor editor(truss);
    editor.Picture.Mapping.SetMapping(0, isWide ? 200.0F : 400.0F, isWide ? 400.0F : 200.0F, 0, 0, 10, 0, 10);
    const PixelPoint clamp{editor.Picture.Mapping.XPixel(4), editor.Picture.Mapping.YPixel(4)};
    const auto isSnapped = [&](float dx, float dy) {
      const auto point = editor.Snap(clamp.X + dx, clamp.Y + dy);
      return point->X == 4 && point->Y == 4;
    };
    for (const float sign : {-1.0F, 1.0F}) {
      EXPECT_TRUE(isSnapped(sign * 9, 0));
      EXPECT_TRUE(isSnapped(0, sign * 9));
      EXPECT_TRUE(isSnapped(sign * 9, sign * 9));
      EXPECT_FALSE(isSnapped(sign * 11, 0));
      EXPECT_FALSE(isSnapped(0, sign * 11));
    }
  }
}

TEST(OKLocation, ASnappedPixelIsThatOfTheDrawnEnd) {
  Editor editor(Flat());
  editor.Picture.Rod[1] = {109, 212, 310, 207};  // drawn a little beside its coordinates
  EXPECT_EQ(editor.Snap(112, 210)->Pixel, (PixelPoint{109, 212}));
  EXPECT_EQ(editor.Snap(304, 210)->Pixel, (PixelPoint{310, 207}));
}

TEST(OKLocation, RowsAndColumnsOfTheGridHaveTheirOwnSpacing) {
  Truss truss = TrussBuilder();
  truss.Settings.GridX = 2;
  truss.Settings.GridY = 0.5F;
  const Editor editor(truss);
  EXPECT_EQ(editor.Snap(48 + 20 * 2.9F, 270 - 20 * 2.7F)->X, 2);
  EXPECT_EQ(editor.Snap(48 + 20 * 2.9F, 270 - 20 * 2.7F)->Y, 2.5F);
}

TEST(OKLocation, MembersComeBeforeSupportsAndSupportsBeforeForces) {
  const TrussBuilder all = TrussBuilder().Force(5, 5.1F, 1000, 0).Clamp(5.1F, 5).Member(5.2F, 5, 9, 9);
  EXPECT_EQ(Editor(all).Snap(148, 170)->X, 5.2F);
  EXPECT_EQ(Editor(TrussBuilder().Force(5, 5.1F, 1000, 0).Clamp(5.1F, 5)).Snap(148, 170)->X, 5.1F);
  EXPECT_EQ(Editor(TrussBuilder().Force(5, 5.1F, 1000, 0)).Snap(148, 170)->Y, 5.1F);
}

TEST(OKLocation, TheFirstThatIsNearWinsNotTheNearest) {
  const Editor editor(TrussBuilder().Member(5.2F, 5, 9, 9).Member(5, 5, 9, 5).Member(1, 1, 5.1F, 5));
  EXPECT_EQ(editor.Snap(148, 170)->X, 5.2F);
  EXPECT_EQ(editor.Snap(148, 170, 1)->X, 5);
}

TEST(OKLocation, End1ComesBeforeEnd2) {
  const Editor editor(TrussBuilder().Member(5.3F, 5, 5, 5));
  EXPECT_EQ(editor.Snap(148, 170)->X, 5.3F);
}

TEST(OKLocation, AMemberNeverSnapsToItsOwnEnds) {
  const Editor editor(TrussBuilder().Member(5.2F, 5.2F, 9, 9));
  EXPECT_EQ(editor.Snap(148, 170)->X, 5.2F);
  EXPECT_EQ(editor.Snap(148, 170, 1)->X, 5);
}

TEST(OKLocation, ErasedElementsAttractNothing) {
  const Editor editor(TrussBuilder()
                          .Member(5.2F, 5, 9, 9)
                          .ThenErased()
                          .Clamp(5.2F, 5)
                          .ThenErased()
                          .Force(5.2F, 5, 1000, 0)
                          .ThenErased());
  EXPECT_EQ(editor.Snap(148, 170)->X, 5);
}

TEST(OKLocation, GridPointsAreCountedFromTheMinimumAndHalvesGoUp) {
  Truss truss = TrussBuilder();
  truss.Settings.XMin = 0.5F;
  truss.Settings.XMax = 20.5F;
  truss.Settings.YMin = 0.25F;
  truss.Settings.GridX = truss.Settings.GridY = 1;
  const Editor editor(truss);
  EXPECT_EQ(editor.Snap(48, 270)->X, 0.5F);
  EXPECT_EQ(editor.Snap(57, 270)->X, 0.5F);
  EXPECT_EQ(editor.Snap(58, 270)->X, 1.5F);
  EXPECT_EQ(editor.Snap(58, 270)->Pixel, (PixelPoint{68, 270}));
  EXPECT_EQ(editor.Snap(80, 270)->X, 2.5F);
  EXPECT_EQ(editor.Snap(48, 261)->Y, 0.25F);
  EXPECT_EQ(editor.Snap(48, 259)->Y, 1.25F);
  EXPECT_EQ(editor.Snap(37, 270)->X, -0.5F);
}

TEST(OKLocation, WithoutSnappingThePointIsTheMouse) {
  Truss truss = Flat();
  truss.Settings.SnapGrid = truss.Settings.SnapObject = false;
  const Editor editor(truss);
  EXPECT_EQ(editor.Snap(111, 213), (SnappedPoint{{111, 213}, 3.15F, 2.85F}));
}

TEST(OKLocation, ObjectsCountOnlyWhenTheyShould) {
  Truss truss = TrussBuilder().Member(3.2F, 3, 13, 3);
  truss.Settings.SnapObject = false;
  EXPECT_EQ(Editor(truss).Snap(112, 210)->X, 3);
}

TEST(OKLocation, RefusesWhatIsNoPlace) {
  constexpr float nan = std::numeric_limits<float>::quiet_NaN();
  Editor editor(Flat());
  EXPECT_EQ(editor.Snap(nan, 100), std::nullopt);
  EXPECT_EQ(editor.Snap(100, std::numeric_limits<float>::infinity()), std::nullopt);
  editor.Document.Settings.GridX = 0;
  EXPECT_EQ(editor.Snap(300, 100), std::nullopt);
  editor.Document.Settings.GridX = 1;
  editor.Document.Settings.GridY = 0;
  EXPECT_EQ(editor.Snap(300, 100), std::nullopt);
  editor.Document.Settings.GridY = 1;
  editor.Document.Settings.XMax = 0;
  editor.Redraw();
  EXPECT_EQ(editor.Snap(100, 100), std::nullopt);
  EXPECT_EQ(editor.Hit(48, 210), Nothing);
}

TEST(SnappedPoint, IsAnotherWithAnotherPixelOrAnotherPlace) {
  const SnappedPoint point{{10, 20}, 1, 2};
  EXPECT_EQ(point, (SnappedPoint{{10, 20}, 1, 2, ExactDecimal::Of(1.5F), ExactDecimal::Of(2.5F)}));
  for (const SnappedPoint& other :
       {SnappedPoint{{11, 20}, 1, 2}, {{10, 21}, 1, 2}, {{10, 20}, 3, 2}, {{10, 20}, 1, 3}}) {
    EXPECT_FALSE(point == other);
  }
}

TEST(SamePlace, IsOnePixelOrOnePointOfTheWorld) {
  const SnappedPoint point{{10, 20}, 1, 2};
  EXPECT_TRUE(SamePlace(point, {{10, 20}, 3, 4}));
  EXPECT_TRUE(SamePlace(point, {{11, 21}, 1, 2}));
  EXPECT_FALSE(SamePlace(point, {{11, 20}, 1, 3}));
  EXPECT_FALSE(SamePlace(point, {{10, 21}, 3, 2}));
}

TEST(IsLive, OnlyWhatIsThereAndNotErased) {
  const Truss truss = TrussBuilder()
                          .Member(0, 0, 1, 0)
                          .Member(0, 0, 2, 0)
                          .ThenErased()
                          .Force(0, 0, 1, 0)
                          .Force(0, 0, 2, 0)
                          .ThenErased();
  for (const ObjectType type : {ObjectType::Member, ObjectType::Force}) {
    EXPECT_TRUE(IsLive(truss, {type, 1, 0}));
    EXPECT_FALSE(IsLive(truss, {type, 2, 0}));
    EXPECT_FALSE(IsLive(truss, {type, 3, 0}));
  }
  EXPECT_FALSE(IsLive(truss, {}));
}
