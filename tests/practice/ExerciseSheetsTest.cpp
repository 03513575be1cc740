// The sheets of an exercise.
#include "practice/ExerciseSheets.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "PracticeFixture.h"
#include "canvas/Graph.h"
#include "practice/QuestionBank.h"
#include "support/FakeClipboard.h"
#include "support/FakeClock.h"
#include "support/FakeMessageBox.h"
#include "support/RecordingRichText.h"
#include "support/RecordingSurface.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

ExerciseSet SetOf(Truss truss, int numVariants) {
  truss.View = DeriveView(truss.Settings, CanvasBounds{});
  const VariantWishes wishes{.NumVariants = numVariants, .Seed = 42};
  return {"triangle", wishes, MakeVariants(truss, wishes).All};
}

std::string BankOf(const Truss& truss, const std::string& name = "triangle") {
  ExerciseSet set = SetOf(truss, 2);
  set.Name = name;
  return QuestionBank(
      set, [](const Variant& variant) { return std::string("png") + std::to_string(variant.Number); });
}

class ExerciseSheetsTest : public testing::Test {
 protected:
  bool Append(const ExerciseSet& set) {
    return AppendExercise(set, NumberFormat(),
                          {.Document = Document,
                           .Clipboard = {clipboard_, clock_, messages_},
                           .Measure = RecordingSurface::Measure,
                           .TableRoom = 480,
                           .Progress = Progress});
  }

 private:
  FakeClipboard clipboard_;
  FakeClock clock_;
  FakeMessageBox messages_;

 protected:
  RecordingRichText Document{clipboard_};
  std::function<bool(double)> Progress;
};

TEST_F(ExerciseSheetsTest, EachVariantHasItsPageAndBehindThemAllItsSolution) {
  ASSERT_TRUE(Append(SetOf(RoundTriangle(), 3)));
  EXPECT_THAT(Document.LinesThatAre(LineRole::PageTitle),
              ElementsAre("Variant 1 of 3", "Variant 2 of 3", "Variant 3 of 3", "Variant 1 of 3: solution",
                          "Variant 2 of 3: solution", "Variant 3 of 3: solution"));
  EXPECT_EQ(Document.Descriptions.size(), 6U) << "a picture on each";
}

TEST_F(ExerciseSheetsTest, EachPageSaysWithWhatItCanBeMadeAgain) {
  ASSERT_TRUE(Append(SetOf(RoundTriangle(), 3)));
  const std::string text = Document.Text();
  const std::string label = "Triangle, seed 42.";
  int count = 0;
  for (std::size_t at = text.find(label); at != std::string::npos; at = text.find(label, at + 1)) ++count;
  EXPECT_EQ(count, 6);
}

TEST_F(ExerciseSheetsTest, TheSheetSaysWhereTheJointsAre) {
  ASSERT_TRUE(Append(SetOf(RoundTriangle(), 1)));
  EXPECT_THAT(Document.Text(), HasSubstr("Joints (x, y):  A at (0, 0),  B at (6, 0),  C at (3, 4)."));
  EXPECT_THAT(BankOf(RoundTriangle()), HasSubstr("Joints (x, y):  A at (0, 0),"));
}

TEST_F(ExerciseSheetsTest, TheSheetHasRoomForEachForceAndNoValue) {
  const ExerciseSet set = SetOf(RoundTriangle(), 1);
  ASSERT_TRUE(Append(set));
  const std::string text = Document.Text();
  const std::string sheet = text.substr(0, text.find("solution"));
  for (const char* name : {"Ax ", "Ay ", "B  ", "AB ", "AC ", "BC "})
    EXPECT_THAT(sheet, HasSubstr(std::string("\n") + name)) << name;
  const auto& values = set.All[0].Analysis.Reading.Values;
  const std::string value = FormatSigFigs(values[5].value(), {});
  EXPECT_THAT(sheet, Not(HasSubstr(value)));
  EXPECT_THAT(text.substr(sheet.size()), HasSubstr(value));
}

TEST_F(ExerciseSheetsTest, TheSolutionHasTheWorking) {
  ASSERT_TRUE(Append(SetOf(RoundTriangle(), 1)));
  for (const char* part :
       {"Joint by joint:", "1.  Reactions", "Moments about joint A", "Every force is found."})
    EXPECT_THAT(Document.Text(), HasSubstr(part));
}

TEST_F(ExerciseSheetsTest, AreEndedByTheUser) {
  double done = 0;
  Progress = [&done](double part) {
    EXPECT_GT(part, done);
    done = part;
    return part < 0.5;
  };
  EXPECT_FALSE(Append(SetOf(RoundTriangle(), 3)));
  EXPECT_TRUE(Document.LinesThatAre(LineRole::PageTitle).size() == 3);
  Progress = [&done](double part) {
    done = part;
    return true;
  };
  EXPECT_TRUE(Append(SetOf(RoundTriangle(), 3)));
  EXPECT_EQ(done, 1);
}

TEST(QuestionBank, HasAQuestionForEachVariantWithItsPicture) {
  const std::string bank = BankOf(RoundTriangle());
  EXPECT_THAT(bank, HasSubstr("<category><text>$course$/triangle, seed 42</text></category>"));
  for (const char* part :
       {"<question type=\"cloze\">", "<name><text>triangle, seed 42, variant 2</text></name>",
        "@@PLUGINFILE@@/truss2.png",
        "<file name=\"truss2.png\" path=\"/\" encoding=\"base64\">cG5nMg==</file>"})
    EXPECT_THAT(bank, HasSubstr(part));
}

TEST(QuestionBank, TakesTheValueWithinOnePercentAndSaysWhatElseIsWrong) {
  Truss truss = RoundTriangle();
  truss.View = DeriveView(truss.Settings, CanvasBounds{});
  const TrussAnalysis analysis = SolveTruss(truss);
  const ExerciseSet set{"", {}, {{1, truss, analysis}}};
  const std::string bank = QuestionBank(set, [](const Variant&) { return std::string("x"); });
  EXPECT_THAT(
      bank,
      HasSubstr("&lt;td&gt;AB&lt;/td&gt;&lt;td&gt;{1:NUMERICAL:%100%-375:3.75#Right.~%50%-375:18.75#Close"));
  EXPECT_THAT(bank, HasSubstr("~%0%375:3.75#The size is right, the sense is not: compression is positive."));
  EXPECT_THAT(bank, HasSubstr("~%0%-3750:37.5#Right but for a power of ten."));
  EXPECT_THAT(
      bank,
      HasSubstr("~%0%-500:5#The size is right, the sense is not: the arrow shows where it is positive."))
      << "a reaction is in neither compression nor tension";
  EXPECT_THAT(bank, HasSubstr("&lt;td&gt;Ax&lt;/td&gt;&lt;td&gt;{1:NUMERICAL:%100%0:0.625#Right."));
}

TEST(QuestionBank, KeepsNamesFromBeingReadAsItsOwnSigns) {
  Truss truss = RoundTriangle();
  truss.Labels[truss.Members[1].NameLabel1].Caption = "{1:SHORTANSWER:=x}<b>&\x01";
  const std::string bank = BankOf(truss, "a/b<c>");
  EXPECT_THAT(bank, HasSubstr("&lt;td&gt;&amp;#123;1:SHORTANSWER:=x}&amp;lt;b&amp;gt;&amp;amp;&lt;/td&gt;"));
  EXPECT_THAT(bank, HasSubstr("$course$/a//b&lt;c&gt;, seed 42"));
  EXPECT_EQ(bank.find('\x01'), std::string::npos);
}

}  // namespace
