#include "ui/ToolkitResources.h"

#include <wx/msw/private.h>

namespace velmo
{

void TakeToolkitResourcesFrom(void* module)
{
    wxSetInstance(static_cast<HINSTANCE>(module));
}

} // namespace velmo
