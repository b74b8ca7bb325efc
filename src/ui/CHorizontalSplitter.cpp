#include "ui/CHorizontalSplitter.h"

#include "ui/Twips.h"

#include <algorithm>

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

CHorizontalSplitter::CHorizontalSplitter(wxWindow* parent)
    : wxSplitterWindow(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                       wxSP_LIVE_UPDATE | wxSP_3DSASH)
{
    SetName("fraSplitterProgram");
    SetMinimumPaneSize(1);
    SetSashGravity(1.0);
    Bind(wxEVT_SPLITTER_SASH_POS_CHANGING, [this](wxSplitterEvent& event) {
        event.SetSashPosition(WithinMargins(event.GetSashPosition()));
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
    int position = GetSashPosition();
    if (!m_placed)
    {
        const double design = TwipsOfPixels(*this, height) * kDesignPart;
        position = PixelsOfTwips(
            *this, UsableBarTop(m_wanted.value_or(design), TwipsOfPixels(*this, height)));
        m_placed = true;
    }
    position = WithinMargins(position);
    if (position != GetSashPosition())
    {
        SetSashPosition(position);
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
