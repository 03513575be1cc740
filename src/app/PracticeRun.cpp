#include "app/PracticeRun.h"

#include <new>
#include <optional>
#include <utility>
#include <vector>

#include "app/RunOutput.h"
#include "explanation/TrussGraph.h"
#include "platform/FileBytes.h"
#include "practice/ForceNames.h"
#include "practice/KeyComparison.h"
#include "practice/Marking.h"
#include "practice/QuestionBank.h"
#include "text/ControlCharacters.h"

namespace {

// "courses/pratt.trs": "pratt".
std::string NameOfFile(const std::string& path) {
  if (path == "-") return {};
  std::string name = path.substr(path.find_last_of('/') + 1);
  if (name.ends_with(".trs")) name.resize(name.size() - 4);
  return name;
}

class Practice {
 public:
  Practice(const CommandLine& commandLine, const CommandLineEnvironment& environment)
      : commandLine_(commandLine),
        request_(commandLine.Practice),
        environment_(environment),
        output_(environment, commandLine.Files.size()) {}

  ExitStatus Run() {
    try {
      switch (commandLine_.What) {
        case CommandLine::Mode::Exercise:
          SetExercise();
          break;
        case CommandLine::Mode::Mark:
          Mark();
          break;
        default:
          Compare();
      }
    } catch (const std::bad_alloc&) {
      output_.Complain(commandLine_.Files.front(), "there is not enough memory for this truss");
    }
    return output_.Finish();
  }

 private:
  ReportFormat FormatOf(const Truss& truss) const { return {truss.Settings.SigFigs, environment_.Numbers}; }

  // A truss of which a part is missing is neither set nor marked.
  std::optional<AnalysedFile> Read(const std::string& path) {
    AnalysedFile file = ReadForAnalysis(path, commandLine_.AutoName, environment_.In);
    if (!file.IsComplete()) {
      output_.Complain(path, file.Error);
      return std::nullopt;
    }
    Analyse(file);
    return file;
  }

  VariantWishes Wishes() const {
    return {.NumVariants = request_.NumVariants.value_or(1),
            .Seed = request_.Seed.value_or(1),
            .Mirrors = request_.Mirrors,
            .Renames = request_.Renames};
  }

  // The variants of the only file; nothing when there are not as many as wished.
  std::optional<ExerciseSet> ReadVariants() {
    const std::string& path = commandLine_.Files.front();
    const std::optional<AnalysedFile> file = Read(path);
    if (!file) return std::nullopt;
    Variants made = MakeVariants(file->Document, Wishes());
    if (!made.Why.empty()) {
      output_.Complain(path, made.Why);
      return std::nullopt;
    }
    return ExerciseSet{NameOfFile(path), Wishes(), std::move(made.All)};
  }

  void SetExercise() {
    const std::optional<ExerciseSet> set = ReadVariants();
    if (!set) return;
    const auto picture = [this](const Variant& variant) {
      return environment_.VariantPicture(variant, environment_.Numbers);
    };
    output_.WriteFile(commandLine_.OutputPath, request_.IsQuestionBank
                                                   ? QuestionBank(*set, picture)
                                                   : environment_.ExerciseSheets(*set, environment_.Numbers));
  }

  void Ask(const std::string& path, const std::string& name, const Truss& truss,
           const TrussAnalysis& analysis, std::vector<AskedTruss>& asked) {
    std::string why = WhyNotSolvable(truss, analysis);
    TrussGraph graph = why.empty() ? GraphOf(truss, analysis) : TrussGraph();
    if (why.empty()) why = WhyNotByName(graph);
    if (why.empty()) {
      asked.push_back({name, std::move(graph), analysis.Reading.Values});
    } else {
      output_.Complain(path, why + "; answers to it cannot be marked");
    }
  }

  std::vector<AskedTruss> ReadAsked() {
    std::vector<AskedTruss> asked;
    if (request_.NumVariants) {
      const std::optional<ExerciseSet> set = ReadVariants();
      if (!set) return asked;
      for (const Variant& variant : set->All)
        Ask(commandLine_.Files.front(), std::to_string(variant.Number), variant.Document, variant.Analysis,
            asked);
    } else {
      for (std::size_t i = 0; i < commandLine_.Files.size(); ++i) {
        output_.ShowProgress(i);
        const std::string& path = commandLine_.Files[i];
        const std::optional<AnalysedFile> file = Read(path);
        if (file) Ask(path, path, file->Document, file->Analysis, asked);
      }
    }
    return asked;
  }

  TrussColumn ColumnOfTrusses() const {
    if (request_.NumVariants) return TrussColumn::Variant;
    return commandLine_.Files.size() > 1 ? TrussColumn::File : TrussColumn::None;
  }

  void Mark() {
    const std::vector<AskedTruss> asked = ReadAsked();
    if (asked.empty()) return;
    const std::string& path = request_.AnswersPath;
    const FileBytes answers =
        path == "-" ? ReadWholeStream(environment_.In) : ReadWholeFile(path, PipesAndDevices::Taken);
    if (!answers.Problem.empty()) return output_.Complain(path, answers.Problem);
    const MarkedClass marked = MarkAnswers(answers.Bytes, asked, ColumnOfTrusses(),
                                           {DocumentSettings().SigFigs, environment_.Numbers});
    for (const std::string& problem : marked.Problems) output_.Complain(path, problem);
    environment_.Out << MarksAsCsv(marked, asked);
    output_.ClearProgress();
    if (environment_.ErrIsTerminal) environment_.Err << VisibleLines(SummaryOf(marked, asked));
  }

  static std::string VisibleLines(const std::string& text) {
    std::string visible;
    for (std::size_t first = 0; first < text.size();) {
      const std::size_t end = std::min(text.find('\n', first), text.size());
      visible += VisibleText(text.substr(first, end - first)) + '\n';
      first = end + 1;
    }
    return visible;
  }

  static DrawnTruss DrawnOf(const AnalysedFile& file) {
    const bool hasSolutions = file.Analysis.Reading.Code != Outcome::Inconsistent;
    TrussGraph graph = GraphOf(file.Document, file.Analysis);
    ForceValues none(graph.NumUnknowns());
    const bool isSolved = hasSolutions && graph.NumUnknowns() > 0;
    return {std::move(graph), isSolved ? file.Analysis.Reading.Values : std::move(none)};
  }

  void Compare() {
    const std::optional<AnalysedFile> key = Read(request_.KeyPath);
    if (!key) return;
    const DrawnTruss wanted = DrawnOf(*key);
    const DocumentSettings& settings = key->Document.Settings;
    if (!request_.InWords) environment_.Out << ComparisonHeadings();
    for (std::size_t i = 0; i < commandLine_.Files.size(); ++i) {
      output_.ShowProgress(i);
      const std::string& path = commandLine_.Files[i];
      const std::optional<AnalysedFile> file = Read(path);
      if (!file) continue;
      const KeyComparison comparison =
          CompareWithKey(wanted, DrawnOf(*file), settings.GridX, settings.GridY, FormatOf(key->Document));
      Tell(path, comparison);
    }
  }

  void Tell(const std::string& path, const KeyComparison& comparison) {
    std::ostream& out = environment_.Out;
    if (!request_.InWords) {
      out << ComparisonAsCsv(path, comparison);
      return;
    }
    output_.PrintHeading(path);
    out << VisibleLines(ComparisonInWords(comparison));
  }

  const CommandLine& commandLine_;
  const PracticeRequest& request_;
  const CommandLineEnvironment& environment_;
  RunOutput output_;
};

}  // namespace

ExitStatus RunPractice(const CommandLine& commandLine, const CommandLineEnvironment& environment) {
  return Practice(commandLine, environment).Run();
}
