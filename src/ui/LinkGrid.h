#pragma once

#include <wx/grid.h>

#include <functional>
#include <string>
#include <vector>

namespace velmo
{

class EmptyNote;

/// A line of a LinkGrid.
struct LinkLine
{
    std::string text;
    std::string link; ///< Empty: the line cannot be clicked.
};

/**
    A list of lines under a bold header, those with a link underlined like one. The link stands in a
    hidden first column. A click on a line, or the enter key, opens its link.
 */
class LinkGrid final : public wxGrid
{
  public:
    /// @a opened gets the link of a line that was clicked. @a pointedAt gets the link under the mouse
    /// each time that it changes; empty when there is none.
    LinkGrid(wxWindow* parent, const wxString& name, const wxString& header,
             std::function<void(const std::string&)> opened,
             std::function<void(const std::string&)> pointedAt);

    void SetLines(const std::vector<LinkLine>& lines);

    /// What stands in the list while it has no lines.
    void SetEmptyText(const wxString& text);

    /// Height in pixels at which the header and that many lines are seen.
    [[nodiscard]] int HeightOf(int lines) const;

    /// The link of a row, from 0; empty for a row that is none.
    [[nodiscard]] std::string LinkOf(int row) const;

  private:
    void OpenRow(int row);
    void OnMouse(wxMouseEvent& event);
    void PointAt(const std::string& link);
    void OnKey(wxKeyEvent& event);

    std::function<void(const std::string&)> m_opened;
    std::function<void(const std::string&)> m_pointedAt;
    std::string m_linkUnderMouse;
    EmptyNote* m_emptyNote = nullptr;
};

} // namespace velmo
