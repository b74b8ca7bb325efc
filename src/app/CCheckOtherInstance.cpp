#include "app/CCheckOtherInstance.h"

#include <utility>

namespace velmo
{
namespace
{

constexpr std::string_view kInstanceName = "VelmoUpdateManager";

} // namespace

CCheckOtherInstance::CCheckOtherInstance() : m_instance(kInstanceName) {}

bool CCheckOtherInstance::OtherInstanceRuns(std::string_view caption, std::string_view className)
{
    if (!m_instance.HasPrevious())
    {
        return false;
    }
    m_instance.BringPreviousForward(caption, className);
    return true;
}

void CCheckOtherInstance::Listen(platform::MessageLoop& loop, std::function<bool()> comeForward)
{
    m_instance.Listen(loop, std::move(comeForward));
}

} // namespace velmo
