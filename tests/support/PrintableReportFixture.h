// Builds printable reports into a document that remembers them, with a clipboard, a clock and messages of the
// test's own.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "analysis/Analysis.h"
#include "reports/PrintableReport.h"
#include "support/FakeClipboard.h"
#include "support/FakeClock.h"
#include "support/FakeMessageBox.h"
#include "support/RecordingRichText.h"
#include "support/RecordingSurface.h"
#include "support/ReportHeadings.h"
#include "support/TrussBuilder.h"

// A 3-4-5 triangle, 8 wide and 3 high, with 600 down at its top.
inline TrussBuilder Triangle() {
  return TrussBuilder()
      .Member(0, 0, 8, 0, "AB")
      .Member(0, 0, 4, 3, "AC")
      .Member(8, 0, 4, 3, "BC")
      .Clamp(0, 0, "Ax", "Ay")
      .Roller(8, 0, "By")
      .Force(4, 3, 0, -600)
      .Joint(0, 0, "A")
      .Joint(8, 0, "B")
      .Joint(4, 3, "C");
}

// The triangle on two rollers, free to roll.
inline TrussBuilder RollingTriangle() {
  return TrussBuilder()
      .Member(0, 0, 8, 0, "AB")
      .Member(0, 0, 4, 3, "AC")
      .Member(8, 0, 4, 3, "BC")
      .Roller(0, 0, "Ay")
      .Roller(8, 0, "By")
      .Joint(0, 0, "A")
      .Joint(8, 0, "B")
      .Joint(4, 3, "C");
}

class PrintableReportTest : public ::testing::Test {
 protected:
  // False when the progress ended it.
  bool Build(Truss truss) {
    truss.View = DeriveView(truss.Settings, CanvasBounds{});
    const TrussAnalysis analysis = SolveTruss(truss);
    state_ = BuildPrintableReport(truss, analysis,
                                  {.Document = document_,
                                   .Clipboard = {clipboard_, clock_, messages_},
                                   .Measure = RecordingSurface::Measure,
                                   .Numbers = numbers_,
                                   .TableRoom = tableRoom_,
                                   .Progress = progress_,
                                   .With = with_});
    return state_ != BuiltReport::Ended;
  }

  std::string TextOf(const Truss& truss) {
    EXPECT_TRUE(Build(truss));
    return document_.Text();
  }

  // The text from a heading up to the next one, without the line breaks at both ends.
  std::string Section(const std::string& heading) const {
    const std::string text = document_.Text();
    const std::size_t begin = text.find(heading) + heading.size();
    std::size_t end = text.size();
    for (const char* other : ReportHeadings) end = std::min(end, text.find(other, begin));
    const std::string section = text.substr(begin, end - begin);
    const std::size_t first = section.find_first_not_of('\n');
    if (first == std::string::npos) return "";
    return section.substr(first, section.find_last_not_of('\n') + 1 - first);
  }

  std::vector<std::string> TextsIn(std::size_t picture) const {
    RecordingSurface surface;
    document_.Pictures.at(picture).DrawOn(surface);
    std::vector<std::string> texts;
    for (const DrawnText& text : surface.Texts) texts.push_back(text.Text);
    return texts;
  }

  FakeClipboard clipboard_;
  FakeClock clock_;
  FakeMessageBox messages_;
  RecordingRichText document_{clipboard_};
  NumberFormat numbers_;
  float tableRoom_ = 0;
  ReportProgress progress_;
  std::vector<ReportExtra> with_;
  BuiltReport state_ = BuiltReport::Ended;  // what the last one has become
};
