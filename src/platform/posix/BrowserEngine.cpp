#include "platform/BrowserEngine.h"

namespace velmo::platform
{

bool HasBrowserEngine()
{
    return true;
}

} // namespace velmo::platform
