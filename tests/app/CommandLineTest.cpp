// What the words on the command line mean, and every way of getting them wrong.
#include "app/CommandLine.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using Mode = CommandLine::Mode;
using Words = std::vector<std::string>;

// The call that the words make; a wrong one fails the test.
CommandLine Call(const Words& words) {
  const auto parsed = ParseCommandLine(words);
  if (const auto* wrong = std::get_if<WrongArguments>(&parsed)) {
    ADD_FAILURE() << wrong->Why;
    return {};
  }
  return std::get<CommandLine>(parsed);
}

// Why the words are no call; a right one fails the test.
std::string WhyWrong(const Words& words) {
  const auto parsed = ParseCommandLine(words);
  const auto* wrong = std::get_if<WrongArguments>(&parsed);
  if (wrong == nullptr) ADD_FAILURE() << "the call is right";
  return wrong == nullptr ? "" : wrong->Why;
}

std::vector<bool> SectionsOf(const Words& words) {
  const ReportSections sections = Call(words).Sections;
  return {sections.Counting, sections.Joints, sections.Equations, sections.RREF, sections.Solutions};
}

TEST(CommandLineWindow, OpensWithoutAFile) {
  const CommandLine call = Call({});
  EXPECT_EQ(call.What, Mode::Window);
  EXPECT_THAT(call.Files, IsEmpty());
}

TEST(CommandLineWindow, OpensOnOneFile) {
  const CommandLine call = Call({"a.trs"});
  EXPECT_EQ(call.What, Mode::Window);
  EXPECT_THAT(call.Files, ElementsAre("a.trs"));
}

TEST(CommandLineWindow, CanNameEverythingFirst) {
  const CommandLine call = Call({"--autoname", "a.trs"});
  EXPECT_EQ(call.What, Mode::Window);
  EXPECT_TRUE(call.AutoName);
}

TEST(CommandLineWindow, OpensEachFileInAWindowOfItsOwn) {
  EXPECT_THAT(Call({"a.trs", "b.trs"}).Files, ElementsAre("a.trs", "b.trs")) << "a window each";
  EXPECT_EQ(WhyWrong({"a.trs", "-"}), "standard input is opened alone");
}

TEST(CommandLineWindow, TakesAddressesOfFilesAsFileManagersHandThemOver) {
  EXPECT_THAT(Call({"file:///home/ann/my%20truss.trs"}).Files, ElementsAre("/home/ann/my truss.trs"));
  EXPECT_THAT(Call({"--json", "file:///a.trs"}).Files, ElementsAre("file:///a.trs"))
      << "which names the argument";
}

TEST(CommandLineReport, HasAllSectionsWhenNoneIsNamed) {
  EXPECT_EQ(Call({"--report", "a.trs"}).What, Mode::Report);
  EXPECT_THAT(SectionsOf({"--report", "a.trs"}), ElementsAre(true, true, true, true, true));
}

TEST(CommandLineReport, HasTheNamedSectionOnly) {
  EXPECT_THAT(SectionsOf({"--report=counting", "a"}), ElementsAre(true, false, false, false, false));
  EXPECT_THAT(SectionsOf({"--report=joints", "a"}), ElementsAre(false, true, false, false, false));
  EXPECT_THAT(SectionsOf({"--report=equations", "a"}), ElementsAre(false, false, true, false, false));
  EXPECT_THAT(SectionsOf({"--report=rref", "a"}), ElementsAre(false, false, false, true, false));
  EXPECT_THAT(SectionsOf({"--report=solutions", "a"}), ElementsAre(false, false, false, false, true));
}

TEST(CommandLineReport, TakesSectionsInAnyOrderAndTwice) {
  EXPECT_THAT(SectionsOf({"--report=solutions,counting,solutions", "a"}),
              ElementsAre(true, false, false, false, true));
}

TEST(CommandLineReport, TakesFilesInTheirOrder) {
  EXPECT_THAT(Call({"--report", "b", "a", "b"}).Files, ElementsAre("b", "a", "b"));
}

TEST(CommandLineReport, RefusesUnknownAndEmptySections) {
  EXPECT_EQ(WhyWrong({"--report=forces", "a"}), "there is no report section \"forces\"");
  EXPECT_EQ(WhyWrong({"--report=Counting", "a"}), "there is no report section \"Counting\"");
  EXPECT_EQ(WhyWrong({"--report=", "a"}), "there is no report section \"\"");
  EXPECT_EQ(WhyWrong({"--report=rref,", "a"}), "there is no report section \"\"");
  EXPECT_EQ(WhyWrong({"--report=,rref", "a"}), "there is no report section \"\"");
}

TEST(CommandLineReport, NeedsAFile) { EXPECT_EQ(WhyWrong({"--report"}), "--report needs a file"); }

TEST(CommandLineJson, TakesFiles) {
  const CommandLine call = Call({"--json", "a", "b"});
  EXPECT_EQ(call.What, Mode::Json);
  EXPECT_FALSE(call.Json.Matrices);
  EXPECT_FALSE(call.AutoName);
  EXPECT_THAT(call.Files, ElementsAre("a", "b"));
}

TEST(CommandLineJson, HasMatricesWhenAsked) {
  EXPECT_TRUE(Call({"--json", "--matrices", "a"}).Json.Matrices);
  EXPECT_TRUE(Call({"--matrices", "a", "--json"}).Json.Matrices)
      << "options stand in any order, also after files";
}

TEST(CommandLineJson, ExplainsWhenAsked) {
  EXPECT_FALSE(Call({"--json", "a"}).Json.Explanation);
  EXPECT_TRUE(Call({"--json", "--explain", "a"}).Json.Explanation);
  EXPECT_EQ(WhyWrong({"--report", "--explain", "a"}), "--explain goes with --json");
}

TEST(CommandLineReport, TakesTheExplanationsInTheOrderNamed) {
  const CommandLine call = Call({"--report=byjoint,checks,solutions,steps,why,checks", "a"});
  EXPECT_TRUE(call.Sections.Solutions);
  EXPECT_FALSE(call.Sections.Counting);
  EXPECT_THAT(call.Explained, ElementsAre(ExplainedSection::ByJoint, ExplainedSection::Checks,
                                          ExplainedSection::Steps, ExplainedSection::Why));
  EXPECT_TRUE(Call({"--report", "a"}).Explained.empty()) << "they are printed only when they are asked for";
}

TEST(CommandLineJson, NeedsAFile) { EXPECT_EQ(WhyWrong({"--json"}), "--json needs a file"); }

TEST(CommandLineJson, AloneHasMatrices) {
  for (const char* other : {"--report", "--csv=rref", "--picture=o.png", "--document=o.rtf",
                            "--convert=o.trs", "--help", "--version"}) {
    EXPECT_EQ(WhyWrong({other, "--matrices", "a"}), "--matrices goes with --json") << other;
  }
  EXPECT_EQ(WhyWrong({"--matrices", "a"}), "--matrices goes with --json");
}

TEST(CommandLineCsv, NamesItsTable) {
  EXPECT_EQ(Call({"--csv=equations", "a"}).What, Mode::Csv);
  EXPECT_EQ(Call({"--csv=equations", "a"}).Table, CsvTable::Equations);
  EXPECT_EQ(Call({"--csv=rref", "a"}).Table, CsvTable::RREF);
  EXPECT_EQ(Call({"--csv=solutions", "a"}).Table, CsvTable::Solutions);
}

TEST(CommandLineCsv, RefusesAnyOtherTable) {
  EXPECT_EQ(WhyWrong({"--csv=counting", "a"}), "there is no table \"counting\"");
  EXPECT_EQ(WhyWrong({"--csv=rref,solutions", "a"}), "there is no table \"rref,solutions\"");
  EXPECT_EQ(WhyWrong({"--csv", "a"}), "--csv needs a value after \"=\"");
  EXPECT_EQ(WhyWrong({"--csv=", "a"}), "--csv needs a value after \"=\"");
}

TEST(CommandLineCsv, NeedsExactlyOneFile) {
  EXPECT_EQ(WhyWrong({"--csv=rref"}), "--csv needs one file");
  EXPECT_EQ(WhyWrong({"--csv=rref", "a", "b"}), "--csv needs one file");
}

TEST(CommandLinePicture, NamesItsOutput) {
  const CommandLine call = Call({"--picture=out.png", "a"});
  EXPECT_EQ(call.What, Mode::Picture);
  EXPECT_EQ(call.OutputPath, "out.png");
  EXPECT_FALSE(call.Picture.Named);
  EXPECT_EQ(call.Picture.Motion, std::nullopt);
  EXPECT_THAT(call.Files, ElementsAre("a"));
}

TEST(CommandLinePicture, HasItsFormatFromTheEnding) {
  EXPECT_EQ(Call({"--picture=a.png", "a"}).PictureFormat, PictureFileFormat::Png);
  EXPECT_EQ(Call({"--picture=a.svg", "a"}).PictureFormat, PictureFileFormat::Svg);
  EXPECT_EQ(Call({"--picture=a.pdf", "a"}).PictureFormat, PictureFileFormat::Pdf);
  EXPECT_EQ(Call({"--picture=A.SVG", "a"}).PictureFormat, PictureFileFormat::Svg);
  EXPECT_EQ(Call({"--picture=-", "a"}).PictureFormat, PictureFileFormat::Png) << "on standard output";
}

TEST(CommandLinePicture, RefusesAnyOtherEnding) {
  for (const char* path : {"a.jpg", "a", "png", "a.png.txt", "a.rtf"}) {
    EXPECT_EQ(WhyWrong({std::string("--picture=") + path, "a"}),
              std::string("a picture is written as .png, .svg or .pdf, not as \"") + path + '"');
  }
}

TEST(CommandLinePicture, HasNamesWhenAsked) {
  EXPECT_TRUE(Call({"--picture=a.png", "--named", "a"}).Picture.Named);
  EXPECT_TRUE(Call({"--named", "a", "--picture=a.png"}).Picture.Named);
}

TEST(CommandLinePicture, AloneHasNames) {
  for (const char* other : {"--report", "--json", "--csv=rref", "--document=o.rtf", "--convert=o.trs"}) {
    EXPECT_EQ(WhyWrong({other, "--named", "a"}), "--named goes with --picture") << other;
  }
  EXPECT_EQ(WhyWrong({"--named", "a"}), "--named goes with --picture");
}

TEST(CommandLinePicture, ShowsTheMotionOfANumber) {
  EXPECT_EQ(Call({"--picture=a.png", "--motion=1", "a"}).Picture.Motion, 1);
  EXPECT_EQ(Call({"--motion=12", "--named", "--picture=a.png", "a"}).Picture.Motion, 12);
}

TEST(CommandLinePicture, RefusesWhatIsNoNumberOfAMotion) {
  for (const std::string number :
       {"0", "-1", "+1", "1.5", "one", " 1", "1 ", "1,2", "99999999999999999999"}) {
    EXPECT_EQ(WhyWrong({"--picture=a.png", "--motion=" + number, "a"}),
              "--motion needs the number of a motion, 1 for the first, not \"" + number + '"');
  }
  EXPECT_EQ(WhyWrong({"--picture=a.png", "--motion=", "a"}), "--motion needs a value after \"=\"");
  EXPECT_EQ(WhyWrong({"--picture=a.png", "--motion", "a"}), "--motion needs a value after \"=\"");
}

TEST(CommandLinePicture, AloneHasMotions) {
  for (const char* other : {"--report", "--json", "--csv=rref", "--document=o.rtf", "--convert=o.trs"}) {
    EXPECT_EQ(WhyWrong({other, "--motion=1", "a"}), "--motion goes with --picture") << other;
  }
  EXPECT_EQ(WhyWrong({"--motion=1", "a"}), "--motion goes with --picture");
}

TEST(CommandLinePicture, CanHaveTheForces) {
  EXPECT_FALSE(Call({"--picture=a.png", "a"}).Picture.Forces);
  EXPECT_TRUE(Call({"--picture=a.png", "--forces", "a"}).Picture.Forces);
  EXPECT_TRUE(Call({"--forces", "--named", "--picture=a.png", "a"}).Picture.Forces);
  EXPECT_EQ(WhyWrong({"--json", "--forces", "a"}), "--forces goes with --picture");
  EXPECT_EQ(WhyWrong({"--forces", "a"}), "--forces goes with --picture");
  EXPECT_EQ(WhyWrong({"--picture=a.png", "--forces=1", "a"}), "there is no option --forces with a value");
  EXPECT_EQ(WhyWrong({"--picture=a.png", "--forces", "--motion=1", "a"}),
            "--forces does not go with --motion");
}

TEST(CommandLinePicture, NeedsAnOutputAndExactlyOneFile) {
  EXPECT_EQ(WhyWrong({"--picture", "a"}), "--picture needs a value after \"=\"");
  EXPECT_EQ(WhyWrong({"--picture=", "a"}), "--picture needs a value after \"=\"");
  EXPECT_EQ(WhyWrong({"--picture=a.png"}), "--picture needs one file");
  EXPECT_EQ(WhyWrong({"--picture=a.png", "a", "b"}), "--picture needs one file");
}

TEST(CommandLineDocument, NamesItsOutput) {
  const CommandLine call = Call({"--document=out.rtf", "a"});
  EXPECT_EQ(call.What, Mode::Document);
  EXPECT_EQ(call.OutputPath, "out.rtf");
  EXPECT_THAT(call.Files, ElementsAre("a"));
}

TEST(CommandLineDocument, HasItsFormatFromTheEnding) {
  EXPECT_EQ(Call({"--document=a.rtf", "a"}).DocumentFormat, DocumentFileFormat::Rtf);
  EXPECT_EQ(Call({"--document=a.pdf", "a"}).DocumentFormat, DocumentFileFormat::Pdf);
  EXPECT_EQ(Call({"--document=a.odt", "a"}).DocumentFormat, DocumentFileFormat::Odt);
  EXPECT_EQ(Call({"--document=a.html", "a"}).DocumentFormat, DocumentFileFormat::Html);
  EXPECT_EQ(Call({"--document=A.Odt", "a"}).DocumentFormat, DocumentFileFormat::Odt);
  EXPECT_EQ(Call({"--document=-", "a"}).DocumentFormat, DocumentFileFormat::Rtf) << "on standard output";
}

TEST(CommandLineDocument, RefusesAnyOtherEnding) {
  for (const char* path : {"a.doc", "a", "rtf", "a.htm", "a.png"}) {
    EXPECT_EQ(WhyWrong({std::string("--document=") + path, "a"}),
              std::string("a document is written as .rtf, .pdf, .odt or .html, not as \"") + path + '"');
  }
}

TEST(CommandLineDocument, NeedsAnOutputAndExactlyOneFile) {
  EXPECT_EQ(WhyWrong({"--document", "a"}), "--document needs a value after \"=\"");
  EXPECT_EQ(WhyWrong({"--document=a.rtf"}), "--document needs one file");
  EXPECT_EQ(WhyWrong({"--document=a.rtf", "a", "b"}), "--document needs one file");
}

TEST(CommandLineConvert, NamesItsOutput) {
  const CommandLine call = Call({"--convert=out.trs", "a"});
  EXPECT_EQ(call.What, Mode::Convert);
  EXPECT_EQ(call.OutputPath, "out.trs");
  EXPECT_THAT(call.Files, ElementsAre("a"));
}

TEST(CommandLineConvert, OutputMayHoldEqualsSignsAndBeStandardOutput) {
  EXPECT_EQ(Call({"--convert=a=b.trs", "a"}).OutputPath, "a=b.trs");
  EXPECT_EQ(Call({"--convert=-", "a"}).OutputPath, "-");
}

TEST(CommandLineDocument, HasTheSectionsThatAreAskedFor) {
  EXPECT_THAT(Call({"--document=a.rtf", "a"}).DocumentWith, IsEmpty());
  EXPECT_THAT(Call({"--document=a.rtf", "--with=why", "a"}).DocumentWith, ElementsAre(ReportExtra::Why));
  EXPECT_THAT(Call({"--with=why,why", "--document=-", "a"}).DocumentWith, ElementsAre(ReportExtra::Why));
  EXPECT_THAT(Call({"--document=-", "--with=why,forces", "a"}).DocumentWith,
              ElementsAre(ReportExtra::Why, ReportExtra::Forces));
  EXPECT_THAT(Call({"--document=-", "--with=checks", "a"}).DocumentWith, ElementsAre(ReportExtra::Checks));
}

TEST(CommandLineDocument, RefusesSectionsThatThereAreNot) {
  EXPECT_EQ(WhyWrong({"--document=a.rtf", "--with=nothing", "a"}),
            "there is no section \"nothing\" for a document");
  EXPECT_EQ(WhyWrong({"--document=a.rtf", "--with=why,", "a"}), "there is no section \"\" for a document");
  EXPECT_EQ(WhyWrong({"--document=a.rtf", "--with", "a"}), "--with needs a value after \"=\"");
  for (const char* other : {"--report", "--json", "--csv=rref", "--picture=o.png", "--convert=o.trs"}) {
    EXPECT_EQ(WhyWrong({other, "--with=why", "a"}), "--with goes with --document") << other;
  }
}

TEST(CommandLineConvert, NeedsAnOutputAndExactlyOneFile) {
  EXPECT_EQ(WhyWrong({"--convert", "a"}), "--convert needs a value after \"=\"");
  EXPECT_EQ(WhyWrong({"--convert=", "a"}), "--convert needs a value after \"=\"");
  EXPECT_EQ(WhyWrong({"--convert=o.trs"}), "--convert needs one file");
  EXPECT_EQ(WhyWrong({"--convert=o.trs", "a", "b"}), "--convert needs one file");
}

// A picture's name after the wrong option would get a truss.
TEST(CommandLineConvert, RefusesAnyOtherEnding) {
  EXPECT_EQ(WhyWrong({"--convert=o.rtf", "a"}), "a truss is written as .trs, not as \"o.rtf\"");
  EXPECT_EQ(WhyWrong({"--convert=trs", "a"}), "a truss is written as .trs, not as \"trs\"");
  EXPECT_EQ(Call({"--convert=O.TRS", "a"}).OutputPath, "O.TRS");
}

TEST(CommandLineAutoName, GoesWithEverything) {
  for (const char* mode :
       {"--report", "--json", "--csv=rref", "--picture=o.png", "--document=o.rtf", "--convert=o.trs"}) {
    EXPECT_TRUE(Call({"--autoname", mode, "a"}).AutoName) << mode;
    EXPECT_TRUE(Call({mode, "a", "--autoname"}).AutoName) << mode;
  }
}

TEST(CommandLineHelp, NeedsNoFile) {
  EXPECT_EQ(Call({"--help"}).What, Mode::Help);
  EXPECT_EQ(Call({"--version"}).What, Mode::Version);
  EXPECT_EQ(Call({"-h"}).What, Mode::Help);
  EXPECT_EQ(Call({"-v"}).What, Mode::Version);
}

TEST(CommandLineHelp, ShowsEveryOptionThatThereIs) {
  const std::string help = HelpText();
  for (const char* option : {"orvane [FILE...]",
                             "--report[=SECTION,...] FILE...",
                             "--json [--matrices] FILE...",
                             "--csv=equations|rref|solutions FILE",
                             "--picture=OUT [--named] FILE",
                             ".png, .svg or .pdf",
                             "--document=OUT FILE",
                             "--document=OUT --with=forces,why FILE",
                             "--document=OUT --with=checks FILE",
                             "--picture=OUT --forces FILE",
                             ".rtf, .pdf, .odt or .html",
                             "--convert=OUT.trs FILE",
                             "--exercise=OUT.pdf --variants=N --seed=S FILE",
                             "--exercise=OUT.xml",
                             "--mark=ANSWERS.csv FILE...",
                             "--mark --key=KEY.trs FILE...",
                             "--mirrored",
                             "--renamed",
                             "--autoname ...",
                             "--help | --version",
                             "Exit status: 0",
                             "counting, joints, equations, rref, solutions"}) {
    EXPECT_THAT(help, HasSubstr(option));
  }
  EXPECT_TRUE(help.ends_with('\n'));
}

TEST(CommandLineExercise, HasItsVariantsAndItsSeed) {
  const CommandLine call = Call({"--exercise=o.pdf", "--variants=30", "--seed=18446744073709551615", "a"});
  EXPECT_EQ(call.What, Mode::Exercise);
  EXPECT_EQ(call.OutputPath, "o.pdf");
  EXPECT_FALSE(call.Practice.IsQuestionBank);
  EXPECT_EQ(call.Practice.NumVariants, 30);
  EXPECT_EQ(call.Practice.Seed, UINT64_MAX);
  EXPECT_FALSE(call.Practice.Mirrors);
  EXPECT_TRUE(Call({"--exercise=o.xml", "--variants=1", "--seed=1", "--mirrored", "a"}).Practice.Mirrors);
  EXPECT_TRUE(Call({"--exercise=o.xml", "--variants=1", "--seed=1", "--renamed", "a"}).Practice.Renames);
  EXPECT_TRUE(Call({"--exercise=o.xml", "--variants=1", "--seed=1", "a"}).Practice.IsQuestionBank);
}

TEST(CommandLineExercise, IsRefusedWithoutWhatMakesItAgain) {
  EXPECT_EQ(WhyWrong({"--exercise=o.pdf", "--seed=1", "a"}), "--exercise needs --variants and --seed");
  EXPECT_EQ(WhyWrong({"--exercise=o.pdf", "--variants=1", "a"}), "--exercise needs --variants and --seed");
  EXPECT_EQ(WhyWrong({"--exercise=o.txt", "--variants=1", "--seed=1", "a"}),
            "an exercise is written as .pdf, or as .xml for Moodle, not as \"o.txt\"");
  EXPECT_EQ(WhyWrong({"--exercise=o.pdf", "--variants=1", "--seed=1"}), "--exercise needs one file");
  EXPECT_EQ(WhyWrong({"--exercise=o.pdf", "--variants=1", "--seed=1", "a", "b"}),
            "--exercise needs one file");
  for (const char* number : {"0", "-1", "x", "1x", "1001", "99999999999", ""})
    EXPECT_THAT(WhyWrong({"--exercise=o.pdf", std::string("--variants=") + number, "--seed=1", "a"}),
                HasSubstr("--variants needs"));
  EXPECT_THAT(WhyWrong({"--exercise=o.pdf", "--variants=1", "--seed=18446744073709551616", "a"}),
              HasSubstr("--seed needs a number from 1 to 18446744073709551615"));
}

TEST(CommandLineMark, TakesAnswersOrAKey) {
  EXPECT_EQ(Call({"--mark=a.csv", "a", "b"}).What, Mode::Mark);
  EXPECT_EQ(Call({"--mark=a.csv", "a", "b"}).Practice.AnswersPath, "a.csv");
  EXPECT_EQ(Call({"--mark=a.csv", "--variants=3", "--seed=1", "a"}).Practice.NumVariants, 3);
  EXPECT_EQ(Call({"--mark", "--key=k.trs", "a", "b"}).What, Mode::Compare);
  EXPECT_EQ(Call({"--key=k.trs", "--mark", "a"}).Practice.KeyPath, "k.trs");
  for (const Words& words :
       {Words{"--mark", "--report", "--key=k.trs", "a"}, Words{"--report", "--mark", "--key=k", "a"}})
    EXPECT_TRUE(Call(words).Practice.InWords);
  EXPECT_FALSE(Call({"--mark", "--key=k.trs", "a"}).Practice.InWords);
}

TEST(CommandLineMark, IsRefusedWhereItMeansNothing) {
  const std::string oneOfBoth = "--mark needs answers (--mark=ANSWERS.csv) or a key (--key=KEY.trs)";
  EXPECT_EQ(WhyWrong({"--mark", "a"}), oneOfBoth);
  EXPECT_EQ(WhyWrong({"--mark=a.csv", "--key=k.trs", "a"}), "--mark takes answers or a key, not both");
  EXPECT_EQ(WhyWrong({"--mark=", "a"}), "--mark needs a value after \"=\"");
  EXPECT_EQ(WhyWrong({"--mark=a.csv", "--mark=b.csv", "a"}), "--mark is there twice");
  EXPECT_EQ(WhyWrong({"--mark=a.csv"}), "--mark needs a file");
  EXPECT_EQ(WhyWrong({"--mark", "--key=k.trs"}), "--mark needs a file");
  EXPECT_EQ(WhyWrong({"--mark=a.csv", "--json", "a"}), "--mark does not go with --json");
  EXPECT_EQ(WhyWrong({"--mark=a.csv", "--report", "a"}), "--mark does not go with --report");
  EXPECT_EQ(WhyWrong({"--mark", "--key=k", "--report=why", "a"}), "--mark does not go with --report");
  EXPECT_EQ(WhyWrong({"--key=k.trs", "a"}), "--key goes with --mark");
  EXPECT_EQ(WhyWrong({"--mark=a.csv", "--variants=2", "a"}), "--variants and --seed go together");
  EXPECT_EQ(WhyWrong({"--mark=a.csv", "--variants=2", "--seed=1", "a", "b"}),
            "--variants are those of one file");
  EXPECT_EQ(WhyWrong({"--json", "--variants=2", "--seed=1", "a"}),
            "--variants goes with --exercise or --mark=ANSWERS.csv");
  EXPECT_EQ(WhyWrong({"--mark=a.csv", "--mirrored", "a"}), "--mirrored goes with --variants");
  EXPECT_EQ(WhyWrong({"--json", "--renamed", "a"}), "--renamed goes with --variants");
  EXPECT_EQ(WhyWrong({"--mirrored=1", "a"}), "there is no option --mirrored with a value");
  EXPECT_EQ(WhyWrong({"--mark=-", "-"}), "standard input can be read once only");
  EXPECT_EQ(WhyWrong({"--mark", "--key=-", "-"}), "standard input can be read once only");
}

TEST(CommandLineModes, DoNotGoTogether) {
  EXPECT_EQ(WhyWrong({"--report", "--json", "a"}), "--json does not go with --report");
  EXPECT_EQ(WhyWrong({"--json", "--csv=rref", "a"}), "--csv does not go with --json");
  EXPECT_EQ(WhyWrong({"--csv=rref", "--convert=o.trs", "a"}), "--convert does not go with --csv");
  EXPECT_EQ(WhyWrong({"--convert=o.trs", "--report=rref", "a"}), "--report does not go with --convert");
  EXPECT_EQ(WhyWrong({"--convert=o.trs", "--picture=o.png", "a"}), "--picture does not go with --convert");
  EXPECT_EQ(WhyWrong({"--picture=o.png", "--document=o.rtf", "a"}), "--document does not go with --picture");
  EXPECT_EQ(WhyWrong({"--help", "--version"}), "--version does not go with --help");
  EXPECT_EQ(WhyWrong({"--report", "--help"}), "--help does not go with --report");
}

TEST(CommandLineModes, AreNamedOnce) {
  EXPECT_EQ(WhyWrong({"--json", "--json", "a"}), "--json does not go with --json");
}

TEST(CommandLineOptions, UnknownOnesAreRefused) {
  EXPECT_EQ(WhyWrong({"--jason", "a"}), "there is no option --jason");
  EXPECT_EQ(WhyWrong({"-x"}), "there is no option -x");
  EXPECT_EQ(WhyWrong({"--JSON", "a"}), "there is no option --JSON");
  EXPECT_EQ(WhyWrong({"--out=x", "a"}), "there is no option --out with a value");
}

TEST(CommandLineOptions, SwitchesTakeNoValue) {
  for (const std::string name : {"--json", "--help", "--version", "--matrices", "--named", "--autoname"}) {
    EXPECT_EQ(WhyWrong({name + "=yes", "a"}), "there is no option " + name + " with a value");
    EXPECT_EQ(WhyWrong({name + "=", "a"}), "there is no option " + name + " with a value");
  }
}

TEST(CommandLineOptions, EndAtTwoDashes) {
  const CommandLine call = Call({"--json", "--", "--report", "-x", "--"});
  EXPECT_EQ(call.What, Mode::Json);
  EXPECT_THAT(call.Files, ElementsAre("--report", "-x", "--"));
}

TEST(CommandLineOptions, TwoDashesAloneOpenTheWindow) { EXPECT_EQ(Call({"--"}).What, Mode::Window); }

TEST(CommandLineFiles, ADashIsStandardInput) {
  EXPECT_THAT(Call({"--json", "a", "-", "b"}).Files, ElementsAre("a", "-", "b"));
  EXPECT_THAT(Call({"--report", "--", "-"}).Files, ElementsAre("-"));
}

TEST(CommandLineFiles, StandardInputIsReadOnce) {
  EXPECT_EQ(WhyWrong({"--json", "-", "a", "-"}), "standard input can be read once only");
}

TEST(CommandLineFiles, AnEmptyNameIsAFileLikeAnyOther) {
  EXPECT_THAT(Call({"--json", ""}).Files, ElementsAre(""));
}

TEST(CommandLineFiles, KeepTheirBytes) {
  EXPECT_THAT(Call({"--json",
                    "Br\xC3\xBC"
                    "cke 1.trs"})
                  .Files,
              ElementsAre("Br\xC3\xBC"
                          "cke 1.trs"));
}

TEST(CommandLineWrong, IsOneLineWithoutAFullStop) {
  for (const Words& words : {Words{"--jason"}, Words{"--json"}, Words{"a", "-"}, Words{"--csv=x", "a"}}) {
    const std::string why = WhyWrong(words);
    EXPECT_EQ(why.find('\n'), std::string::npos);
    EXPECT_FALSE(why.ends_with('.'));
  }
}

}  // namespace
