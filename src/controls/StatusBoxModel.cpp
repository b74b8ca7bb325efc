#include "controls/StatusBoxModel.h"

namespace velmo
{

void StatusBoxModel::AddLine(std::string_view line)
{
    m_text.append(line).append("\r\n");
    m_changed.Tell();
}

void StatusBoxModel::Clear()
{
    m_text.clear();
    m_changed.Tell();
}

} // namespace velmo
