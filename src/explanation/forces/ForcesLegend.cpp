#include "explanation/forces/ForcesLegend.h"

#include <algorithm>
#include <array>
#include <sstream>

namespace {

constexpr float Border = 6;        // around all
constexpr float BesideSample = 5;  // to its words
constexpr float BetweenItems = 14;
constexpr float BetweenRows = 3;

struct Meaning {
  LegendSample Sample;
  const char* Words;  // null where they are the truss's own
};

constexpr std::array Meanings = {Meaning{LegendSample::Compression, "compression (C)"},
                                 Meaning{LegendSample::Tension, "tension (T)"},
                                 Meaning{LegendSample::Zero, "zero"},
                                 Meaning{LegendSample::Undetermined, nullptr},
                                 Meaning{LegendSample::Load, "load"},
                                 Meaning{LegendSample::Reaction, "reaction"}};

constexpr const char* HowToRead =
    "The wider, the larger. In brackets the number of the solutions: compression is positive.";

class Layout {
 public:
  Layout(float width, float points, const TextMeasure& measure)
      : measure_(measure), right_(width - Border), font_{.Points = points} {
    legend_.Points = points;
    y_ = Border;
  }

  void AddItems(const std::string& unknown) {
    float x = Border;
    for (const Meaning& meaning : Meanings) {
      const std::string text = meaning.Words != nullptr ? meaning.Words : unknown + " (?)";
      const TextExtent words = measure_(font_, text);
      const float width = LegendSampleLength + BesideSample + words.Width;
      if (x > Border && x + width > right_) {
        x = Border;
        y_ += words.Height + BetweenRows;
      }
      legend_.Items.push_back({.Sample = meaning.Sample,
                               .Left = {x, y_ + words.Height / 2},
                               .TextTopLeft = {x + LegendSampleLength + BesideSample, y_},
                               .Words = text});
      Cover(x + width, words.Height);
      x += width + BetweenItems;
    }
    EndRow();
  }

  void AddText(const std::string& text) {
    std::string line;
    std::istringstream words(text);
    for (std::string word; words >> word;) {
      const std::string longer = line.empty() ? word : line + ' ' + word;
      if (!line.empty() && Border + measure_(font_, longer).Width > right_) {
        AddLine(line);
        line = word;
      } else {
        line = longer;
      }
    }
    if (!line.empty()) AddLine(line);
  }

  ForcesLegend Done() {
    legend_.Width += Border;
    legend_.Height += Border;
    return std::move(legend_);
  }

 private:
  void AddLine(const std::string& words) {
    const TextExtent extent = measure_(font_, words);
    legend_.Lines.push_back({{Border, y_}, words});
    Cover(Border + extent.Width, extent.Height);
    EndRow();
  }

  void Cover(float right, float height) {
    legend_.Width = std::max(legend_.Width, right);
    legend_.Height = std::max(legend_.Height, y_ + height);
  }

  void EndRow() { y_ = legend_.Height + BetweenRows; }

  const TextMeasure& measure_;
  float right_;
  TextFont font_;
  float y_ = 0;
  ForcesLegend legend_;
};

}  // namespace

ForcesLegend LayOutLegend(const std::string& unknown, const std::vector<std::string>& remarks, float width,
                          float points, const TextMeasure& measure) {
  Layout layout(width, points, measure);
  layout.AddItems(unknown);
  layout.AddText(HowToRead);
  for (const std::string& remark : remarks) layout.AddText(remark);
  return layout.Done();
}
