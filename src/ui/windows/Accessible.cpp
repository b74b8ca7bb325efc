#include "ui/Accessible.h"

#include <wx/access.h>
#include <wx/window.h>

namespace velmo
{
namespace
{

/// Answers for a control; what it does not know, the system answers.
class Answers final : public wxAccessible
{
  public:
    Answers(wxWindow* window, AccessibleRole role, const wxString& name)
        : wxAccessible(window), m_role(role), m_name(name)
    {}

    [[nodiscard]] bool DrawsItself() const
    {
        return m_role == AccessibleRole::Table || m_role == AccessibleRole::ProgressBar;
    }
    void SetValue(const wxString& value) { m_value = value; }

    wxAccStatus GetName(int child, wxString* name) override
    {
        if (child != wxACC_SELF)
        {
            return wxACC_NOT_IMPLEMENTED;
        }
        *name = m_name;
        return wxACC_OK;
    }

    wxAccStatus GetRole(int child, wxAccRole* role) override
    {
        if (child != wxACC_SELF || !DrawsItself())
        {
            return wxACC_NOT_IMPLEMENTED;
        }
        *role = m_role == AccessibleRole::Table ? wxROLE_SYSTEM_TABLE : wxROLE_SYSTEM_PROGRESSBAR;
        return wxACC_OK;
    }

    wxAccStatus GetValue(int child, wxString* value) override
    {
        if (child != wxACC_SELF || !DrawsItself())
        {
            return wxACC_NOT_IMPLEMENTED;
        }
        *value = m_value;
        return wxACC_OK;
    }

  private:
    AccessibleRole m_role;
    wxString m_name;
    wxString m_value;
};

} // namespace

void NameForReaders(wxWindow& window, AccessibleRole role, const wxString& name)
{
    window.SetAccessible(new Answers(&window, role, name));
}

void TellReaders(wxWindow& window, const wxString& value)
{
    auto* answers = dynamic_cast<Answers*>(window.GetAccessible());
    if (answers != nullptr && answers->DrawsItself())
    {
        answers->SetValue(value);
        wxAccessible::NotifyEvent(wxACC_EVENT_OBJECT_VALUECHANGE, &window, wxOBJID_CLIENT,
                                  wxACC_SELF);
    }
}

} // namespace velmo
