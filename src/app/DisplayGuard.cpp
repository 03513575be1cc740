// The toolkit says what it could not reach as a warning, and only then that nothing is left to try, as a
// fatal message. Whoever handles a fatal message need not return, so the one connection that was tried is
// enough.
#include "app/DisplayGuard.h"

#include <QString>
#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

#include "app/RunCommandLine.h"
#include "text/ControlCharacters.h"

namespace {

struct Remark {
  QtMsgType Type;
  std::string Category;
  QString Text;
};

// Handlers are plain functions, so these can only be here.
std::vector<Remark> heldRemarks;
QtMessageHandler shownBy = nullptr;

// The loader of the window systems guesses what might be missing; each system itself knows why it gave up.
bool IsOfLoader(const Remark& remark) { return remark.Category == "qt.qpa.plugin"; }
bool IsOfWindowSystem(const Remark& remark) {
  return remark.Category.starts_with("qt.qpa") && !IsOfLoader(remark);
}

QString WhyNotReached() {
  auto why = std::ranges::find_if(heldRemarks, IsOfWindowSystem);
  if (why == heldRemarks.end()) why = std::ranges::find_if(heldRemarks, IsOfLoader);
  return why == heldRemarks.end() ? QString() : why->Text;
}

void Hold(QtMsgType type, const QMessageLogContext& context, const QString& text) {
  if (type == QtFatalMsg) EndWithoutDisplay(WhyNotReached());
  if (type == QtDebugMsg) {
    shownBy(type, context, text);  // only who looks for a fault asks for these
  } else {
    heldRemarks.push_back({type, context.category ? context.category : "", text});
  }
}

}  // namespace

DisplayGuard::DisplayGuard() : before_(qInstallMessageHandler(Hold)) { shownBy = before_; }

DisplayGuard::~DisplayGuard() {
  qInstallMessageHandler(before_);
  for (const Remark& remark : heldRemarks) {
    before_(remark.Type, QMessageLogContext(nullptr, 0, nullptr, remark.Category.c_str()), remark.Text);
  }
  heldRemarks.clear();
}

void EndWithoutDisplay(const QString& why) {
  const std::string reason = why.isEmpty() ? "" : ": " + VisibleText(why.simplified().toStdString());
  std::cerr << "orvane: there is no display for the window" << reason
            << "; orvane --help tells what can be done without one\n"
            << std::flush;
  std::_Exit(NotAllDone);
}
