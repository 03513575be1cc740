// Files that cannot be read to their end: what stays, what is counted, and what the error says.
#include "document/TrussFile.h"
#include "support/FileLines.h"
#include "support/RandomTruss.h"
#include "support/TemporaryDirectory.h"

namespace {

using testing::EndsWith;
using testing::StartsWith;

const std::string CounterText = "the truss would need more labels or arrow lines than a 16-bit number counts";

struct ReadResult {
  Truss Document;
  std::string Error = "no error";
};

ReadResult ReadBroken(const std::string& text) {
  ReadResult result;
  const auto error = ReadTrussText(result.Document, CanvasBounds{}, text);
  if (error) result.Error = error->Text();
  return result;
}

ReadResult ReadWithErrors(const std::vector<std::string>& lines) {
  return ReadBroken(SettingsLines() + FileLines(lines));
}

std::string Repeated(int count, const std::string& lines) {
  std::string text;
  for (int i = 0; i < count; ++i) text += lines;
  return text;
}

}  // namespace

TEST(ReadError, TellsItsLineIfThereIsOne) {
  EXPECT_EQ((ReadError{3, "why"}.Text()), "line 3: why");
  EXPECT_EQ((ReadError{0, "why"}.Text()), "why");
}

TEST(ReadErrors, ATypeOutsideOneToEightEndsTheReadAndIsNamedWithItsLine) {
  for (const int type : {0, 9, -1, 32767}) {
    const ReadResult result =
        ReadWithErrors({"2", "0,0,5", "\"R\"", "1,1," + std::to_string(type), "\"x\",\"y\"", "0", "0", "0"});
    EXPECT_EQ(result.Error,
              "line 14: there is no support of type " + std::to_string(type) + "; types are 1 to 8");
    EXPECT_EQ(result.Document.NumSupports, 1);
    EXPECT_EQ(result.Document.NumLabels, 1);
    EXPECT_EQ(result.Document.NumArrowLines, 4);
  }
}

TEST(ReadErrors, ASupportStaysOnceItsTypeIsRead) {
  const ReadResult clamp = ReadWithErrors({"2", "0,0,5", "\"R\"", "1,2,1", "\"Ax\""});
  EXPECT_EQ(clamp.Error, "line 16: the file ends too early");
  ASSERT_EQ(clamp.Document.NumSupports, 2);
  EXPECT_TRUE(clamp.Document.Supports[2].Live);
  EXPECT_EQ(clamp.Document.Name(clamp.Document.Supports[2].NameLabel1), "Ax");
  EXPECT_EQ(clamp.Document.Name(clamp.Document.Supports[2].NameLabel2), "[ ]");

  const ReadResult unnamed = ReadWithErrors({"1", "1,2,1"});
  ASSERT_EQ(unnamed.Document.NumSupports, 1);
  EXPECT_EQ(unnamed.Document.Name(1), "[ ]");
  EXPECT_EQ(unnamed.Document.Name(2), "[ ]");

  EXPECT_EQ(ReadWithErrors({"1", "1,2"}).Document.NumSupports, 0);
  EXPECT_EQ(ReadWithErrors({"1", "1,2,x"}).Document.NumSupports, 0);
}

TEST(ReadErrors, AMemberStaysOnceBothNamesAreRead) {
  const ReadResult half = ReadWithErrors({"0", "2", "0,0,4,0,\"S\",\"S\"", "0,0,2,2,\"T\""});
  EXPECT_EQ(half.Error, "line 15: the file ends too early");
  EXPECT_EQ(half.Document.NumMembers, 1);
  EXPECT_EQ(half.Document.NumLabels, 2);
  EXPECT_EQ(half.Document.NumArrowLines, 8);

  const ReadResult whole = ReadWithErrors({"0", "2", "0,0,4,0,\"S\",\"S\"", "0,0,2,2,\"T\",\"T\""});
  EXPECT_EQ(whole.Document.NumMembers, 2);
}

TEST(ReadErrors, AForceStaysOnceItsFourNumbersAreRead) {
  EXPECT_EQ(ReadWithErrors({"0", "0", "2", "1,2,3,4", "1,2,3"}).Document.NumForces, 1);
  EXPECT_EQ(ReadWithErrors({"0", "0", "2", "1,2,3,4", "1,2,3,4"}).Document.NumForces, 2);
  const ReadResult noNumber = ReadWithErrors({"0", "0", "2", "1,2,3,4", "1,2,3,"});
  EXPECT_EQ(noNumber.Error, "line 15: a number should stand here, not \"\"");
  EXPECT_EQ(noNumber.Document.NumForces, 1);
}

TEST(ReadErrors, AJointStaysOnceItsNameIsRead) {
  const ReadResult result = ReadWithErrors({"0", "0", "0", "2", "1,2,\"1\"", "3,4"});
  EXPECT_EQ(result.Document.NumJoints, 1);
  EXPECT_EQ(result.Document.NumLabels, 1);
  EXPECT_EQ(ReadWithErrors({"0", "0", "0", "2", "1,2,\"1\"", "3,4,\"2\""}).Error, "no error");
}

TEST(ReadErrors, SettingsReadBeforeTheErrorStay) {
  const ReadResult result = ReadBroken(FileLines({"Orvane 5", "#TRUE#,#FALSE#,#TRUE#,yes"}));
  EXPECT_EQ(result.Error, "line 2: #TRUE# or #FALSE# should stand here, not \"yes\"");
  EXPECT_FALSE(result.Document.Settings.SnapGrid);
  EXPECT_TRUE(result.Document.Settings.RulersOn);

  const ReadResult short4 = ReadBroken(FileLines({"Orvane 5", "#TRUE#,#TRUE#,#TRUE#,#TRUE#", "-5"}));
  EXPECT_EQ(short4.Error, "line 4: the file ends too early");
  EXPECT_EQ(short4.Document.Settings.XMin, -5);
  EXPECT_EQ(short4.Document.Settings.XMax, 20);
  EXPECT_EQ(short4.Document.View.HatchCountX, 12.5F);
}

TEST(ReadErrors, AnEmptyFileIsTooShort) {
  EXPECT_EQ(ReadBroken("").Error, "line 1: the file ends too early");
  EXPECT_EQ(ReadBroken("Orvane 5").Error, "line 1: the file ends too early");
  EXPECT_EQ(ReadBroken("\r\n").Error, "line 2: the file ends too early");
}

TEST(ReadErrors, AMissingSectionIsAnError) {
  EXPECT_EQ(ReadBroken(SettingsLines()).Error, "line 11: the file ends too early");
  EXPECT_EQ(ReadWithErrors({"0", "0", "0"}).Error, "line 14: the file ends too early");
}

TEST(ReadErrors, ACountThatDoesNotMatchItsRecordsIsAnError) {
  EXPECT_THAT(ReadWithErrors({"1", "0", "0", "0"}).Error, StartsWith("line "));
  EXPECT_THAT(ReadWithErrors({"0", "0", "2", "1,2,3,4", "0"}).Error, StartsWith("line "));
}

TEST(ReadErrors, ANumberBeyondItsTypeIsAnError) {
  EXPECT_EQ(ReadWithErrors({"40000"}).Error, "line 11: the number \"40000\" does not fit into 16 bits");
  EXPECT_EQ(ReadWithErrors({"0", "0", "1", "1,2,1E39,0"}).Error,
            "line 14: a number should stand here, not \"1E39\"");
}

TEST(ReadErrors, AQuoteThatIsNeverClosedIsAnError) {
  const ReadResult result = ReadWithErrors({"1", "0,0,5", "\"R", "0", "0", "0"});
  EXPECT_EQ(result.Error, "line 13: a quoted text has no closing quote");
  EXPECT_EQ(result.Document.NumSupports, 1);
}

TEST(ReadErrors, AClaimedCountAllocatesNothing) {
  for (const std::vector<std::string>& lines :
       {std::vector<std::string>{"32767"}, {"0", "32767"}, {"0", "0", "32767"}, {"0", "0", "0", "32767"}}) {
    const ReadResult result = ReadWithErrors(lines);
    EXPECT_THAT(result.Error, EndsWith("the file ends too early"));
    EXPECT_LE(result.Document.Supports.Size(), 1);
    EXPECT_LE(result.Document.Members.Size(), 1);
    EXPECT_LE(result.Document.Forces.Size(), 1);
    EXPECT_LE(result.Document.Joints.Size(), 1);
    EXPECT_EQ(result.Document.Labels.Size(), 0);
  }
}

TEST(ReadErrors, ArrowLinesBeyond16BitsAreAnError) {
  const ReadResult members =
      ReadBroken(SettingsLines() + "0\r\n4096\r\n" + Repeated(4096, "0,0,1,1,\"S\",\"S\"\r\n"));
  EXPECT_EQ(members.Error, "line 4108: " + CounterText);
  EXPECT_EQ(members.Document.NumMembers, 4095);
  EXPECT_EQ(members.Document.NumArrowLines, 32760);

  const ReadResult rollers = ReadBroken(SettingsLines() + "8192\r\n" + Repeated(8192, "0,0,5,R\r\n"));
  EXPECT_EQ(rollers.Error, "line 8203: " + CounterText);
  EXPECT_EQ(rollers.Document.NumSupports, 8191);
}

TEST(ReadErrors, LabelsBeyond16BitsAreAnError) {
  const std::string begin = SettingsLines() + "1\r\n0,0,5\r\nR\r\n0\r\n0\r\n32767\r\n";
  const ReadResult result = ReadBroken(begin + Repeated(32767, "0,0,J\r\n"));
  EXPECT_EQ(result.Error, "line 32783: " + CounterText);
  EXPECT_EQ(result.Document.NumJoints, 32766);
  EXPECT_EQ(result.Document.NumLabels, 32767);
}

TEST(ReadErrors, EveryBeginningOfAFileLeavesACountedTruss) {
  constexpr std::uint32_t seed = 12;
  SCOPED_TRACE(seed);
  RandomTruss random(seed);
  for (int i = 0; i < 10; ++i) {
    Truss truss = random.Next();
    const std::string text = TrussText(truss);
    for (std::size_t length = 0; length < text.size(); ++length) {
      const std::string beginning = text.substr(0, length);
      ReadResult result = ReadBroken(beginning);
      const Truss& read = result.Document;
      ASSERT_EQ(NumLiveSupports(read), read.NumSupports);
      ASSERT_EQ(NumLiveMembers(read), read.NumMembers);
      ASSERT_EQ(NumActiveForces(read), read.NumForces);
      ASSERT_LE(read.NumLabels, read.Labels.Size());
      ASSERT_FALSE(TrussText(result.Document).empty());
    }
  }
}

TEST(ReadErrors, AMissingFileHasNoLine) {
  const TemporaryDirectory directory;
  Truss truss;
  const auto error = ReadTruss(truss, CanvasBounds{}, directory / "missing.trs");
  ASSERT_TRUE(error);
  EXPECT_EQ(error->Text(), "the file cannot be opened for reading");
}

TEST(ReadTrussFile, ReadsFromThePath) {
  const TemporaryDirectory directory;
  const std::string path =
      directory.Put("a.trs", SettingsLines() + FileLines({"0", "0", "1", "1,2,3,4", "0"}));
  Truss truss;
  EXPECT_EQ(ReadTruss(truss, CanvasBounds{}, path), std::nullopt);
  EXPECT_EQ(truss.NumForces, 1);
}
