// A rich-text document that keeps what was appended, as runs of one format, and the pictures.
#pragma once

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "paper/RichText.h"
#include "support/FakeClipboard.h"

struct TextRun {
  std::string Text;
  CharacterFormat Format;

  friend bool operator==(const TextRun&, const TextRun&) = default;
  friend void PrintTo(const TextRun& run, std::ostream* out) {
    *out << '"' << run.Text << "\" in " << run.Format.Points << " points, colour " << run.Format.Colour
         << (run.Format.Bold ? ", bold" : "") << (run.Format.Italic ? ", italic" : "")
         << (run.Format.Underlined ? ", underlined" : "")
         << (run.Format.Family == FontFamily::Monospaced ? ", monospaced" : "");
  }
};

class RecordingRichText : public RichText {
 public:
  RecordingRichText() = default;
  /// Pastes what the clipboard holds.
  explicit RecordingRichText(const FakeClipboard& clipboard) : clipboard_(&clipboard) {}

 private:
  void AppendText(std::string_view text, const CharacterFormat& format, LineRole role) override {
    ++NumAppends;
    NoteRoles(text, role);
    if (!endsWithPicture_ && !Runs.empty() && Runs.back().Format == format) {
      Runs.back().Text += text;
    } else {
      Runs.push_back({std::string(text), format});
    }
    endsWithPicture_ = false;
  }

  bool PastePicture(std::string_view description) override {
    if (clipboard_ == nullptr || !clipboard_->Held) return false;
    Pictures.push_back(*clipboard_->Held);
    Descriptions.emplace_back(description);
    Runs.push_back({PictureMark, CharacterFormat{}});
    endsWithPicture_ = true;
    return true;
  }

  // A line has the role of its first letters.
  void NoteRoles(std::string_view text, LineRole role) {
    for (const char c : text) {
      if (c == '\n') {
        lines_.emplace_back();
      } else if (c != '\r') {
        if (lines_.back().Text.empty()) lines_.back().Role = role;
        lines_.back().Text += c;
      }
    }
  }

 public:
  struct Line {
    std::string Text = {};
    LineRole Role = LineRole::Text;
  };

  /// The lines that have this role, pictures left out.
  std::vector<std::string> LinesThatAre(LineRole role) const {
    std::vector<std::string> texts;
    for (const Line& line : lines_) {
      if (line.Role == role && !line.Text.empty()) texts.push_back(line.Text);
    }
    return texts;
  }

  /// Everything, with LF for each line break.
  std::string Text() const {
    std::string text;
    for (const TextRun& run : Runs) text += run.Text;
    std::erase(text, '\r');
    return text;
  }

  /// The runs without what cannot be seen: line breaks and tabs at their ends, and runs of nothing else.
  std::vector<TextRun> VisibleRuns() const {
    constexpr const char* unseen = "\r\n\t";
    std::vector<TextRun> visible;
    for (const TextRun& run : Runs) {
      const std::size_t first = run.Text.find_first_not_of(unseen);
      if (first == std::string::npos) continue;
      const std::size_t last = run.Text.find_last_not_of(unseen);
      visible.push_back({run.Text.substr(first, last - first + 1), run.Format});
    }
    return visible;
  }

  /// The format of the run that has this text between its line breaks; fails the test when there is none.
  CharacterFormat FormatOfText(std::string_view text) const {
    for (const TextRun& run : VisibleRuns()) {
      if (run.Text == text) return run.Format;
    }
    ADD_FAILURE() << "no run is \"" << text << '"';
    return {};
  }

  static constexpr const char* PictureMark = "<picture>";

  std::vector<TextRun> Runs;  ///< a picture is a run of its own with the text PictureMark
  std::vector<Picture> Pictures;
  std::vector<std::string> Descriptions;  ///< of the pictures
  int NumAppends = 0;

 private:
  const FakeClipboard* clipboard_ = nullptr;
  std::vector<Line> lines_{1};
  bool endsWithPicture_ = false;
};
