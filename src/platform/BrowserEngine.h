#pragma once

namespace velmo::platform
{

/// Whether this machine can show web pages inside a window: on Windows whether the system's own
/// browser control can be made; natively always. User-interface thread, after the toolkit's start.
[[nodiscard]] bool HasBrowserEngine();

} // namespace velmo::platform
