#include "tests/support/Wine.h"

namespace velmo::test
{

bool RunsUnderWine()
{
    return false;
}

} // namespace velmo::test
