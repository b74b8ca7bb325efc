#pragma once

#include <wx/toplevel.h>

#include <memory>
#include <string>
#include <string_view>

namespace velmo
{

class CINIFileHandler;

/**
    Remembers where a window stood: keys "Left", "Top", "Width", "Height" (twips) and "State" (0 normal,
    2 maximised) in a section of the settings file. A window is never restored off the screen: the
    remembered rectangle is cut to the display that it is on, or centred when that one is gone. A
    maximised window keeps the rectangle that it had before. User-interface thread.
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
    /// What the window is when it is neither maximised nor minimised.
    struct Normal
    {
        wxRect rectangle;     ///< Empty: not known.
        bool isShown = false; ///< On the screen.
        bool isSeen = false;  ///< It had the keyboard there.
    };

    void Place(wxTopLevelWindow& window, bool withSize) const;
    void Follow(wxTopLevelWindow& window) const;
    [[nodiscard]] double Read(std::string_view key, double defaultValue) const;
    void Write(std::string_view key, double value) const;

    CINIFileHandler& m_settings;
    std::string m_section;
    std::shared_ptr<Normal> m_place = std::make_shared<Normal>(); ///< Its events hold it too.
};

} // namespace velmo
