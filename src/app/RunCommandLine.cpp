// File after file; a file that cannot be read whole is reported as far as it was read, and the others go on.
#include "app/RunCommandLine.h"

#include <new>
#include <optional>

#include "app/JsonAhead.h"
#include "app/PracticeRun.h"
#include "app/RunOutput.h"
#include "app/TextReports.h"
#include "document/BrokenName.h"
#include "document/TrussFile.h"
#include "explanation/Directions.h"
#include "explanation/ExactVerdict.h"

namespace {

class Run {
 public:
  Run(const CommandLine& commandLine, const CommandLineEnvironment& environment)
      : commandLine_(commandLine),
        environment_(environment),
        output_(environment, commandLine.Files.size()),
        jsonAhead_(commandLine, environment) {}

  ExitStatus AllFiles() {
    for (std::size_t i = 0; i < commandLine_.Files.size() && environment_.Out; ++i) {
      output_.ShowProgress(i);
      const std::string& file = commandLine_.Files[i];
      try {
        if (!HasJsonAhead(i)) OneFile(file);
      } catch (const std::bad_alloc&) {
        output_.Complain(file, "there is not enough memory for this truss");
      }
    }
    return output_.Finish();
  }

  ExitStatus Print(const char* text) {
    environment_.Out << text;
    return output_.Finish();
  }

 private:
  // Whether what there is to say of the file has been made ahead, and is said.
  bool HasJsonAhead(std::size_t index) {
    if (commandLine_.What != CommandLine::Mode::Json) return false;
    const std::optional<FileJson> json = jsonAhead_.Take(index);
    if (!json) return false;
    const std::string& argument = commandLine_.Files[index];
    if (!json->Error.empty()) output_.Complain(argument, json->Error);
    for (const std::string& remark : json->Remarks) output_.Say(argument, remark);
    environment_.Out << json->Object << '\n';
    return true;
  }

  void OneFile(const std::string& argument) {
    AnalysedFile file = ReadForAnalysis(argument, commandLine_.AutoName, environment_.In);
    if (!file.IsComplete()) output_.Complain(argument, file.Error);
    switch (commandLine_.What) {
      case CommandLine::Mode::Convert:
        Convert(file);
        break;
      case CommandLine::Mode::Picture:
        if (commandLine_.Picture.Motion) {
          DrawMotionPicture(file, *commandLine_.Picture.Motion);
        } else if (commandLine_.Picture.Forces) {
          DrawForcesPicture(file);
        } else {
          DrawPicture(file);
        }
        break;
      default:
        Analyse(file);
        for (const std::string& remark : file.Remarks) output_.Say(argument, remark);
        Report(file);
    }
  }

  // What would be lost without a trace is not written: the rest of a file that was not read whole, and a name
  // that a file cannot hold.
  void Convert(AnalysedFile& file) {
    if (!file.IsComplete()) return;
    const std::string brokenName = ElementWithBrokenName(file.Document);
    if (file.UnreadLine > 0) {
      output_.Complain(file.Argument, "line " + std::to_string(file.UnreadLine) +
                                          ": this is no part of the truss; the file is not converted");
    } else if (!brokenName.empty()) {
      output_.Complain(file.Argument,
                       "the name of " + brokenName + " could not be read back; the file is not converted");
    } else {
      output_.WriteFile(commandLine_.OutputPath, TrussBytes(file.Document));
    }
  }

  // Of a file that was not read whole one message is enough, whatever else becomes of it.
  void DrawPicture(const AnalysedFile& file) {
    const auto bytes =
        environment_.Picture(file, commandLine_.Picture.Named, commandLine_.PictureFormat, FormatOf(file));
    if (bytes) {
      output_.WriteFile(commandLine_.OutputPath, *bytes);
    } else if (file.IsComplete()) {
      output_.Complain(file.Argument, "there is nothing to draw");
    }
  }

  void DrawMotionPicture(AnalysedFile& file, int number) {
    Analyse(file);
    for (const std::string& remark : file.Remarks) output_.Say(file.Argument, remark);
    const TrussGraph graph = GraphOf(file.Document, file.Analysis);
    const std::vector<Motion> motions = ReasonExactly(graph).Motions;
    const auto count = static_cast<int>(motions.size());
    if (number <= count) {
      output_.WriteFile(commandLine_.OutputPath,
                        environment_.MotionPicture({.Document = file.Document,
                                                    .Graph = graph,
                                                    .Moves = &motions[static_cast<std::size_t>(number - 1)],
                                                    .NamesOfForces = commandLine_.Picture.Named},
                                                   commandLine_.PictureFormat));
    } else if (file.IsComplete()) {
      output_.Complain(file.Argument, "there is no motion " + std::to_string(number) + ": the truss has " +
                                          ::Counted(count, "motion", "motions"));
    }
  }

  void DrawForcesPicture(AnalysedFile& file) {
    Analyse(file);
    for (const std::string& remark : file.Remarks) output_.Say(file.Argument, remark);
    if (file.Analysis.System.NumUnknowns() > 0) {
      const TrussForces forces = ForcesOf(ExplanationOnDemand(file.Document, file.Analysis), FormatOf(file));
      output_.WriteFile(commandLine_.OutputPath,
                        environment_.ForcesPicture({.Document = file.Document, .Forces = forces},
                                                   commandLine_.PictureFormat));
    } else if (file.IsComplete()) {
      output_.Complain(file.Argument, "the truss has no unknown forces, so there are none to draw");
    }
  }

  void WriteDocument(const AnalysedFile& file) {
    if (file.Analysis.System.NumUnknowns() > 0) {
      output_.WriteFile(commandLine_.OutputPath,
                        environment_.Document(file, commandLine_.DocumentFormat, commandLine_.DocumentWith,
                                              environment_.Numbers));
    } else if (file.IsComplete()) {
      output_.Complain(file.Argument, "the truss has no unknown forces, so there is no report to write");
    }
  }

  ReportFormat FormatOf(const AnalysedFile& file) const {
    return {file.Document.Settings.SigFigs, environment_.Numbers};
  }

  void Report(const AnalysedFile& file) {
    const ReportFormat format = FormatOf(file);
    std::ostream& out = environment_.Out;
    if (commandLine_.What == CommandLine::Mode::Document) {
      WriteDocument(file);
    } else if (commandLine_.What == CommandLine::Mode::Json) {
      environment_.Json(out, file, commandLine_.Json, format);
      out << '\n';
    } else if (commandLine_.What == CommandLine::Mode::Csv) {
      WriteCsv(out, file, commandLine_.Table, format);
    } else {
      output_.PrintHeading(file.Argument);
      WriteReport(out, file, {commandLine_.Sections, commandLine_.Explained}, format);
    }
  }

  const CommandLine& commandLine_;
  const CommandLineEnvironment& environment_;
  RunOutput output_;
  JsonAhead jsonAhead_;
};

}  // namespace

ExitStatus RunCommandLine(const CommandLine& commandLine, const CommandLineEnvironment& environment) {
  Run run(commandLine, environment);
  switch (commandLine.What) {
    case CommandLine::Mode::Help:
      return run.Print(HelpText());
    case CommandLine::Mode::Version:
      return run.Print("Orvane " ORVANE_VERSION "\n");
    case CommandLine::Mode::Exercise:
    case CommandLine::Mode::Mark:
    case CommandLine::Mode::Compare:
      return RunPractice(commandLine, environment);
    default:
      return run.AllFiles();
  }
}
