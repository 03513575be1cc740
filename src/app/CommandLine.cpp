#include "app/CommandLine.h"

#include <algorithm>
#include <charconv>
#include <string_view>

#include "app/PracticeOptions.h"
#include "document/FilePaths.h"

namespace {

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
        Take(SplitOption(argument));
      }
    }
    ChooseMarking();
    practice_.CheckFor(result_.What);
    CheckFiles();
    if (result_.What == Mode::Window)
      std::ranges::transform(result_.Files, result_.Files.begin(), PathOfAddress);
    if (result_.Json.Matrices && result_.What != Mode::Json) FailWith("--matrices goes with --json");
    if (result_.Json.Explanation && result_.What != Mode::Json) FailWith("--explain goes with --json");
    if (result_.Picture.Named && result_.What != Mode::Picture) FailWith("--named goes with --picture");
    if (result_.Picture.Motion && result_.What != Mode::Picture) FailWith("--motion goes with --picture");
    if (result_.Picture.Forces && result_.What != Mode::Picture) FailWith("--forces goes with --picture");
    if (result_.Picture.Forces && result_.Picture.Motion) FailWith("--forces does not go with --motion");
    if (!result_.DocumentWith.empty() && result_.What != Mode::Document)
      FailWith("--with goes with --document");
    return result_;
  }

 private:
  using Mode = CommandLine::Mode;

  void Take(const CommandLineOption& option) {
    const std::string name(option.Name);
    if (name == "--report") {
      SetMode(Mode::Report, name);
      namesSections_ = option.Value.has_value();
      TakeSections(option.Value.value_or("counting,joints,equations,rref,solutions"));
    } else if (name == "--csv") {
      SetMode(Mode::Csv, name);
      TakeTable(NeededValue(option));
    } else if (name == "--picture") {
      SetMode(Mode::Picture, name);
      TakePictureFile(NeededValue(option));
    } else if (name == "--motion") {
      result_.Picture.Motion = MotionNumber(NeededValue(option));
    } else if (name == "--document") {
      SetMode(Mode::Document, name);
      TakeDocumentFile(NeededValue(option));
    } else if (name == "--with") {
      TakeExtras(NeededValue(option));
    } else if (name == "--convert") {
      SetMode(Mode::Convert, name);
      TakeTrussFile(NeededValue(option));
    } else if (name == "--exercise") {
      SetMode(Mode::Exercise, name);
      result_.OutputPath = practice_.TakeExerciseFile(option);
    } else if (!practice_.Take(option)) {
      if (option.Value) FailWith("there is no option " + name + " with a value");
      TakeSwitch(name);
    }
  }

  // --report says how drawings are compared: in words.
  void ChooseMarking() {
    if (!practice_.IsMarking()) return;
    practice_.CheckMarking();
    PracticeRequest& practice = result_.Practice;
    if (!practice.KeyPath.empty() && modeOption_ == "--report" && !namesSections_) {
      practice.InWords = true;
    } else if (!modeOption_.empty()) {
      FailWith("--mark does not go with " + modeOption_);
    }
    result_.What = practice.KeyPath.empty() ? Mode::Mark : Mode::Compare;
    modeOption_ = "--mark";
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
      FailWith("there is no option " + name);
    }
  }

  void SetMode(Mode mode, const std::string& name) {
    if (!modeOption_.empty()) FailWith(name + " does not go with " + modeOption_);
    modeOption_ = name;
    result_.What = mode;
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
      if (!extra) FailWith("there is no section \"" + std::string(word) + "\" for a document");
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
      FailWith("there is no report section \"" + std::string(section) + '"');
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
      FailWith("there is no table \"" + table + '"');
    }
  }

  // Standard output has no ending that could tell the format.
  void TakePictureFile(const std::string& path) {
    const auto format = path == "-" ? PictureFileFormat::Png : PictureFormatOf(path);
    if (!format) FailWith("a picture is written as .png, .svg or .pdf, not as \"" + path + '"');
    result_.PictureFormat = *format;
    result_.OutputPath = path;
  }

  static int MotionNumber(const std::string& text) {
    int number = 0;
    const char* end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || rest != end || number < 1)
      FailWith("--motion needs the number of a motion, 1 for the first, not \"" + text + '"');
    return number;
  }

  void TakeDocumentFile(const std::string& path) {
    const auto format = path == "-" ? DocumentFileFormat::Rtf : DocumentFormatOf(path);
    if (!format) FailWith("a document is written as .rtf, .pdf, .odt or .html, not as \"" + path + '"');
    result_.DocumentFormat = *format;
    result_.OutputPath = path;
  }

  void TakeTrussFile(const std::string& path) {
    if (path != "-" && !IsTrussFileName(path)) FailWith("a truss is written as .trs, not as \"" + path + '"');
    result_.OutputPath = path;
  }

  void CheckFiles() const {
    const std::size_t count = result_.Files.size();
    switch (result_.What) {
      case Mode::Window:
        if (count > 1 && std::ranges::count(result_.Files, "-") > 0)
          FailWith("standard input is opened alone");
        break;
      case Mode::Report:
      case Mode::Json:
      case Mode::Compare:
        if (count == 0) FailWith(modeOption_ + " needs a file");
        break;
      case Mode::Csv:
      case Mode::Picture:
      case Mode::Document:
      case Mode::Convert:
      case Mode::Exercise:
        if (count != 1) FailWith(modeOption_ + " needs one file");
        break;
      case Mode::Mark:
        if (count == 0) FailWith("--mark needs a file");
        if (count > 1 && result_.Practice.NumVariants) FailWith("--variants are those of one file");
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
    if (numAsked > 1) FailWith("standard input can be read once only");
  }

  CommandLine result_;
  std::string modeOption_;
  bool namesSections_ = false;  // of --report
  PracticeOptions practice_{result_.Practice};
};

}  // namespace

std::variant<CommandLine, WrongArguments> ParseCommandLine(const std::vector<std::string>& arguments) {
  try {
    return Parser().Parse(arguments);
  } catch (const WrongArguments& wrong) {
    return wrong;
  }
}
