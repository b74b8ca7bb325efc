#include "ui/Accessible.h"

#include <wx/window.h>

#include <gtk/gtk.h>

#include <array>

namespace velmo
{
namespace
{

AtkRole RoleOf(AccessibleRole role)
{
    switch (role)
    {
    case AccessibleRole::List:
        return ATK_ROLE_LIST;
    case AccessibleRole::Table:
        return ATK_ROLE_TABLE;
    case AccessibleRole::ProgressBar:
        return ATK_ROLE_PROGRESS_BAR;
    case AccessibleRole::AsItIs:
        break;
    }
    return ATK_ROLE_UNKNOWN;
}

/// A control that scrolls has its keyboard in a widget within its widget.
std::array<AtkObject*, 2> ObjectsOf(wxWindow& window)
{
    GtkWidget* outer = window.m_widget;
    GtkWidget* inner = GTK_IS_SCROLLED_WINDOW(outer) ? gtk_bin_get_child(GTK_BIN(outer)) : outer;
    return {gtk_widget_get_accessible(outer), gtk_widget_get_accessible(inner)};
}

} // namespace

void NameForReaders(wxWindow& window, AccessibleRole role, const wxString& name)
{
    for (AtkObject* object : ObjectsOf(window))
    {
        atk_object_set_name(object, name.utf8_str());
        if (role != AccessibleRole::AsItIs)
        {
            atk_object_set_role(object, RoleOf(role));
        }
    }
}

void TellReaders(wxWindow& window, const wxString& value)
{
    for (AtkObject* object : ObjectsOf(window))
    {
        atk_object_set_description(object, value.utf8_str());
    }
}

} // namespace velmo
