// The settings dialog without its window: what its controls hold, whether that can be used, and how it
// becomes settings of the document.
#pragma once

#include <array>
#include <optional>
#include <string>

#include "document/Truss.h"
#include "platform/MessageBox.h"
#include "platform/NumberFormat.h"

/// The text boxes txtDim(1) .. (5), (8) and (9).
enum class SettingsBox {
  MinimumX = 1,
  MaximumX = 2,
  HatchSpacing = 3,
  GridX = 4,
  MinimumY = 5,
  GridY = 8,
  ForceScale = 9,
};

inline constexpr std::array SettingsBoxes = {
    SettingsBox::MinimumX, SettingsBox::MaximumX, SettingsBox::HatchSpacing, SettingsBox::GridX,
    SettingsBox::MinimumY, SettingsBox::GridY,    SettingsBox::ForceScale};

/// The items of cmbSigFigs and cmbFontSize (points). The dialog counts them from 0.
inline constexpr std::array SigFigsItems = {3, 4, 5, 6, 7};
inline constexpr std::array FontSizeItems = {10, 12, 14, 16};

/// What the controls hold. Texts are single-byte.
struct SettingsInput {
  std::string& Text(SettingsBox box) { return texts_[static_cast<std::size_t>(box)]; }
  const std::string& Text(SettingsBox box) const { return texts_[static_cast<std::size_t>(box)]; }

  std::size_t SigFigsItem = 0;   ///< selected item of cmbSigFigs, from 0
  std::size_t FontSizeItem = 0;  ///< selected item of cmbFontSize, from 0
  bool ShowRulers = false;
  bool SnapGrid = false;
  bool ShowGrid = false;
  bool SnapObject = false;

  friend bool operator==(const SettingsInput&, const SettingsInput&) = default;

 private:
  std::array<std::string, 10> texts_;
};

/// The dialog as it opens. Significant figures or a font size outside the lists, as a file may give them,
/// select the nearest item.
SettingsInput LoadSettings(const DocumentSettings& settings, const NumberFormat& format);

/// The dialog after "Factory settings": the settings with which the program starts.
SettingsInput FactorySettings(const NumberFormat& format);

struct SettingsProblem {
  std::string Message;  ///< shown with the critical icon
  SettingsBox Box{};    ///< gets the focus

  friend bool operator==(const SettingsProblem&, const SettingsProblem&) = default;
};

/// The first problem in the order of the checks. Values are compared as the singles that would be stored.
std::optional<SettingsProblem> BadSettings(const SettingsInput& input, const NumberFormat& format);

/// The Close button: stores the input in the truss's settings and derives the view anew. After a problem
/// nothing is stored, and the dialog stays open.
std::optional<SettingsProblem> CloseSettings(const SettingsInput& input, const NumberFormat& format,
                                             const CanvasBounds& bounds, Truss& truss);

/// Whether the dialog may open in this step (1, 2 or 3). In Step 3, whose reports were made with the present
/// settings, a message says what to do instead.
bool SettingsMayOpen(int step, MessageBox& messages);
