// What every surface does in the same way.
#include "platform/Surface.h"

#include <gtest/gtest.h>

#include "platform/Palette.h"
#include "support/RecordingSurface.h"

namespace {

// Remembers the colour of each text, too.
class ColouredTexts : public RecordingSurface {
 public:
  void PrintText(float left, float top, std::string_view text) override {
    RecordingSurface::PrintText(left, top, text);
    Colours.push_back(Colour);
  }

  std::vector<int> Colours;
};

}  // namespace

TEST(Surface, ATextWithARimStandsInItsColourOnWhiteOnesAroundIt) {
  for (const int colour : {Black, DeepBlue}) {
    ColouredTexts paper;
    paper.PrintTextWithRim(50, 60, "A", colour);
    ASSERT_GT(paper.Texts.size(), 8U);
    for (std::size_t i = 0; i < paper.Texts.size(); ++i) {
      const bool isLast = i + 1 == paper.Texts.size();
      EXPECT_EQ(paper.Colours[i], isLast ? colour : White);
      const float dx = std::abs(paper.Texts[i].Left - 50);
      const float dy = std::abs(paper.Texts[i].Top - 60);
      EXPECT_EQ(std::max(dx, dy), isLast ? 0 : RimWidth);
    }
    EXPECT_EQ(paper.Colour, colour);
  }
}
