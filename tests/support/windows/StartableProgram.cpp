#include "tests/support/StartableProgram.h"

#include "sample/PeImageWriter.h"

namespace velmo::test
{

std::string WriteStartableProgram(const TemporaryDesktop& desktop, std::string_view name)
{
    return desktop.Write(name, sample::WritePeImage({}));
}

} // namespace velmo::test
