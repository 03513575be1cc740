// Sections that stand in the printable report when they are asked for, behind the solution.
#pragma once

#include <array>
#include <functional>
#include <optional>
#include <string_view>
#include <vector>

#include "analysis/FormatSigFigs.h"
#include "explanation/Explanation.h"
#include "platform/TextMeasure.h"
#include "reports/RTBPicture.h"
#include "reports/RTBText.h"

enum class ReportExtra { Forces, Why, Steps, ByJoint, Checks };

/// What a section is made from, and what it is appended to.
struct ReportExtraContext {
  const ReportText& Report;
  const ReportFormat& Format;
  const Truss& Document;  ///< with names that can be printed
  ExplanationOnDemand& Reasons;
  const ClipboardAccess& Clipboard;      ///< for pictures
  const TextMeasure& Measure;            ///< for the texts in pictures
  float TableRoom = 0;                   ///< as in PrintableReportContext
  const std::vector<ReportExtra>& With;  ///< all sections that are asked for

  /// Told which part of the section is done, 0 .. 1; returns false when the user wants no more.
  std::function<bool(double part)> Progress;
};

enum class AppendedExtra { Ended, LacksAPicture, Whole };

struct ReportExtraKind {
  ReportExtra Extra;
  std::string_view Word;  ///< on the command line
  const char* Caption;    ///< of its check box, with its access key; null: it has none
  const char* ToolTip;
  AppendedExtra (*Append)(const ReportExtraContext&);
};

AppendedExtra AppendForces(const ReportExtraContext& context);
AppendedExtra AppendWhy(const ReportExtraContext& context);
AppendedExtra AppendSteps(const ReportExtraContext& context);
AppendedExtra AppendByJoint(const ReportExtraContext& context);
AppendedExtra AppendChecks(const ReportExtraContext& context);

/// All of them: who adds another section adds its line here. The checks of the drawing stand with the
/// reasons, and by themselves only when they are asked for by their word; those without a check box come
/// last.
inline constexpr std::array AllReportExtras = {
    ReportExtraKind{ReportExtra::Forces, "forces", "Add &forces",
                    "adds a section behind the solution: the forces on the truss, drawn", &AppendForces},
    ReportExtraKind{ReportExtra::Why, "why", "Add &reasons",
                    "adds a section behind the solution: why this conclusion", &AppendWhy},
    ReportExtraKind{ReportExtra::Steps, "steps", "Add s&teps",
                    "adds a section behind the solution: the elimination, step by step", &AppendSteps},
    ReportExtraKind{
        ReportExtra::ByJoint, "byjoint", "Add &joints",
        "adds a section behind the solution: the forces as they are found by hand, joint by joint",
        &AppendByJoint},
    ReportExtraKind{ReportExtra::Checks, "checks", nullptr, nullptr, &AppendChecks},
};

std::optional<ReportExtra> ReportExtraNamed(std::string_view word);
const ReportExtraKind& KindOf(ReportExtra extra);
