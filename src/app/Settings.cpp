#include "app/Settings.h"

#include <algorithm>
#include <cmath>

#include "text/NumberReader.h"
#include "text/NumberText.h"

namespace {

// The item whose value is nearest to `value`.
template <class Items>
std::size_t NearestItem(const Items& items, float value) {
  const float inside = std::clamp(value, static_cast<float>(items.front()), static_cast<float>(items.back()));
  const auto nearest = std::ranges::min_element(
      items, {}, [inside](int item) { return std::abs(static_cast<float>(item) - inside); });
  return static_cast<std::size_t>(nearest - items.begin());
}

// The numbers of all boxes, once each of them holds one.
struct SettingsNumbers {
  float& operator[](SettingsBox box) { return values_[static_cast<std::size_t>(box)]; }
  float operator[](SettingsBox box) const { return values_[static_cast<std::size_t>(box)]; }

 private:
  std::array<float, 10> values_{};
};

std::optional<SettingsProblem> ReadNumbers(const SettingsInput& input, const NumberFormat& format,
                                           SettingsNumbers& numbers) {
  for (const SettingsBox box : SettingsBoxes) {
    const auto number = ReadTypedNumber(input.Text(box), format.DecimalSeparator);
    if (!number) return SettingsProblem{"Invalid input.  The setting must be numbers.", box};
    numbers[box] = *number;
  }
  return std::nullopt;
}

// The minimum y can be any number: the maximum follows from it.
std::optional<SettingsProblem> BadNumbers(const SettingsNumbers& numbers) {
  using enum SettingsBox;
  if (!(numbers[MinimumX] < numbers[MaximumX])) {
    return SettingsProblem{"The maximum x coordinate must be bigger than the minimum x coordinate.",
                           MaximumX};
  }
  if (!(numbers[HatchSpacing] > 0)) {
    return SettingsProblem{"The hatch mark spacing must be a positive number.", HatchSpacing};
  }
  if (!(numbers[GridX] > 0)) {
    return SettingsProblem{"The grid spacing in the x direction must be a positive number.", GridX};
  }
  if (!(numbers[GridY] > 0)) {
    return SettingsProblem{"The grid spacing in the y direction must be a positive number.", GridY};
  }
  if (!(numbers[ForceScale] > 0)) {
    return SettingsProblem{"One unit on the ruler must represent a positive force.", ForceScale};
  }
  return std::nullopt;
}

std::optional<SettingsProblem> ReadAndCheck(const SettingsInput& input, const NumberFormat& format,
                                            SettingsNumbers& numbers) {
  if (auto problem = ReadNumbers(input, format, numbers)) return problem;
  return BadNumbers(numbers);
}

}  // namespace

SettingsInput LoadSettings(const DocumentSettings& settings, const NumberFormat& format) {
  using enum SettingsBox;
  const std::string& separator = format.DecimalSeparator;
  SettingsInput input;
  input.Text(MinimumX) = GeneralText(settings.XMin, separator);
  input.Text(MaximumX) = GeneralText(settings.XMax, separator);
  input.Text(HatchSpacing) = TaggedNumberText(settings.HatchSpacing, separator);
  input.Text(GridX) = GeneralText(settings.GridX, separator);
  input.Text(MinimumY) = GeneralText(settings.YMin, separator);
  input.Text(GridY) = GeneralText(settings.GridY, separator);
  input.Text(ForceScale) = GeneralText(settings.ForceScale, separator);
  input.SigFigsItem = NearestItem(SigFigsItems, settings.SigFigs);
  input.FontSizeItem = NearestItem(FontSizeItems, settings.ReportFontSize);
  input.ShowRulers = settings.RulersOn;
  input.SnapGrid = settings.SnapGrid;
  input.ShowGrid = settings.GridOn;
  input.SnapObject = settings.SnapObject;
  return input;
}

SettingsInput FactorySettings(const NumberFormat& format) { return LoadSettings(DocumentSettings{}, format); }

std::optional<SettingsProblem> BadSettings(const SettingsInput& input, const NumberFormat& format) {
  SettingsNumbers numbers;
  return ReadAndCheck(input, format, numbers);
}

std::optional<SettingsProblem> CloseSettings(const SettingsInput& input, const NumberFormat& format,
                                             const CanvasBounds& bounds, Truss& truss) {
  using enum SettingsBox;
  SettingsNumbers numbers;
  if (auto problem = ReadAndCheck(input, format, numbers)) return problem;

  DocumentSettings& settings = truss.Settings;
  settings.XMin = numbers[MinimumX];
  settings.XMax = numbers[MaximumX];
  settings.HatchSpacing = numbers[HatchSpacing];
  settings.GridX = numbers[GridX];
  settings.YMin = numbers[MinimumY];
  settings.GridY = numbers[GridY];
  settings.ForceScale = numbers[ForceScale];
  truss.View = DeriveView(settings, bounds);
  settings.SigFigs = static_cast<std::int16_t>(SigFigsItems.at(input.SigFigsItem));
  settings.ReportFontSize = static_cast<float>(FontSizeItems.at(input.FontSizeItem));
  settings.RulersOn = input.ShowRulers;
  settings.SnapGrid = input.SnapGrid;
  settings.GridOn = input.ShowGrid;
  settings.SnapObject = input.SnapObject;
  return std::nullopt;
}

bool SettingsMayOpen(int step, MessageBox& messages) {
  if (step < 3) return true;
  messages.Show({.Text = "You must go back to Step 2 to change the settings."});
  return false;
}
