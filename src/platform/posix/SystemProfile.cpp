#include "platform/SystemProfile.h"

namespace velmo::platform
{

const SystemProfile* TheSystemsProfile()
{
    return nullptr;
}

} // namespace velmo::platform
