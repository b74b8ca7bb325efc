#pragma once

#include <wx/splitter.h>

#include <optional>

namespace velmo
{

/**
    A bar between the control above it and the control below it in one container. The person drags
    it, or moves it by keys. When the container is resized, it stays where it was put, or at its part of
    the height as long as it was put nowhere, and within its two margins. Positions are twips from the
    container's top (Twips.h).
 */
class CHorizontalSplitter final : public wxSplitterWindow
{
  public:
    /// The container; its children are the two controls.
    CHorizontalSplitter(wxWindow* parent, const wxString& name);

    /// Puts the two controls in place, with the bar at @a barTop, or at its design position for none.
    /// A position that is negative or below every display becomes 600; one that the container is too
    /// small for is 600 until there has been room for it.
    void Init(wxWindow* above, wxWindow* below, std::optional<double> barTop);

    /// Puts the bar where it belongs in the container's present size.
    void RefreshBar();

    /// The person moves the bar down by so many lines of text, up by a negative number.
    void MoveByLines(int lines);

    /// Where the bar was put, also while a small container holds it elsewhere; where it stands when it
    /// was put nowhere; nothing before it has its place.
    [[nodiscard]] std::optional<double> BarTop() const;

    /// Whether the bar was put where it is, rather than being at its design position.
    [[nodiscard]] bool IsPut() const { return m_wanted.has_value(); }

  private:
    void Put(int position);
    [[nodiscard]] int WithinMargins(int position) const;

    bool m_placed = false;          ///< Not before the container has its first real size.
    bool m_fitted = false;          ///< There has been room for the bar where it was put.
    std::optional<double> m_wanted; ///< Where the bar was put; nothing: at its design position.
};

/// What becomes of a stored position in a container of @a innerHeight (both in twips).
[[nodiscard]] double UsableBarTop(double stored, double innerHeight);

} // namespace velmo
