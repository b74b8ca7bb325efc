#pragma once

#include <wx/toplevel.h>

#include <string>
#include <string_view>

namespace velmo
{

class CINIFileHandler;

/**
    Remembers where a window stood: keys "Left", "Top", "Width", "Height" (twips) and "State" (0 normal,
    2 maximised) in a section of the settings file. A window is never restored off the screen: the
    remembered rectangle is cut to the display that it is on, or centred when that one is gone.
 */
class CFormHandler
{
  public:
    /// @a settings must outlive the handler; @a section is the window's own.
    CFormHandler(CINIFileHandler& settings, std::string_view section);

    /// Places the window as remembered, else centres it with the size that it has.
    void Restore(wxTopLevelWindow& window) const;

    /// The same for a window whose contents decide its size.
    void RestorePosition(wxTopLevelWindow& window) const;

    /// Remembers the window's place. A minimised window keeps the place it had.
    void Save(const wxTopLevelWindow& window) const;

  private:
    void Place(wxTopLevelWindow& window, bool withSize) const;
    [[nodiscard]] double Read(std::string_view key, double defaultValue) const;
    void Write(std::string_view key, double value) const;

    CINIFileHandler& m_settings;
    std::string m_section;
};

} // namespace velmo
