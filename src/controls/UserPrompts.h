#pragma once

#include <string>

namespace velmo
{

enum class PromptIcon
{
    Information,
    Stop,
};

/**
    What the program says to or asks of the person at the desktop. The windows answer it with message
    boxes and dialogs, the headless program with lines of text, a test with what it wants to be
    answered. User-interface thread; each call returns when the person has answered.
 */
class UserPrompts
{
  public:
    virtual ~UserPrompts() = default;

    /// A message box with an OK button.
    virtual void Notify(PromptIcon icon, const std::string& text, const std::string& title) = 0;
};

} // namespace velmo
