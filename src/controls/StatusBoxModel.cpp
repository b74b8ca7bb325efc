#include "controls/StatusBoxModel.h"

namespace velmo
{

void StatusBoxModel::AddLine(std::string_view line)
{
    m_text.append(line).append("\r\n");
    Tell();
}

void StatusBoxModel::Clear()
{
    m_text.clear();
    Tell();
}

void StatusBoxModel::Tell() const
{
    if (m_changed)
    {
        m_changed();
    }
}

} // namespace velmo
