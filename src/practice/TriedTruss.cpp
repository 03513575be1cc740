#include "practice/TriedTruss.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "explanation/Directions.h"
#include "explanation/ExactVerdict.h"
#include "explanation/byjoint/HandSolution.h"
#include "practice/JointPlaces.h"

namespace {

// Nobody reads more joints at a time.
constexpr int MostJointsTold = 40;

const char* WordsFor(Verdict verdict) {
  switch (verdict) {
    case Verdict::Empty:
      return "not determined; judged by its joints";
    case Verdict::Right:
      return "right";
    case Verdict::Close:
      return "close, within 5 %";
    case Verdict::Sense:
      return "right size, wrong sense";
    case Verdict::Power:
      return "a power of ten off";
    case Verdict::Wrong:
      break;
  }
  return "wrong";
}

// Loads and reactions on the whole truss; the members cancel.
struct OuterForces {
  double X = 0, Y = 0;
  double Moment = 0;  // about a point, anticlockwise
  double LargestForce = 0, LargestMoment = 0;

  void Add(double atX, double atY, double x, double y) {
    const double moment = atX * y - atY * x;
    X += x;
    Y += y;
    Moment += moment;
    LargestForce = std::max(LargestForce, std::hypot(x, y));
    LargestMoment = std::max(LargestMoment, std::abs(moment));
  }
};

ForceValues ValuesOf(const Table<Answer>& answers) {
  ForceValues values(answers.Size());
  for (int k = 1; k <= answers.Size(); ++k) values[k] = answers[k].Value;
  return values;
}

}  // namespace

TriedTruss::TriedTruss(TrussGraph graph, const Classification& reading, const ReportFormat& format)
    : graph_(std::move(graph)),
      atJoint_(UnknownsByJoint(graph_)),
      hasForces_(JudgeExactly(graph_).Code() != Outcome::Inconsistent),
      solutions_(reading.Code == Outcome::Inconsistent ? ForceValues(graph_.NumUnknowns()) : reading.Values),
      format_(format),
      names_(graph_, format_),
      byHand_(SolveByHand(graph_)),
      order_(OrderByHand(graph_, byHand_)) {}

std::string TriedTruss::Opening() const {
  if (hasForces_) return JointPlaces(graph_, format_);
  return "The equations have no solution: no forces hold this truss under its loads, so there are none to "
         "find. \"Why this conclusion\" tells why.";
}

Table<Answer> TriedTruss::Read(const WrittenForces& written) const {
  Table<Answer> answers(graph_.NumUnknowns());
  for (int k = 1; k <= answers.Size(); ++k) {
    const AnswerOf kind = graph_.Unknowns[k].IsMember() ? AnswerOf::Member : AnswerOf::Reaction;
    answers[k] = ReadAnswer(written[static_cast<std::size_t>(k - 1)], kind, format_.Numbers);
  }
  return answers;
}

Judgement TriedTruss::JudgeAll(const WrittenForces& written) const {
  const Table<Answer> answers = Read(written);
  const ForceValues given = ValuesOf(answers);
  const Table<Verdict> verdicts = Judge(given, solutions_);
  Judgement judgement{Table<std::string>(given.Size()), {CountText(answers, verdicts)}};
  for (int k = 1; k <= given.Size(); ++k)
    judgement.Words[k] = given[k] ? WordsFor(verdicts[k]) : answers[k].Why;
  const bool isTurned = CountsTensionPositive(graph_, verdicts, solutions_);
  if (isTurned) {
    judgement.Lines.emplace_back(
        "Every sense is reversed: you count tension as positive.  Here compression is positive.  What "
        "follows takes "
        "your members with the sense turned.");
  }
  const ForceValues followed = isTurned ? WithMembersTurned(graph_, given) : given;
  AddReactions(followed, judgement.Lines);
  AddJoints(followed, isTurned ? Judge(followed, solutions_) : verdicts, judgement.Lines);
  return judgement;
}

std::optional<Hint> TriedTruss::HintFor(const WrittenForces& written) const {
  return NextHint(graph_, byHand_, Judge(ValuesOf(Read(written)), solutions_), names_, format_);
}

std::string TriedTruss::CountText(const Table<Answer>& answers, const Table<Verdict>& verdicts) const {
  const auto all = answers.First(answers.Size());
  const auto numEmpty = static_cast<int>(std::ranges::count_if(all, &Answer::IsEmpty));
  const auto numUnreadable = static_cast<int>(std::ranges::count_if(all, &Answer::IsWrong));
  if (numEmpty + numUnreadable == answers.Size())
    return "Write a value first: a number, compression positive, or a magnitude with T or C.";
  const auto numRight = static_cast<int>(std::ranges::count(verdicts.First(verdicts.Size()), Verdict::Right));
  const std::string unreadable =
      numUnreadable == 0 ? "" : ", " + Counted(numUnreadable, "is", "are") + " no forces";
  return std::to_string(numRight) + " of " + Counted(answers.Size(), "force is", "forces are") + " right" +
         (numEmpty == 0 ? "" : ", " + Counted(numEmpty, "is", "are") + " still empty") + unreadable + '.';
}

// Wrong reactions can balance joint after joint, up to the last.
void TriedTruss::AddReactions(const ForceValues& given, std::vector<std::string>& lines) const {
  OuterForces outer;
  int joint = 0;  // about which moments are taken: the first that is supported
  for (int k = 1; k <= graph_.NumUnknowns(); ++k) {
    const PlacedUnknown& unknown = graph_.Unknowns[k];
    if (unknown.IsMember()) continue;
    if (!given[k]) return;
    if (joint == 0) joint = unknown.JointA;
  }
  if (joint == 0) return;
  const PlacedJoint& about = graph_.Joints[joint];
  const auto add = [&](int at, double x, double y) {
    outer.Add(static_cast<double>(graph_.Joints[at].X) - about.X,
              static_cast<double>(graph_.Joints[at].Y) - about.Y, x, y);
  };
  for (const PlacedLoad& load : graph_.Loads) add(load.Joint, load.Fx, load.Fy);
  for (int k = 1; k <= graph_.NumUnknowns(); ++k) {
    const PlacedUnknown& unknown = graph_.Unknowns[k];
    if (unknown.IsMember()) continue;
    const double value = unknown.Sign * *given[k];
    add(unknown.JointA, unknown.Along == Axis::X ? value : 0, unknown.Along == Axis::Y ? value : 0);
  }
  std::string left;
  const auto tell = [&](const std::string& what, double over, double largest, const char* positive,
                        const char* negative) {
    if (std::abs(over) <= BalancedWithin * largest) return;
    left += (left.empty() ? "" : ", ") + what + " leave " + FormatSigFigs(std::abs(over), format_) + ' ' +
            (over > 0 ? positive : negative);
  };
  tell("the horizontal forces", outer.X, outer.LargestForce, "to the right", "to the left");
  tell("the vertical forces", outer.Y, outer.LargestForce, "upward", "downward");
  tell("the moments about " + names_.JointInWords(joint), outer.Moment, outer.LargestMoment, "anticlockwise",
       "clockwise");
  lines.push_back(left.empty() ? "Your reactions balance the whole truss."
                               : "Your reactions do not balance the whole truss: " + left + '.');
}

void TriedTruss::AddJoints(const ForceValues& given, const Table<Verdict>& verdicts,
                           std::vector<std::string>& lines) const {
  const Followed followed = Follow(graph_, given, order_);
  const Table<char> isOnlyCheck = ChecksThatFail(followed, byHand_);
  int numTold = 0;
  for (const int joint : followed.Order) {
    // Of a joint about which the student has said nothing there is nothing to say.
    const FollowedJoint& judged = followed.Joints[joint];
    const bool isOpen = judged.What == JointVerdict::Open;
    const bool isUntouched =
        isOpen && std::ranges::none_of(UnknownsAt(joint), [&](int k) { return given[k].has_value(); });
    if (isUntouched) continue;
    if (++numTold > MostJointsTold) continue;
    lines.push_back(isOnlyCheck[joint] != 0 && joint != followed.Slip
                        ? Capital(names_.JointInWords(joint)) +
                              " does not balance either, but it only checks what came before."
                        : JointText(joint, followed, graph_, verdicts, names_, format_));
  }
  if (numTold > MostJointsTold)
    lines.push_back("And " + Counted(numTold - MostJointsTold, "joint", "joints") + " more.");
}
