#include "ui/CHorizontalSplitter.h"

#include "ui/Twips.h"

#include <algorithm>
#include <utility>

namespace velmo
{
namespace
{

constexpr double kFallbackBarTop = 600;

/// The bar's design position: this part of the container is above it.
constexpr double kDesignPart = 0.62;

/// Sizes below this are the toolkit's first guesses, before the window is laid out.
constexpr int kLeastRealHeight = 120;

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
        m_wanted = TwipsOfPixels(*this, event.GetSashPosition());
        m_settled = true;
    });
    Bind(wxEVT_IDLE, [this](wxIdleEvent& event) {
        event.Skip();
        SettleWhenQuiet();
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
    if (!m_settled)
    {
        // In the next size of the first layout the stored position may be usable.
        top = UsableBarTop(top, innerHeight);
    }
    const int position = WithinMargins(PixelsOfTwips(*this, top));
    m_placed = true;
    if (position != GetSashPosition())
    {
        SetSashPosition(position);
    }
}

void CHorizontalSplitter::SettleWhenQuiet()
{
    const int height = GetClientSize().GetHeight();
    if (m_settled || !m_placed || !IsShownOnScreen() ||
        std::exchange(m_heightAtIdle, height) != height)
    {
        return;
    }
    m_settled = true;
    if (m_wanted)
    {
        m_wanted = UsableBarTop(*m_wanted, TwipsOfPixels(*this, height));
    }
}

std::optional<double> CHorizontalSplitter::BarTop() const
{
    return m_placed ? TwipsOfPixels(*this, GetSashPosition()) : m_wanted;
}

int CHorizontalSplitter::WithinMargins(int position) const
{
    const int least = FromDIP(MinimumSplitterBarTopMargin);
    const int most =
        GetClientSize().GetHeight() - FromDIP(MinimumSplitterBarBottomMargin) - BarHeight();
    return std::max(least, std::min(position, most));
}

} // namespace velmo
