#include "text/LongText.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace {

std::vector<std::string> PartsOf(const LongText& text) {
  std::vector<std::string> parts;
  text.ForEachPart([&parts](std::string_view part) { parts.emplace_back(part); });
  return parts;
}

}  // namespace

TEST(SharedText, HasTheSameLettersWhereverItIs) {
  const SharedText name = std::string("a name");
  const SharedText copy = name;
  EXPECT_EQ(copy.View().data(), name.View().data());
  EXPECT_EQ(copy, "a name");
}

TEST(SharedText, IsAPartThatKeepsTheWhole) {
  auto whole = std::make_shared<const std::string>("left chord");
  const SharedText chord(whole, std::string_view(*whole).substr(5));
  whole = nullptr;
  EXPECT_EQ(chord, "chord");
}

TEST(SharedText, IsComparedAndJoinedLikeOtherTexts) {
  const SharedText a = "A";
  const SharedText b = "B";
  EXPECT_EQ(a, SharedText("A"));
  EXPECT_NE(a, b);
  EXPECT_LT(a, b);
  EXPECT_LT(a, std::string("B"));
  EXPECT_EQ(a + b, "AB");
  EXPECT_EQ(a + " to " + b, "A to B");
  EXPECT_EQ("m" + a, "mA");
}

TEST(LongText, IsWhatWasPutTogether) {
  const std::string name(1000, 'n');
  LongText text;
  text += "1,2,\"";
  text.Share(name);
  text += "\"";
  text.Share(std::string("short"));
  text += std::string(100'000, 'x');
  EXPECT_EQ(text.Text(), "1,2,\"" + name + "\"short" + std::string(100'000, 'x'));
  EXPECT_EQ(text.Size(), text.Text().size());
}

TEST(LongText, SharesLongTextsAndCopiesShortOnes) {
  const SharedText name = std::string(1000, 'n');
  LongText text;
  text += "before ";
  text.Share("short");
  text.Share(name);
  const char* letters = nullptr;
  text.ForEachPart([&](std::string_view part) {
    if (part.size() == 1000) letters = part.data();
  });
  EXPECT_EQ(letters, name.View().data());
  EXPECT_EQ(PartsOf(text).front(), "before short");
}
