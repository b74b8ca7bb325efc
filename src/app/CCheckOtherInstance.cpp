#include "app/CCheckOtherInstance.h"

namespace velmo
{

CCheckOtherInstance::CCheckOtherInstance() : m_instance(kInstanceName) {}

bool CCheckOtherInstance::OtherInstanceRuns(std::string_view caption, std::string_view className)
{
    if (!m_instance.HasPrevious())
    {
        return false;
    }
    m_cameForward = m_instance.BringPreviousForward(caption, className);
    return true;
}

} // namespace velmo
