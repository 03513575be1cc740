// Runs of the command line on files, through string streams, with pictures and documents that say how they
// were asked for.
#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <optional>
#include <random>
#include <sstream>

#include "app/RunCommandLine.h"
#include "support/TrussBuilder.h"

namespace fs = std::filesystem;

inline constexpr const char* TriangleText =
    "Orvane 5\r\n#TRUE#,#TRUE#,#TRUE#,#FALSE#\r\n0\r\n20\r\n2\r\n.5\r\n0\r\n.5\r\n1000\r\n4\r\n"
    "2\r\n0,0,1\r\n\"Ax\",\"Ay\"\r\n8,0,5\r\n\"B\"\r\n"
    "3\r\n0,0,8,0,\"AB\",\"AB\"\r\n0,0,4,4,\"AC\",\"AC\"\r\n8,0,4,4,\"BC\",\"BC\"\r\n"
    "1\r\n4,4,0,-1000\r\n"
    "3\r\n0,0,\"A\"\r\n8,0,\"B\"\r\n4,4,\"C\"\r\n";

inline constexpr const char* TriangleSolutions =
    "The solutions:\nForce  Value\n   Ax      0\n   Ay    500\n    B    500\n   AB   \u2013500\n   AC  "
    "707.1\n"
    "   BC  707.1\n";

inline std::string Replaced(std::string text, const std::string& what, const std::string& by) {
  const std::size_t at = text.find(what);
  EXPECT_NE(at, std::string::npos) << what;
  return text.replace(at, what.size(), by);
}

// Line 19 holds a word where a number should stand; three reactions and two members come before it.
inline std::string BrokenTriangle() { return Replaced(TriangleText, "8,0,4,4", "8,zero,4,4"); }
inline constexpr const char* BrokenWhy = "line 19: a number should stand here, not \"zero\"";

// Takes nothing, like a full disk.
class FullDisk final : public std::streambuf {
  int_type overflow(int_type) override { return traits_type::eof(); }
  std::streamsize xsputn(const char*, std::streamsize) override { return 0; }
};

inline void FakeJson(std::ostream& out, const AnalysedFile& file, const JsonExtras& extras,
                     const ReportFormat&) {
  out << "{" << file.Argument << (file.IsComplete() ? "" : "|" + file.Error)
      << (extras.Matrices ? "|matrices}" : "}");
}

// A picture that says how it was asked for; an empty truss has none.
inline std::optional<std::string> FakePicture(const AnalysedFile& file, bool named,
                                              PictureFileFormat fileFormat, const ReportFormat& format) {
  if (NumLiveMembers(file.Document) == 0) return std::nullopt;
  return std::string(named ? "named" : "plain") + " picture " + std::to_string(static_cast<int>(fileFormat)) +
         " of " + std::to_string(NumLiveMembers(file.Document)) + " members in " +
         std::to_string(format.SigFigs) + " figures, \"" +
         file.Document.Name(file.Document.Members[1].NameLabel1) + '"';
}

inline std::string FakeMotionPicture(const MotionScene& scene, PictureFileFormat fileFormat) {
  return std::string(scene.NamesOfForces ? "named" : "plain") + " motion " +
         std::to_string(static_cast<int>(fileFormat)) + " of " + std::to_string(scene.Moves->Joints.size()) +
         " joints";
}

inline std::string FakeForcesPicture(const ForcesScene& scene, PictureFileFormat fileFormat) {
  return "forces " + std::to_string(static_cast<int>(fileFormat)) + " of " +
         std::to_string(scene.Forces.Graph.NumUnknowns()) + " unknowns, the largest " +
         std::to_string(static_cast<int>(scene.Forces.Largest));
}

// An exercise and a picture that say what they are of.
inline std::string FakeSheets(const ExerciseSet& set, const NumberFormat&) {
  return TitleOf(set) + ": " + std::to_string(set.All.size()) + " sheets";
}
inline std::string FakeVariantPicture(const Variant& variant, const NumberFormat&) {
  return "picture " + std::to_string(variant.Number);
}

inline std::string FakeDocument(const AnalysedFile& file, DocumentFileFormat fileFormat,
                                const std::vector<ReportExtra>& with, const NumberFormat&) {
  return "document " + std::to_string(static_cast<int>(fileFormat)) + " on " +
         std::to_string(file.Analysis.System.NumUnknowns()) + " forces" + (with.empty() ? "" : " with why");
}

class RunCommandLineTest : public testing::Test {
 protected:
  void SetUp() override {
    const std::string name = testing::UnitTest::GetInstance()->current_test_info()->name();
    directory_ = fs::temp_directory_path() / ("orvane-run-" + name + std::to_string(std::random_device{}()));
    fs::create_directories(directory_);
  }
  void TearDown() override { fs::remove_all(directory_); }

  std::string Path(const std::string& name) const { return (directory_ / name).string(); }

  std::string File(const std::string& name, const std::string& bytes) const {
    std::ofstream(Path(name), std::ios::binary) << bytes;
    return Path(name);
  }

  static std::string Bytes(const std::string& path) {
    std::ostringstream bytes;
    bytes << std::ifstream(path, std::ios::binary).rdbuf();
    return bytes.str();
  }

  ExitStatus RunInto(std::ostream& out, const std::vector<std::string>& words) {
    const auto parsed = ParseCommandLine(words);
    if (!std::holds_alternative<CommandLine>(parsed)) {
      ADD_FAILURE() << std::get<WrongArguments>(parsed).Why;
      return ArgumentsWrong;
    }
    std::istringstream in(Input);
    return RunCommandLine(
        std::get<CommandLine>(parsed),
        CommandLineEnvironment{
            .In = in,
            .Out = out,
            .Err = Err,
            .ErrIsTerminal = ErrIsTerminal,
            .Now = [this] { return Now; },
            .Numbers = {},
            .Json = Json,
            .Picture = Picture,
            .MotionPicture = FakeMotionPicture,
            .ForcesPicture = FakeForcesPicture,
            .Document = [this](const auto&... given) { return ManyBytes::Keeping(Document(given...)); },
            .ExerciseSheets = FakeSheets,
            .VariantPicture = FakeVariantPicture});
  }

  ExitStatus RunWords(const std::vector<std::string>& words) { return RunInto(Out, words); }

  std::string Input;
  std::ostringstream Out;
  std::ostringstream Err;
  bool ErrIsTerminal = false;
  std::chrono::steady_clock::time_point Now;
  std::function<void(std::ostream&, const AnalysedFile&, const JsonExtras&, const ReportFormat&)> Json =
      FakeJson;
  std::function<std::optional<std::string>(const AnalysedFile&, bool, PictureFileFormat, const ReportFormat&)>
      Picture = FakePicture;
  std::function<std::string(const AnalysedFile&, DocumentFileFormat, const std::vector<ReportExtra>&,
                            const NumberFormat&)>
      Document = FakeDocument;

 private:
  fs::path directory_;
};
