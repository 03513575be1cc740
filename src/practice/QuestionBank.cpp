#include "practice/QuestionBank.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <string_view>

#include "explanation/byjoint/HandSolution.h"
#include "explanation/byjoint/HandText.h"
#include "practice/JointPlaces.h"
#include "practice/Verdicts.h"
#include "reports/DescribePicture.h"
#include "text/CodePage.h"
#include "text/ControlCharacters.h"
#include "text/NumberText.h"

namespace {

std::string Escaped(std::string_view utf8Text) {
  std::string escaped;
  for (const char character : utf8Text) {
    switch (character) {
      case '&':
        escaped += "&amp;";
        break;
      case '<':
        escaped += "&lt;";
        break;
      case '>':
        escaped += "&gt;";
        break;
      case '"':
        escaped += "&quot;";
        break;
      default:
        escaped += character;
    }
  }
  return escaped;
}

std::string Base64(std::string_view bytes) {
  constexpr std::string_view letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string text;
  text.reserve((bytes.size() + 2) / 3 * 4);
  for (std::size_t at = 0; at < bytes.size(); at += 3) {
    std::uint32_t three = 0;
    for (std::size_t i = 0; i < 3; ++i)
      three = three << 8 | (at + i < bytes.size() ? static_cast<unsigned char>(bytes[at + i]) : 0U);
    for (std::size_t i = 0; i < 4; ++i)
      text += at + i <= bytes.size() ? letters[three >> (18 - 6 * i) & 63U] : '=';
  }
  return text;
}

// A text inside a question's HTML: a name, a line of the working.
std::string Html(std::string_view singleByteText) { return Escaped(WithoutControls(ToUtf8(singleByteText))); }

// What would be read as the beginning of a box becomes a character reference.
std::string WithoutBraces(std::string html) {
  for (std::size_t at = html.find('{'); at != std::string::npos; at = html.find('{', at))
    html.replace(at, 1, "&#123;");
  return html;
}

// Values to six figures, which is more than anyone writes.
std::string Number(double value) {
  DecimalDigits digits = DecimalDigits::Of(value);
  digits.RoundToSignificant(6);
  return PlainText(digits, ".");
}

class BoxText {
 public:
  // A number that gets this mark in percent. What is said of it has none of the characters } # ~ / " and \,
  // which mean something in a box.
  void Add(int percent, double value, double tolerance, std::string_view feedback) {
    text_ += text_.empty() ? "{1:NUMERICAL:" : "~";
    text_ += '%' + std::to_string(percent) + '%' + Number(value) + ':' + Number(tolerance) + '#' +
             std::string(feedback);
  }
  std::string Text() const { return text_ + '}'; }

 private:
  std::string text_;
};

// The first alternative that fits counts, so the narrow ones stand first.
std::string BoxOf(double solution, double largest, bool isMember) {
  BoxText box;
  if (IsNoForce(solution, largest)) {
    const double right = ZeroWithin * largest;
    box.Add(100, 0, right, "Right.");
    box.Add(50, 0, right * CloseWithin / RightWithin, "Close: it carries nothing.");
    return box.Text();
  }
  const double size = std::abs(solution);
  box.Add(100, solution, RightWithin * size, "Right.");
  box.Add(50, solution, CloseWithin * size, "Close, but not within one percent.");
  box.Add(0, -solution, RightWithin * size,
          std::string("The size is right, the sense is not: ") +
              (isMember ? "compression is positive." : "the arrow shows where it is positive."));
  for (const double power : {10.0, 0.1, 100.0, 0.01, 1000.0, 0.001})
    box.Add(0, solution * power, RightWithin * size * power, "Right but for a power of ten.");
  return box.Text();
}

class Bank {
 public:
  Bank(const ExerciseSet& set, const PictureOfVariant& picture) : set_(set), picture_(picture) {}

  std::string Text() const {
    std::string text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<quiz>\n";
    text += "  <question type=\"category\">\n    <category><text>$course$/" + CategoryName() +
            "</text></category>\n    <info format=\"html\"><text>" + Escaped(TitleText()) +
            "</text></info>\n  </question>\n";
    for (const Variant& variant : set_.All) text += Question(variant);
    return text + "</quiz>\n";
  }

 private:
  std::string TitleText() const { return WithoutControls(TitleOf(set_)); }

  // A slash parts categories, unless it is written twice.
  std::string CategoryName() const {
    std::string name;
    for (const char character : TitleText()) name.append(character == '/' ? 2 : 1, character);
    return Escaped(name);
  }

  std::string Question(const Variant& variant) const {
    return "  <question type=\"cloze\">\n    <name><text>" + Escaped(TitleText()) + ", variant " +
           std::to_string(variant.Number) +
           "</text></name>\n    <questiontext format=\"html\">\n      <text>" +
           Escaped(QuestionHtml(variant)) + "</text>\n      <file name=\"" + FileName(variant) +
           "\" path=\"/\" encoding=\"base64\">" + Base64(picture_(variant)) +
           "</file>\n    </questiontext>\n    <generalfeedback format=\"html\">\n      <text>" +
           Escaped(WorkingHtml(variant)) +
           "</text>\n    </generalfeedback>\n    <penalty>0.3333333</penalty>\n    <hidden>0</hidden>\n"
           "    <idnumber></idnumber>\n  </question>\n";
  }

  static std::string FileName(const Variant& variant) {
    return "truss" + std::to_string(variant.Number) + ".png";
  }

  static std::string QuestionHtml(const Variant& variant) {
    const TrussGraph graph = GraphOf(variant.Document, variant.Analysis);
    const ReportFormat format{variant.Document.Settings.SigFigs, {}};
    std::string html =
        "<p>Find the reactions and the forces in all members. Compression is positive, tension "
        "negative. Reactions are positive in the directions of their arrows.</p>\n<p><img "
        "src=\"@@PLUGINFILE@@/" +
        FileName(variant) + "\" alt=\"" +
        Escaped(DescribePicture(variant.Document, {.ForceValues = true, .Names = true})) + "\"></p>\n<p>" +
        WithoutBraces(Html(JointPlaces(graph, format))) + "</p>\n<table>\n";
    const auto& values = variant.Analysis.Reading.Values;
    const double largest = LargestOf(values);
    for (int k = 1; k <= values.Size(); ++k) {
      const std::string name = WithoutBraces(Html(variant.Analysis.System.UnknownList[k].Name));
      html += "<tr><td>" + name + "</td><td>" +
              BoxOf(values[k].value_or(0), largest, graph.Unknowns[k].IsMember()) + "</td></tr>\n";
    }
    return html + "</table>";
  }

  static std::string WorkingHtml(const Variant& variant) {
    const ReportFormat format{variant.Document.Settings.SigFigs, {}};
    const TrussGraph graph = GraphOf(variant.Document, variant.Analysis);
    const HandReport report = ReportByHand(graph, SolveByHand(graph), variant.Analysis.Reading, format);
    std::string html = std::string("<p>") + Html(HandText::Convention()) + "</p>\n";
    for (const HandStepText& step : report.Steps) {
      html += "<p><b>" + Html(step.Heading) + "</b>";
      for (const std::string& line : step.Lines) html += "<br>\n" + Html(line);
      html += "</p>\n";
    }
    return html;
  }

  const ExerciseSet& set_;
  const PictureOfVariant& picture_;
};

}  // namespace

std::string QuestionBank(const ExerciseSet& set, const PictureOfVariant& picture) {
  return Bank(set, picture).Text();
}
