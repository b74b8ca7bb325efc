#include "ui/ToolkitResources.h"

namespace velmo
{

void TakeToolkitResourcesFrom(void* /*module*/) {}

} // namespace velmo
