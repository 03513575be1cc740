// The program: the command line's work without a window, or the window.
#include <unistd.h>

#include <QApplication>
#include <QHashSeed>
#include <QProcess>
#include <algorithm>
#include <csignal>
#include <iostream>
#include <new>
#include <optional>
#include <string>
#include <vector>

#include "app/DisplayGuard.h"
#include "app/Icons.h"
#include "app/JsonReport.h"
#include "app/MainForm.h"
#include "app/PaperOutput.h"
#include "app/ReadableSelection.h"
#include "app/RunCommandLine.h"
#include "document/FilePaths.h"
#include "platform/FileBytes.h"
#include "platform/qt/QtFileChooser.h"
#include "platform/qt/QtMessageBox.h"
#include "platform/qt/QtNumberFormat.h"
#include "platform/qt/QtSettingsStore.h"
#include "practice/ExerciseFile.h"
#include "text/ControlCharacters.h"

namespace {

// A file that grows larger than it may, be it the one that standard output goes to, is a write that fails and
// is told; the signal would end the program without a word.
void PrepareStandardStreams() {
  std::ios::sync_with_stdio(false);
  std::signal(SIGXFSZ, SIG_IGN);
}

bool StandardErrorIsTerminal() { return isatty(STDERR_FILENO) != 0; }

bool IsTerminalAlone() {
  return qEnvironmentVariableIsEmpty("DISPLAY") && qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") &&
         qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
}

// A window shows one truss: each further file gets a program of its own, a file named twice one of both.
void OpenFurtherWindows(const CommandLine& commandLine) {
  const std::vector<std::string>& files = commandLine.Files;
  for (std::size_t i = 1; i < files.size(); ++i) {
    const auto isThisFile = [&](const std::string& other) { return LeadToOneFile(files[i], other); };
    if (std::any_of(files.begin(), files.begin() + static_cast<std::ptrdiff_t>(i), isThisFile)) continue;
    QStringList arguments{QStringLiteral("--"), QString::fromStdString(files[i])};
    if (commandLine.AutoName) arguments.prepend(QStringLiteral("--autoname"));
    QProcess::startDetached(QCoreApplication::applicationFilePath(), arguments);
  }
}

// Standard input is read to its end before the window comes, which would not answer meanwhile.
int RunWindow(int argc, char** argv, const CommandLine& commandLine) {
  const bool readsInput = !commandLine.Files.empty() && commandLine.Files.front() == "-";
  const FileBytes input = readsInput ? ReadWholeStream(std::cin) : FileBytes{};
  std::optional<DisplayGuard> guard(std::in_place);
  const QApplication application(argc, argv);
  guard.reset();
  OpenFurtherWindows(commandLine);
  KeepNoSettingsOfTheToolkit();
  QApplication::setApplicationName(QStringLiteral("Orvane"));
  QApplication::setApplicationVersion(QStringLiteral(ORVANE_VERSION));
  QApplication::setDesktopFileName(QStringLiteral("orvane"));
  QApplication::setWindowIcon(ApplicationIcon());
  const ReadableSelection readableSelection;

  Truss truss;
  QtSettingsStore store;
  QtMessageBox messages;
  QtFileChooser chooser;
  MainForm form(MainForm::Partners{.Document = truss,
                                   .Store = store,
                                   .Messages = messages,
                                   .Chooser = chooser,
                                   .Numbers = SystemNumberFormat(),
                                   .ProgramDirectory = QApplication::applicationDirPath().toStdString(),
                                   .RulerNumbers = SystemRulerNumbers()});
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
  using Mode = CommandLine::Mode;
  const bool needsFonts = commandLine.What == Mode::Picture || commandLine.What == Mode::Document ||
                          commandLine.What == Mode::Exercise;
  if (needsFonts) application.emplace();
  return RunCommandLine(commandLine, CommandLineEnvironment{.In = std::cin,
                                                            .Out = std::cout,
                                                            .Err = std::cerr,
                                                            .ErrIsTerminal = StandardErrorIsTerminal(),
                                                            .Numbers = SystemNumberFormat(),
                                                            .Json = WriteJson,
                                                            .Picture = PictureBytes,
                                                            .MotionPicture = MotionPictureBytes,
                                                            .ForcesPicture = ForcesPictureBytes,
                                                            .Document = DocumentBytes,
                                                            .ExerciseSheets = ExerciseBytes,
                                                            .VariantPicture = VariantPng});
}

int Start(int argc, char** argv) {
  PrepareStandardStreams();
  // The order of what the toolkit writes into files must not change from run to run.
  QHashSeed::setDeterministicGlobalSeed();
  const auto parsed = ParseCommandLine(std::vector<std::string>(argv + (argc > 0 ? 1 : 0), argv + argc));
  if (const auto* wrong = std::get_if<WrongArguments>(&parsed)) {
    std::cerr << "orvane: " << VisibleText(wrong->Why) << "; see orvane --help\n";
    return ArgumentsWrong;
  }
  const CommandLine& commandLine = std::get<CommandLine>(parsed);
  if (commandLine.What != CommandLine::Mode::Window) return RunWithoutWindow(commandLine);
  if (IsTerminalAlone()) EndWithoutDisplay(QString());
  return RunWindow(argc, argv, commandLine);
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return Start(argc, argv);
  } catch (const std::bad_alloc&) {
    std::cerr << "orvane: there is not enough memory\n";
    return NotAllDone;
  }
}
