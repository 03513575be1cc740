// Which elements are to be seen on the canvas, and where.
#include "canvas/DrawnElements.h"

#include <gmock/gmock.h>

#include "CanvasFixture.h"
#include "canvas/PickedLine.h"

namespace {

using testing::ElementsAre;

Truss ShownBeam() {
  return Bare(TrussBuilder()
                  .Member(0, 0, 4, 0, "AB")
                  .Member(4, 0, 4, 2)
                  .ThenErased()
                  .Member(0, 0, 2, 3)
                  .Clamp(0, 0, "Ax", "Ay")
                  .Force(2, 3, 1000, 0));
}

constexpr Element ShownMember(int index) { return {ElementKind::Member, index}; }
constexpr Element ShownJoint(int index) { return {ElementKind::Joint, index}; }
constexpr Element ShownSupport(int index) { return {ElementKind::Support, index}; }
constexpr Element ShownForce(int index) { return {ElementKind::Force, index}; }

}  // namespace

TEST(DrawnElements, TheyComeByKindAndWithoutWhatIsErased) {
  Truss truss = ShownBeam();
  Canvas canvas;
  canvas.Redraw(truss);
  EXPECT_THAT(ShownElements(canvas.Picture, truss),
              ElementsAre(ShownMember(1), ShownMember(3), ShownJoint(1), ShownJoint(2), ShownJoint(3),
                          ShownSupport(1), ShownForce(1)));
}

TEST(DrawnElements, NamesBelongToThemWhereTheyAreShown) {
  Truss truss = ShownBeam();
  Canvas canvas;
  canvas.Redraw(truss);
  const std::size_t without = ShownElements(canvas.Picture, truss).size();
  ShowLabels(canvas.Picture, truss);
  canvas.Redraw(truss);
  int names = 0;
  for (const LabelPlace& place : canvas.Picture.lblRodJoint.First(canvas.Picture.lblRodJoint.Size()))
    names += place.Visible;
  EXPECT_GT(names, 0);
  EXPECT_EQ(ShownElements(canvas.Picture, truss).size(), without + static_cast<std::size_t>(names));
}

TEST(DrawnElements, NothingIsShownWithoutARangeToDrawIn) {
  Truss truss = ShownBeam();
  Canvas canvas;
  canvas.Redraw(truss);
  canvas.Picture.Mapping.PixelX2 = canvas.Picture.Mapping.PixelX1;
  EXPECT_TRUE(ShownElements(canvas.Picture, truss).empty());
  EXPECT_FALSE(BoxOf(canvas.Picture, truss, ShownMember(1)));
}

TEST(DrawnElements, AnyIndexMayBeAskedFor) {
  Truss truss = ShownBeam();
  Canvas canvas;
  canvas.Redraw(truss);
  for (const ElementKind kind : {ElementKind::Member, ElementKind::Joint, ElementKind::Support,
                                 ElementKind::Force, ElementKind::Label}) {
    for (const int index : {-1, 0, 1000, 32767, 40000}) {
      EXPECT_FALSE(IsShown(canvas.Picture, truss, {kind, index})) << index;
      EXPECT_FALSE(BoxOf(canvas.Picture, truss, {kind, index})) << index;
    }
  }
}

TEST(DrawnElements, BoxesSurroundWhatIsDrawn) {
  Truss truss = ShownBeam();
  Canvas canvas;
  canvas.Redraw(truss);
  const auto box = [&](const Element& element) { return BoxOf(canvas.Picture, truss, element); };
  EXPECT_EQ(box(ShownMember(1)), (PixelRect{45, 267, 131, 273}));
  EXPECT_EQ(box(ShownMember(3)), (PixelRect{45, 207, 91, 273}));
  EXPECT_EQ(box(ShownJoint(1)), (PixelRect{45, 267, 51, 273}));
  EXPECT_EQ(box(ShownSupport(1)), (PixelRect{32, 254, 64, 286}));
  EXPECT_EQ(box(ShownForce(1)), (PixelRect{85, 207, 111, 213}));
  EXPECT_FALSE(box(ShownMember(2)));
}

TEST(DrawnElements, WhatIsFarAwayHasAPlaceAllTheSame) {
  Truss truss = Bare(TrussBuilder().Member(0, 0, 1e30F, 0));
  Canvas canvas;
  canvas.Redraw(truss);
  const auto box = BoxOf(canvas.Picture, truss, ShownMember(1));
  ASSERT_TRUE(box);
  EXPECT_EQ(box->Right, FarthestPixel);
}

TEST(DrawnElements, WhatIsInFrontIsMet) {
  Truss truss = ShownBeam();
  Canvas canvas;
  canvas.Redraw(truss);
  const auto at = [&](float x, float y) { return ElementAt(canvas.Picture, truss, x, y); };
  EXPECT_EQ(at(48, 270), ShownJoint(1));
  EXPECT_EQ(at(60, 280), ShownSupport(1));
  EXPECT_EQ(at(100, 268), ShownMember(1));
  EXPECT_EQ(at(100, 211), ShownForce(1));
  EXPECT_EQ(at(300, 100), std::nullopt);
  ShowLabels(canvas.Picture, truss);
  canvas.Redraw(truss);
  const LabelIndex name = truss.Members[1].NameLabel1;
  const LabelPlace& place = canvas.Picture.lblRodJoint[name];
  EXPECT_EQ(at(place.Left + place.Width / 2, place.Top + place.Height / 2),
            (Element{ElementKind::Label, name}));
}

TEST(PickedLine, ALineIsMetWithinFivePixelsOfItsMinorAxis) {
  const PixelLine flat{10, 10, 110, 10};
  EXPECT_EQ(FractionAt(flat, 60, 14), 0.5F);
  EXPECT_FALSE(FractionAt(flat, 60, 15));
  EXPECT_FALSE(FractionAt(flat, 9, 10));
  EXPECT_EQ(FractionAt({10, 110, 10, 10}, 6, 85), 0.25F);
  EXPECT_FALSE(FractionAt({10, 10, 10, 10}, 10, 10));
}
