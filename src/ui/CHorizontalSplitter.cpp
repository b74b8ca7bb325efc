#include "ui/CHorizontalSplitter.h"

#include "ui/Twips.h"

#include <wx/display.h>

#include <algorithm>

namespace velmo
{
namespace
{

constexpr double kFallbackBarTop = 600;

/// The bar's design position: this part of the container is above it.
constexpr double kDesignPart = 0.62;

/// Least heights that the controls above and below keep, in device-independent pixels.
constexpr int kTopMargin = 40;
constexpr int kBottomMargin = 90;

/// Sizes below this are the toolkit's first guesses, before the window is laid out.
constexpr int kLeastRealHeight = 120;

/// Pixels from the top of the highest display to the bottom of the lowest.
int HeightOfAllDisplays()
{
    wxRect all;
    for (unsigned i = 0; i < wxDisplay::GetCount(); ++i)
    {
        all.Union(wxDisplay(i).GetGeometry());
    }
    return all.height;
}

} // namespace

double UsableBarTop(double stored, double innerHeight)
{
    return stored < 0 || stored >= innerHeight ? kFallbackBarTop : stored;
}

CHorizontalSplitter::CHorizontalSplitter(wxWindow* parent, const wxString& name)
    : wxSplitterWindow(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                       wxSP_LIVE_UPDATE | wxSP_3DSASH)
{
    SetName(name);
    SetMinimumPaneSize(1);
    Bind(wxEVT_SPLITTER_SASH_POS_CHANGING, [this](wxSplitterEvent& event) {
        // Only the person's dragging is told here, not the toolkit's own moves while it lays out.
        event.SetSashPosition(WithinMargins(event.GetSashPosition()));
        Put(event.GetSashPosition());
    });
    Bind(wxEVT_SPLITTER_DOUBLECLICKED, [](wxSplitterEvent& event) { event.Veto(); });
    Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        event.Skip();
        CallAfter([this] { RefreshBar(); });
    });
}

void CHorizontalSplitter::Init(wxWindow* above, wxWindow* below, std::optional<double> barTop)
{
    m_wanted = barTop;
    if (barTop)
    {
        m_wanted = UsableBarTop(*barTop, TwipsOfPixels(*this, HeightOfAllDisplays()));
    }
    SplitHorizontally(above, below);
    RefreshBar();
}

void CHorizontalSplitter::RefreshBar()
{
    const int height = GetClientSize().GetHeight();
    if (height < FromDIP(kLeastRealHeight))
    {
        return;
    }
    const double innerHeight = TwipsOfPixels(*this, height);
    double top = m_wanted.value_or(innerHeight * kDesignPart);
    // A window gets its size in several steps, and the last, a maximised one's, may come late.
    m_fitted = m_fitted || UsableBarTop(top, innerHeight) == top;
    if (!m_fitted)
    {
        top = UsableBarTop(top, innerHeight);
    }
    const int position = WithinMargins(PixelsOfTwips(*this, top));
    m_placed = true;
    if (position != GetSashPosition())
    {
        SetSashPosition(position);
    }
}

void CHorizontalSplitter::MoveByLines(int lines)
{
    Put(WithinMargins(GetSashPosition() + lines * GetCharHeight()));
    RefreshBar();
}

void CHorizontalSplitter::Put(int position)
{
    m_wanted = TwipsOfPixels(*this, position);
    m_fitted = true;
}

std::optional<double> CHorizontalSplitter::BarTop() const
{
    return m_placed && !m_wanted ? TwipsOfPixels(*this, GetSashPosition()) : m_wanted;
}

int CHorizontalSplitter::WithinMargins(int position) const
{
    const int least = FromDIP(kTopMargin);
    const int most = GetClientSize().GetHeight() - FromDIP(kBottomMargin) - GetSashSize();
    return std::max(least, std::min(position, most));
}

} // namespace velmo
