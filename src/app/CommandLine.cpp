#include "app/CommandLine.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <string_view>

#include "document/FilePaths.h"
#include "practice/Variants.h"

namespace {

// An option "--name" or "--name=value".
struct Option {
  std::string_view Name;
  std::optional<std::string_view> Value;
};

Option Split(std::string_view argument) {
  const std::size_t equals = argument.find('=');
  if (equals == std::string_view::npos) return Option{argument, std::nullopt};
  return Option{argument.substr(0, equals), argument.substr(equals + 1)};
}

// Collects the options one by one; throws WrongArguments at the first that is wrong.
class Parser {
 public:
  CommandLine Parse(const std::vector<std::string>& arguments) {
    bool optionsEnded = false;
    for (const std::string& argument : arguments) {
      if (optionsEnded || argument == "-" || !argument.starts_with('-')) {
        result_.Files.push_back(argument);
      } else if (argument == "--") {
        optionsEnded = true;
      } else {
        Take(Split(argument));
      }
    }
    ChooseMarking();
    CheckPractice();
    CheckFiles();
    if (result_.What == Mode::Window)
      std::ranges::transform(result_.Files, result_.Files.begin(), PathOfAddress);
    if (result_.Json.Matrices && result_.What != Mode::Json) Fail("--matrices goes with --json");
    if (result_.Json.Explanation && result_.What != Mode::Json) Fail("--explain goes with --json");
    if (result_.Picture.Named && result_.What != Mode::Picture) Fail("--named goes with --picture");
    if (result_.Picture.Motion && result_.What != Mode::Picture) Fail("--motion goes with --picture");
    if (result_.Picture.Forces && result_.What != Mode::Picture) Fail("--forces goes with --picture");
    if (result_.Picture.Forces && result_.Picture.Motion) Fail("--forces does not go with --motion");
    if (!result_.DocumentWith.empty() && result_.What != Mode::Document) Fail("--with goes with --document");
    return result_;
  }

 private:
  using Mode = CommandLine::Mode;

  [[noreturn]] static void Fail(const std::string& why) { throw WrongArguments{why}; }

  void Take(const Option& option) {
    const std::string name(option.Name);
    if (name == "--report") {
      SetMode(Mode::Report, name);
      namesSections_ = option.Value.has_value();
      TakeSections(option.Value.value_or("counting,joints,equations,rref,solutions"));
    } else if (name == "--csv") {
      SetMode(Mode::Csv, name);
      TakeTable(Needed(option));
    } else if (name == "--picture") {
      SetMode(Mode::Picture, name);
      TakePictureFile(Needed(option));
    } else if (name == "--motion") {
      result_.Picture.Motion = MotionNumber(Needed(option));
    } else if (name == "--document") {
      SetMode(Mode::Document, name);
      TakeDocumentFile(Needed(option));
    } else if (name == "--with") {
      TakeExtras(Needed(option));
    } else if (name == "--convert") {
      SetMode(Mode::Convert, name);
      TakeTrussFile(Needed(option));
    } else if (!TakePractice(option)) {
      if (option.Value) Fail("there is no option " + name + " with a value");
      TakeSwitch(name);
    }
  }

  // What lecturers set and mark. Returns whether it is that.
  bool TakePractice(const Option& option) {
    const std::string name(option.Name);
    PracticeRequest& practice = result_.Practice;
    if (name == "--exercise") {
      SetMode(Mode::Exercise, name);
      TakeExerciseFile(Needed(option));
    } else if (name == "--variants") {
      practice.NumVariants = NumberUpTo(MostVariants, option);
    } else if (name == "--seed") {
      practice.Seed = NumberUpTo(UINT64_MAX, option);
    } else if (name == "--mark") {
      if (isMarking_) Fail("--mark is there twice");
      isMarking_ = true;
      if (option.Value) practice.AnswersPath = Needed(option);
    } else if (name == "--key") {
      practice.KeyPath = Needed(option);
    } else if ((name == "--mirrored" || name == "--renamed") && !option.Value) {
      (name == "--mirrored" ? practice.Mirrors : practice.Renames) = true;
    } else {
      return false;
    }
    return true;
  }

  template <class Number>
  static Number NumberUpTo(Number most, const Option& option) {
    const std::string text = Needed(option);
    Number number = 0;
    const char* end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || rest != end || number < 1 || number > most)
      Fail(std::string(option.Name) + " needs a number from 1 to " + std::to_string(most) + ", not \"" +
           text + '"');
    return number;
  }

  void TakeExerciseFile(const std::string& path) {
    const bool isBank = path.ends_with(".xml");
    if (!isBank && !path.ends_with(".pdf"))
      Fail("an exercise is written as .pdf, or as .xml for Moodle, not as \"" + path + '"');
    result_.Practice.IsQuestionBank = isBank;
    result_.OutputPath = path;
  }

  // --report says how drawings are compared: in words.
  void ChooseMarking() {
    if (!isMarking_) return;
    PracticeRequest& practice = result_.Practice;
    const bool hasKey = !practice.KeyPath.empty();
    const bool hasAnswers = !practice.AnswersPath.empty();
    if (hasKey == hasAnswers) Fail("--mark needs answers (--mark=ANSWERS.csv) or a key (--key=KEY.trs)");
    if (hasKey && modeOption_ == "--report" && !namesSections_) {
      practice.InWords = true;
    } else if (!modeOption_.empty()) {
      Fail("--mark does not go with " + modeOption_);
    }
    result_.What = hasKey ? Mode::Compare : Mode::Mark;
    modeOption_ = "--mark";
  }

  void CheckPractice() const {
    const PracticeRequest& practice = result_.Practice;
    const bool isExercise = result_.What == Mode::Exercise;
    const bool hasVariants = practice.NumVariants.has_value();
    if (!practice.KeyPath.empty() && result_.What != Mode::Compare) Fail("--key goes with --mark");
    if (isExercise && (!hasVariants || !practice.Seed)) Fail("--exercise needs --variants and --seed");
    if (hasVariants != practice.Seed.has_value()) Fail("--variants and --seed go together");
    if (hasVariants && !isExercise && result_.What != Mode::Mark)
      Fail("--variants goes with --exercise or --mark=ANSWERS.csv");
    if ((practice.Mirrors || practice.Renames) && !hasVariants)
      Fail(std::string(practice.Mirrors ? "--mirrored" : "--renamed") + " goes with --variants");
  }

  void TakeSwitch(const std::string& name) {
    if (name == "--json") {
      SetMode(Mode::Json, name);
    } else if (name == "--help" || name == "-h") {
      SetMode(Mode::Help, name);
    } else if (name == "--version" || name == "-v") {
      SetMode(Mode::Version, name);
    } else if (name == "--matrices") {
      result_.Json.Matrices = true;
    } else if (name == "--explain") {
      result_.Json.Explanation = true;
    } else if (name == "--named") {
      result_.Picture.Named = true;
    } else if (name == "--forces") {
      result_.Picture.Forces = true;
    } else if (name == "--autoname") {
      result_.AutoName = true;
    } else {
      Fail("there is no option " + name);
    }
  }

  void SetMode(Mode mode, const std::string& name) {
    if (!modeOption_.empty()) Fail(name + " does not go with " + modeOption_);
    modeOption_ = name;
    result_.What = mode;
  }

  static std::string Needed(const Option& option) {
    if (!option.Value || option.Value->empty()) Fail(std::string(option.Name) + " needs a value after \"=\"");
    return std::string(*option.Value);
  }

  template <class Take>
  static void ForEachOf(std::string_view list, Take take) {
    for (std::size_t first = 0; first <= list.size();) {
      const std::size_t comma = std::min(list.find(',', first), list.size());
      take(list.substr(first, comma - first));
      first = comma + 1;
    }
  }

  void TakeSections(std::string_view list) {
    ForEachOf(list, [this](std::string_view section) { TakeSection(section); });
  }

  // A section named twice is written once.
  void TakeExtras(std::string_view list) {
    ForEachOf(list, [this](std::string_view word) {
      const std::optional<ReportExtra> extra = ReportExtraNamed(word);
      if (!extra) Fail("there is no section \"" + std::string(word) + "\" for a document");
      if (std::ranges::count(result_.DocumentWith, *extra) == 0) result_.DocumentWith.push_back(*extra);
    });
  }

  void TakeSection(std::string_view section) {
    ReportSections& sections = result_.Sections;
    if (section == "counting") {
      sections.Counting = true;
    } else if (section == "joints") {
      sections.Joints = true;
    } else if (section == "equations") {
      sections.Equations = true;
    } else if (section == "rref") {
      sections.RREF = true;
    } else if (section == "solutions") {
      sections.Solutions = true;
    } else if (section == "why") {
      TakeExplained(ExplainedSection::Why);
    } else if (section == "checks") {
      TakeExplained(ExplainedSection::Checks);
    } else if (section == "steps") {
      TakeExplained(ExplainedSection::Steps);
    } else if (section == "byjoint") {
      TakeExplained(ExplainedSection::ByJoint);
    } else {
      Fail("there is no report section \"" + std::string(section) + '"');
    }
  }

  // A section named twice is printed once.
  void TakeExplained(ExplainedSection section) {
    if (std::ranges::count(result_.Explained, section) == 0) result_.Explained.push_back(section);
  }

  void TakeTable(const std::string& table) {
    if (table == "equations") {
      result_.Table = CsvTable::Equations;
    } else if (table == "rref") {
      result_.Table = CsvTable::RREF;
    } else if (table == "solutions") {
      result_.Table = CsvTable::Solutions;
    } else {
      Fail("there is no table \"" + table + '"');
    }
  }

  // Standard output has no ending that could tell the format.
  void TakePictureFile(const std::string& path) {
    const auto format = path == "-" ? PictureFileFormat::Png : PictureFormatOf(path);
    if (!format) Fail("a picture is written as .png, .svg or .pdf, not as \"" + path + '"');
    result_.PictureFormat = *format;
    result_.OutputPath = path;
  }

  static int MotionNumber(const std::string& text) {
    int number = 0;
    const char* end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || rest != end || number < 1)
      Fail("--motion needs the number of a motion, 1 for the first, not \"" + text + '"');
    return number;
  }

  void TakeDocumentFile(const std::string& path) {
    const auto format = path == "-" ? DocumentFileFormat::Rtf : DocumentFormatOf(path);
    if (!format) Fail("a document is written as .rtf, .pdf, .odt or .html, not as \"" + path + '"');
    result_.DocumentFormat = *format;
    result_.OutputPath = path;
  }

  void TakeTrussFile(const std::string& path) {
    if (path != "-" && !IsTrussFileName(path)) Fail("a truss is written as .trs, not as \"" + path + '"');
    result_.OutputPath = path;
  }

  void CheckFiles() const {
    const std::size_t count = result_.Files.size();
    switch (result_.What) {
      case Mode::Window:
        if (count > 1 && std::ranges::count(result_.Files, "-") > 0) Fail("standard input is opened alone");
        break;
      case Mode::Report:
      case Mode::Json:
      case Mode::Compare:
        if (count == 0) Fail(modeOption_ + " needs a file");
        break;
      case Mode::Csv:
      case Mode::Picture:
      case Mode::Document:
      case Mode::Convert:
      case Mode::Exercise:
        if (count != 1) Fail(modeOption_ + " needs one file");
        break;
      case Mode::Mark:
        if (count == 0) Fail("--mark needs a file");
        if (count > 1 && result_.Practice.NumVariants) Fail("--variants are those of one file");
        break;
      case Mode::Help:
      case Mode::Version:
        break;
    }
    CheckStandardInput();
  }

  void CheckStandardInput() const {
    const std::ptrdiff_t numAsked = std::ranges::count(result_.Files, "-") +
                                    (result_.Practice.AnswersPath == "-" ? 1 : 0) +
                                    (result_.Practice.KeyPath == "-" ? 1 : 0);
    if (numAsked > 1) Fail("standard input can be read once only");
  }

  CommandLine result_;
  std::string modeOption_;
  bool namesSections_ = false;  // of --report
  bool isMarking_ = false;
};

}  // namespace

std::variant<CommandLine, WrongArguments> ParseCommandLine(const std::vector<std::string>& arguments) {
  try {
    return Parser().Parse(arguments);
  } catch (const WrongArguments& wrong) {
    return wrong;
  }
}
