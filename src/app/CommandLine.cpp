// See the header.
#include "app/CommandLine.h"

#include <algorithm>
#include <string_view>

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
    CheckFiles();
    if (result_.Matrices && result_.What != CommandLine::Mode::Json) Fail("--matrices goes with --json");
    return result_;
  }

 private:
  using Mode = CommandLine::Mode;

  [[noreturn]] static void Fail(const std::string& why) { throw WrongArguments{why}; }

  void Take(const Option& option) {
    const std::string name(option.Name);
    if (name == "--report") {
      SetMode(Mode::Report, name);
      TakeSections(option.Value.value_or("counting,joints,equations,rref,solutions"));
    } else if (name == "--csv") {
      SetMode(Mode::Csv, name);
      TakeTable(Needed(option));
    } else if (name == "--convert") {
      SetMode(Mode::Convert, name);
      result_.OutputPath = Needed(option);
    } else {
      if (option.Value) Fail("there is no option " + name + " with a value");
      TakeSwitch(name);
    }
  }

  void TakeSwitch(const std::string& name) {
    if (name == "--json") {
      SetMode(Mode::Json, name);
    } else if (name == "--help") {
      SetMode(Mode::Help, name);
    } else if (name == "--version") {
      SetMode(Mode::Version, name);
    } else if (name == "--matrices") {
      result_.Matrices = true;
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

  void TakeSections(std::string_view list) {
    for (std::size_t first = 0; first <= list.size();) {
      const std::size_t comma = std::min(list.find(',', first), list.size());
      TakeSection(list.substr(first, comma - first));
      first = comma + 1;
    }
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
    } else {
      Fail("there is no report section \"" + std::string(section) + '"');
    }
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

  void CheckFiles() const {
    const std::size_t count = result_.Files.size();
    switch (result_.What) {
      case Mode::Window:
        if (count > 1) Fail("the window opens one file");
        break;
      case Mode::Report:
      case Mode::Json:
        if (count == 0) Fail(modeOption_ + " needs a file");
        break;
      case Mode::Csv:
      case Mode::Convert:
        if (count != 1) Fail(modeOption_ + " needs one file");
        break;
      case Mode::Help:
      case Mode::Version:
        break;
    }
    if (std::ranges::count(result_.Files, "-") > 1) Fail("standard input can be read once only");
  }

  CommandLine result_;
  std::string modeOption_;
};

}  // namespace

std::variant<CommandLine, WrongArguments> ParseCommandLine(const std::vector<std::string>& arguments) {
  try {
    return Parser().Parse(arguments);
  } catch (const WrongArguments& wrong) {
    return wrong;
  }
}

const char* HelpText() {
  return R"(Orvane teaches and checks the statics of plane, pin-jointed trusses.

orvane [FILE]                               open the window, on FILE when given
orvane --report[=SECTION,...] FILE...       print reports: counting, joints, equations, rref, solutions
                                            (all when none is named)
orvane --json [--matrices] FILE...          one JSON object per file and line
orvane --csv=equations|rref|solutions FILE  that table as CSV
orvane --convert=OUT.trs FILE               write FILE again in the current layout
orvane --autoname ...                       with any of the above: name the forces and joints first
orvane --help | --version

FILE may be "-" for standard input, OUT "-" for standard output.
Exit status: 0 all done; 1 a file could not be read whole or an output not written; 2 wrong arguments.
)";
}
