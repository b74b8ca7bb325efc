#pragma once

#include "controls/MousePointer.h"

namespace velmo
{

/// Shows the pointer's shape over all windows of the program.
class WxMousePointer final : public MousePointer
{
  private:
    void Show(PointerShape shape) override;
};

} // namespace velmo
