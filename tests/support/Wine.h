#pragma once

namespace velmo::test
{

/// True for the Windows build under Wine, whose answers differ from Windows' own here and there.
[[nodiscard]] bool RunsUnderWine();

} // namespace velmo::test
