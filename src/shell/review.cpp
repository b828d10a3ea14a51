#include "shell/review.h"

#include <utility>

#include "framework/desktop.h"
#include "framework/text/text.h"
#include "persistence/preferences.h"

namespace sumlet {
namespace {
constexpr Int32 quietRuns = 3;  // asks when more runs than these were saved: from the fifth on
}

ReviewTimer::ReviewTimer(std::function<void()> share) : share_(std::move(share)) {
  Action = [this](Timer&) { Event_Action(); };
}

void ReviewTimer::Event_Action() {
  if (Preferences::RunCount <= quietRuns || Preferences::ShownReviewDialog) return;
  Preferences::ShownReviewDialog = true;
  Preferences::Save();
  MessageDialog question;
  question.Message = "Thank you for using Sumlet" + String(EndOfLine) + String(EndOfLine) +
                     "Please take a moment to let others know how you like it.";
  question.Explanation =
      "You won't see this message again. You can share later via the Help menu at any time.  Thank you!";
  question.ActionButton = "Share on Facebook";
  question.CancelButton = true;
  if (question.ShowModal() == DialogButton::Action && share_) share_();
}

}  // namespace sumlet
