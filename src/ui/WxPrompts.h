#pragma once

#include "controls/UserPrompts.h"

namespace velmo
{

/// Message boxes over the program's top window.
class WxPrompts : public UserPrompts
{
  public:
    void Notify(PromptIcon icon, const std::string& text, const std::string& title) override;
};

} // namespace velmo
