#include "ui/CFormHandler.h"

#include "settings/CINIFileHandler.h"
#include "ui/Twips.h"

#include <wx/display.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace velmo
{
namespace
{

constexpr int kMaximised = 2;
constexpr double kAbsent = -1e9; ///< No window stands there.

/// The display that shows most of a rectangle; wxNOT_FOUND when none shows any of it.
int DisplayOf(const wxRect& rectangle)
{
    int best = wxNOT_FOUND;
    long bestArea = 0;
    for (unsigned i = 0; i < wxDisplay::GetCount(); ++i)
    {
        const wxRect shown = wxDisplay(i).GetGeometry().Intersect(rectangle);
        const long area = static_cast<long>(shown.width) * shown.height;
        if (area > bestArea)
        {
            best = static_cast<int>(i);
            bestArea = area;
        }
    }
    return best;
}

/// @a wanted made to fit into @a screen.
wxRect FitInto(wxRect wanted, const wxRect& screen)
{
    wanted.width = std::min(wanted.width, screen.width);
    wanted.height = std::min(wanted.height, screen.height);
    wanted.x = std::max(screen.x, std::min(wanted.x, screen.GetRight() + 1 - wanted.width));
    wanted.y = std::max(screen.y, std::min(wanted.y, screen.GetBottom() + 1 - wanted.height));
    return wanted;
}

} // namespace

CFormHandler::CFormHandler(CINIFileHandler& settings, std::string_view section)
    : m_settings(settings), m_section(section)
{}

double CFormHandler::Read(std::string_view key, double defaultValue) const
{
    const float value =
        m_settings.MyGetAppProfileSingle(m_section, key, static_cast<float>(defaultValue));
    return std::isfinite(value) && std::fabs(value) < 1e6F ? value : defaultValue;
}

void CFormHandler::Write(std::string_view key, double value) const
{
    m_settings.MyWriteAppProfileString(m_section, key, std::to_string(std::lround(value)));
}

void CFormHandler::Restore(wxTopLevelWindow& window) const
{
    Place(window, true);
    if (Read("State", 0) == kMaximised)
    {
        window.Maximize();
    }
}

void CFormHandler::RestorePosition(wxTopLevelWindow& window) const
{
    Place(window, false);
}

void CFormHandler::Place(wxTopLevelWindow& window, bool withSize) const
{
    wxRect wanted = window.GetRect();
    const double left = Read("Left", kAbsent);
    const double top = Read("Top", kAbsent);
    const bool remembered = left != kAbsent && top != kAbsent;
    if (remembered)
    {
        wanted.SetPosition({PixelsOfTwips(window, left), PixelsOfTwips(window, top)});
    }
    if (remembered && withSize)
    {
        const wxSize least = window.GetMinSize();
        wanted.SetSize({std::max(least.x, PixelsOfTwips(window, Read("Width", 0))),
                        std::max(least.y, PixelsOfTwips(window, Read("Height", 0)))});
    }
    const int display = remembered ? DisplayOf(wanted) : wxNOT_FOUND;
    const wxRect screen =
        wxDisplay(display == wxNOT_FOUND ? 0U : static_cast<unsigned>(display)).GetClientArea();
    if (display == wxNOT_FOUND)
    {
        wanted = wanted.CentreIn(screen);
    }
    window.SetSize(FitInto(wanted, screen));
    m_place->rectangle =
        window.GetRect(); // Not every system tells of it before the window is shown.
    Follow(window);
}

void CFormHandler::Follow(wxTopLevelWindow& window) const
{
    window.Bind(wxEVT_SHOW, [place = m_place](wxShowEvent& event) {
        event.Skip();
        place->isShown = event.IsShown();
    });
    const auto note = [&window, place = m_place](wxEvent& event) {
        event.Skip();
        const wxRect now = window.GetRect();
        if (window.IsMaximized() || window.IsIconized() || now.width < window.GetMinSize().x)
        {
            return;
        }
        // A window manager may show it elsewhere, and take that for its place: what comes before the
        // window has the keyboard is not the person's doing.
        if (place->isShown && !place->isSeen)
        {
            place->isSeen = window.IsActive();
            if (place->isSeen && now != place->rectangle)
            {
                window.CallAfter([&window, wanted = place->rectangle] { window.SetSize(wanted); });
            }
            return;
        }
        place->rectangle = now;
    };
    window.Bind(wxEVT_SIZE, note);
    window.Bind(wxEVT_MOVE, note);
}

void CFormHandler::Save(const wxTopLevelWindow& window) const
{
    if (window.IsIconized())
    {
        return;
    }
    Write("State", window.IsMaximized() ? kMaximised : 0);
    const wxRect place = window.IsMaximized() ? m_place->rectangle : window.GetRect();
    if (place.IsEmpty())
    {
        return;
    }
    Write("Left", TwipsOfPixels(window, place.x));
    Write("Top", TwipsOfPixels(window, place.y));
    Write("Width", TwipsOfPixels(window, place.width));
    Write("Height", TwipsOfPixels(window, place.height));
}

} // namespace velmo
