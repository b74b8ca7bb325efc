#pragma once

namespace velmo
{

/// Before the toolkit starts: its resources are those of @a module, the library that holds it, not of
/// the program. Nothing to do where libraries have no resources.
void TakeToolkitResourcesFrom(void* module);

} // namespace velmo
