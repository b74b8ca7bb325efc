#pragma once

#include "controls/UserPrompts.h"
#include "updates/StartupCheck.h"

#include <string>

namespace velmo
{

/// Which button ended the question; the values are those of message boxes.
enum class QuestionAnswer
{
    Yes = 6,
    No = 7,
};

/// Which button ended the update dialog.
enum class DialogAnswer
{
    Close = 0,
    Download = 1,
};

/// What update checking says to or asks of the person beyond message boxes. User-interface thread;
/// each call returns when the person has answered.
class UpdatePrompts : public UserPrompts
{
  public:
    /// The question whether to see the list of updates; the caller's options can be set meanwhile.
    virtual QuestionAnswer AskToViewUpdates(const StartupRequest& request,
                                            const std::string& question) = 0;

    /// Tells of the update of that program and offers its download.
    virtual DialogAnswer ShowUpdateDialog(const ProgramRow& program) = 0;
};

} // namespace velmo
