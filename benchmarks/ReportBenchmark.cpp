// Each benchmark says how large its file is and the most memory that the program held from
// its beginning to the end of that benchmark; run one alone (--benchmark_filter) for a figure of its own.
#include "ReportBenchmark.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <QTimer>
#include <fstream>
#include <string>

#include "ShapeDocument.h"
#include "analysis/Analysis.h"
#include "paper/Page.h"
#include "reports/PrintPreview.h"
#include "reports/PrintableReportFiles.h"

namespace {

using benchmark::State;

struct Solved {
  explicit Solved(const TrussShape& shape = WarrenStrip(LargestNumUnknowns)) : Document(DocumentOf(shape)) {}

  Truss Document;
  TrussAnalysis Analysis = SolveTruss(Document);

  ReportSubject Subject() const { return {Document, Analysis, NumberFormat{}}; }
};

// In megabytes; 0 where the system does not tell.
double MostMemory() {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    constexpr std::string_view key = "VmHWM:";
    if (line.starts_with(key)) return std::stod(line.substr(key.size())) / 1024;
  }
  return 0;
}

void TellMemory(State& state) { state.counters["peak_MB"] = MostMemory(); }

class QuietClipboard final : public Clipboard, public Clock, public MessageBox {
 public:
  bool Clear() override { return true; }
  bool PutRichText(const RichTextForms&) override { return true; }
  bool PutPicture(const Picture&) override { return true; }
  void Pause(int) override {}
  MessageAnswer Show(const Message&) override { return MessageAnswer::Ok; }
};

void BuildDocument(State& state, float tableRoom) {
  const Solved solved;
  QuietClipboard quiet;
  for (auto unused : state) {
    const ReportDocument report = BuildReportDocument(
        solved.Subject(), {quiet, quiet, quiet}, [] { return QImage(); }, tableRoom);
    state.counters["blocks"] = report.Text->blockCount();
  }
  TellMemory(state);
}

void WriteFile(State& state, DocumentFileFormat format) {
  const Solved solved;
  for (auto unused : state) {
    const auto bytes = ReportFile(solved.Subject(), format);
    state.counters["file_MB"] = static_cast<double>(bytes.value_or(QByteArray()).size()) / 1e6;
  }
  TellMemory(state);
}

// As many members as can be solved, none of which touches another: the longest report there is.
TrussShape LooseMembers() {
  constexpr int count = 4090;
  TrussShape shape;
  for (int i = 0; i < count; ++i) {
    const auto x = static_cast<float>(i % 64 * 3), y = static_cast<float>(i / 64 * 2);
    shape.Joints.push_back({x, y});
    shape.Joints.push_back({x + 1 + 0.25F * static_cast<float>(i % 5), y + 1});
    shape.Members.emplace_back(2 * i, 2 * i + 1);
  }
  shape.RollerJoint = 2 * 63;
  shape.Loads.push_back({0, 1, -5});
  return shape;
}

// Closes the preview as soon as its pages are there.
void CloseWithPages(State& state) {
  QTimer::singleShot(10, [&state] {
    auto* dialog = qobject_cast<QPrintPreviewDialog*>(QApplication::activeModalWidget());
    const auto* pages = dialog != nullptr ? dialog->findChild<QPrintPreviewWidget*>() : nullptr;
    if (pages == nullptr || pages->pageCount() == 0) return CloseWithPages(state);
    state.counters["pages"] = pages->pageCount();
    dialog->grab();
    dialog->close();
  });
}

void LookAtPages(State& state) {
  const Solved solved(LooseMembers());
  const ReportSubject subject = solved.Subject();
  QuietClipboard quiet;
  QWidget parent;
  for (auto unused : state) {
    CloseWithPages(state);
    ShowPrintPreview(
        {.What = "report",
         .Name = {},
         .Paint = [&](const PageTarget& target,
                      const DocumentProgress& progress) { return PrintReport(subject, target, progress); },
         .InWords = [] { return QString(); }},
        60'000, quiet, parent);
  }
  TellMemory(state);
}

template <class Argument>
void Register(const char* name, void (*function)(State&, Argument), Argument argument) {
  benchmark::RegisterBenchmark((std::string("report, largest Warren strip/") + name).c_str(), function,
                               argument)
      ->Unit(benchmark::kMillisecond)
      ->UseRealTime();
}

}  // namespace

void RegisterReportBenchmarks() {
  Register("document for paper", BuildDocument, static_cast<float>(PointsOf(PageTextWidth)));
  Register("document of any width", BuildDocument, 0.0F);
  Register("PDF", WriteFile, DocumentFileFormat::Pdf);
  Register("RTF", WriteFile, DocumentFileFormat::Rtf);
  Register("HTML", WriteFile, DocumentFileFormat::Html);
  Register("ODT", WriteFile, DocumentFileFormat::Odt);
  benchmark::RegisterBenchmark("report, 4090 loose members/print preview", LookAtPages)
      ->Unit(benchmark::kMillisecond)
      ->UseRealTime();
}
