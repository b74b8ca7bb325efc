#pragma once

#include <wx/splitter.h>

#include <optional>

namespace velmo
{

/**
    A bar between the control above it and the control below it in one container. The person drags
    it; it keeps within its two margins when dragged and when the container is resized. Positions are
    twips from the container's top (Twips.h).
 */
class CHorizontalSplitter final : public wxSplitterWindow
{
  public:
    /// The container; its children are the two controls.
    explicit CHorizontalSplitter(wxWindow* parent);

    /// Puts the two controls in place, with the bar at @a barTop, or at its design position for none.
    /// A position that is negative or not above the container's bottom becomes 600.
    void Init(wxWindow* above, wxWindow* below, std::optional<double> barTop);

    /// Moves the bar back within its margins.
    void RefreshBar();

    /// Nothing before the bar has its place.
    [[nodiscard]] std::optional<double> BarTop() const;

    /// Height of the bar in pixels.
    [[nodiscard]] int BarHeight() const { return GetSashSize(); }

    /// Least heights that the controls above and below keep, in device-independent pixels.
    int MinimumSplitterBarTopMargin = 40;
    int MinimumSplitterBarBottomMargin = 60;

  private:
    [[nodiscard]] int WithinMargins(int position) const;

    bool m_placed = false;          ///< Not before the container has its first real size.
    std::optional<double> m_wanted; ///< Where the bar shall be then.
};

/// What becomes of a stored position in a container of @a innerHeight (both in twips).
[[nodiscard]] double UsableBarTop(double stored, double innerHeight);

} // namespace velmo
