#pragma once

#include "controls/UserPrompts.h"

#include <ostream>

namespace velmo::companion
{

/// Notices as lines of text: there is nobody to press a button.
class ConsolePrompts final : public UserPrompts
{
  public:
    explicit ConsolePrompts(std::ostream& errors) : m_errors(errors) {}

    void Notify(PromptIcon /*icon*/, const std::string& text, const std::string& title) override
    {
        m_errors << title << ": " << text << "\n";
    }

  private:
    std::ostream& m_errors;
};

} // namespace velmo::companion
