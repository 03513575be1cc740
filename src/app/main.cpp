// The program: the command line's work without a window, or the window.
#include <QApplication>
#include <QHashSeed>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#else
#include <unistd.h>
#endif

#include "app/Icons.h"
#include "app/JsonReport.h"
#include "app/MainForm.h"
#include "app/PaperOutput.h"
#include "app/RunCommandLine.h"
#include "document/FileBytes.h"
#include "platform/qt/QtFileChooser.h"
#include "platform/qt/QtMessageBox.h"
#include "platform/qt/QtNumberFormat.h"
#include "platform/qt/QtSettingsStore.h"
#include "text/OneLine.h"

namespace {

// Results are the same bytes everywhere, so no line end may be translated on the way out.
void PrepareStandardStreams() {
  std::ios::sync_with_stdio(false);
#ifdef _WIN32
  _setmode(_fileno(stdin), _O_BINARY);
  _setmode(_fileno(stdout), _O_BINARY);
#endif
}

bool StandardErrorIsTerminal() {
#ifdef _WIN32
  return _isatty(_fileno(stderr)) != 0;
#else
  return isatty(STDERR_FILENO) != 0;
#endif
}

// Without one the toolkit would end the program with a remark of its own.
bool HasDisplay() {
#ifdef __linux__
  return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY") ||
         qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
#else
  return true;
#endif
}

// Standard input is read to its end before the window comes, which would not answer meanwhile.
int RunWindow(int argc, char** argv, const CommandLine& commandLine) {
  const bool readsInput = !commandLine.Files.empty() && commandLine.Files.front() == "-";
  const FileBytes input = readsInput ? ReadWholeStream(std::cin) : FileBytes{};
  QApplication application(argc, argv);
  QApplication::setApplicationName(QStringLiteral("Orvane"));
  QApplication::setApplicationVersion(QStringLiteral(ORVANE_VERSION));
  QApplication::setWindowIcon(ApplicationIcon());

  Truss truss;
  QtSettingsStore store;
  QtMessageBox messages;
  QtFileChooser chooser;
  MainForm form(MainForm::Partners{.Document = truss,
                                   .Store = store,
                                   .Messages = messages,
                                   .Chooser = chooser,
                                   .Numbers = SystemNumberFormat(),
                                   .ProgramDirectory = QApplication::applicationDirPath().toStdString()});
  form.show();
  if (readsInput) {
    form.OpenAtStart(input, commandLine.AutoName);
  } else if (!commandLine.Files.empty()) {
    form.OpenAtStart(commandLine.Files.front(), commandLine.AutoName);
  }
  return QApplication::exec();
}

int RunWithoutWindow(const CommandLine& commandLine) {
  std::optional<ScreenlessApplication> application;
  const bool needsFonts =
      commandLine.What == CommandLine::Mode::Picture || commandLine.What == CommandLine::Mode::Document;
  if (needsFonts) application.emplace();
  return RunCommandLine(commandLine, CommandLineEnvironment{.In = std::cin,
                                                            .Out = std::cout,
                                                            .Err = std::cerr,
                                                            .ErrIsTerminal = StandardErrorIsTerminal(),
                                                            .Numbers = SystemNumberFormat(),
                                                            .Json = JsonReport,
                                                            .Picture = PictureBytes,
                                                            .Document = DocumentBytes});
}

}  // namespace

int main(int argc, char** argv) {
  PrepareStandardStreams();
  // The order of what the toolkit writes into files must not change from run to run.
  QHashSeed::setDeterministicGlobalSeed();
  const auto parsed = ParseCommandLine(std::vector<std::string>(argv + (argc > 0 ? 1 : 0), argv + argc));
  if (const auto* wrong = std::get_if<WrongArguments>(&parsed)) {
    std::cerr << "orvane: " << OnOneLine(wrong->Why) << "; see orvane --help\n";
    return ArgumentsWrong;
  }
  const CommandLine& commandLine = std::get<CommandLine>(parsed);
  if (commandLine.What != CommandLine::Mode::Window) return RunWithoutWindow(commandLine);
  if (HasDisplay()) return RunWindow(argc, argv, commandLine);
  std::cerr
      << "orvane: there is no display for the window; orvane --help tells what can be done without one\n";
  return NotAllDone;
}
